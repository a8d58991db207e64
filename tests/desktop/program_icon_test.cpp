#include "desktop/program_icon.h"

#include <QImage>

#include <gtest/gtest.h>

// The pictures come with the program as resources. One that the linker left out is drawn as an empty picture, without
// an error, so the colours are looked at.
TEST(ProgramIcon, HasAPageOnItsCoverInEachSize)
{
    const QIcon icon = pgbp::ProgramIcon();
    for (const int size : {16, 32, 48, 128}) {
        const QImage picture = icon.pixmap(size).toImage();
        ASSERT_EQ(picture.size(), QSize(size, size));
        const auto at = [&](double x, double y) { return picture.pixelColor(int(x * size / 16), int(y * size / 16)); };
        EXPECT_EQ(at(1.5, 8), QColor("#1d5fbf")) << size;
        EXPECT_EQ(at(8, 3), QColor("#ffffff")) << size;
        EXPECT_LT(at(0, 0).alpha(), 128) << size << ": the corners are round";
    }
}
