#include "desktop/window_memory.h"

#include "desktop/sample_form.h"

#include <QHeaderView>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>

using namespace pgbp;

namespace {

class Memory : public testing::Test {
  protected:
    QTemporaryDir folder;
    WindowMemory memory{folder.filePath("window.ini")};
};

} // namespace

TEST_F(Memory, ShowsTheWindowAsItWasLeft)
{
    QWidget left;
    memory.Show(left);
    EXPECT_TRUE(left.isMaximized()) << "the first time";
    left.showNormal();
    left.setGeometry(40, 50, 600, 400);
    memory.Keep(left);
    QWidget next;
    memory.Show(next);
    EXPECT_EQ(next.geometry(), QRect(40, 50, 600, 400));
}

TEST_F(Memory, BringsAWindowBackFromAScreenThatIsGone)
{
    QWidget left;
    left.setGeometry(9000, 9000, 600, 400);
    memory.Keep(left);
    QWidget next;
    memory.Show(next);
    EXPECT_TRUE(next.screen()->availableGeometry().contains(next.geometry().center()));
}

TEST_F(Memory, KeepsTheWidthsThatThePreparerGaveToColumns)
{
    TestBoxes boxes;
    SampleForm form(boxes);
    Actions actions;
    const auto widthOf = [&](WindowMemory* itsMemory, int chosen) {
        FormView view(form, actions, nullptr, itsMemory);
        view.resize(1100, 1000);
        view.show();
        QApplication::processEvents();
        auto& table = *qobject_cast<QTableView*>(view.Find(&form.lines)->keyboard());
        if (chosen > 0)
            table.horizontalHeader()->resizeSection(2, chosen);
        EXPECT_EQ(table.horizontalHeader()->length(), table.viewport()->width()) << "the text takes what is left";
        form.lines.Clear();
        QApplication::processEvents();
        EXPECT_EQ(table.horizontalHeader()->length(), table.viewport()->width());
        return table.columnWidth(2);
    };
    const int own = widthOf(&memory, 0);
    EXPECT_EQ(widthOf(&memory, own + 90), own + 90);
    EXPECT_EQ(widthOf(&memory, 0), own + 90);
    EXPECT_EQ(widthOf(nullptr, 0), own);
    memory.KeepColumns("Sample.lines", {1, 2});
    EXPECT_EQ(widthOf(&memory, 0), own) << "widths of other columns";
}
