#include "desktop/theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    pgbp::ApplyTheme(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
