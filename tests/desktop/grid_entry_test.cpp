#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "desktop/actions.h"
#include "desktop/form_view.h"
#include "support/test_boxes.h"

#include <QApplication>
#include <QClipboard>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTableView>
#include <QWheelEvent>
#include <QtTest>

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

enum { kSerial, kWords, kAmount, kPrevious, kDetail };

/// A statement of 200 rows: each tenth is a total, each seventh is hidden.
class StatementForm : public Form {
  public:
    explicit StatementForm(MessageBoxes& itsBoxes) : Form("F", "Profit and Loss Account", itsBoxes, "Vorn")
    {
        framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&link}}, {{&lines}}}});
        link.onClick = [this] { clicked.first = -1; };
        std::vector<std::vector<std::string>> rows(200, {"1", "Sales", "", "12,345", "=>"});
        rows[7][kWords] = std::string(40, 'w') + ' ' + std::string(40, 'w') + " rupees";
        lines.SetRows(std::move(rows));
        for (int row = 7; row <= 200; row += 7)
            lines.HideRow(row);
        lines.SetEditors({&amount});
        lines.canEnter = [](int row, int column) { return column == kAmount && row % 10 != 0; };
        lines.onEnterCell = [this](int row, int column) {
            if (lines.canEnter(row, column))
                lines.PlaceEditor(amount, row, column);
        };
        lines.onClickCell = [this](int row, int column) { clicked = {row, column}; };
        lines.onPaste = [this](int row, int, const std::vector<std::string>& texts) {
            for (const std::string& text : texts)
                lines.SetCell(row++, kAmount, text);
            return true;
        };
        amount.onChange = [this] {
            lines.SetCell(lines.currentRow(), kAmount, amount.text());
            for (int row = 10; row <= 200; row += 10)
                lines.SetCell(row, kAmount, amount.text());
        };
    }

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label link{*this, "link", "About the books"};
    Grid lines{*this,
               "lines",
               {{"Serial", GridColumnKind::Serial},
                {"Description"},
                {"Amount", GridColumnKind::Amount},
                {.heading = "Prev. Year", .kind = GridColumnKind::Amount, .muted = true},
                {"Detail", GridColumnKind::Mark}}};
    txtn amount{*this, "amount"};
    std::pair<int, int> clicked;
};

/// Adds up what a widget repaints.
class Painted : public QObject {
  public:
    int pixels = 0;

  protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            for (const QRect& part : static_cast<QPaintEvent*>(event)->region())
                pixels += part.width() * part.height();
        return false;
    }
};

class GridEntry : public testing::Test {
  protected:
    GridEntry() { Resize(1100, 700); }

    void Resize(int width, int height)
    {
        view.resize(width, height);
        view.show();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    QTableView& Table() { return *qobject_cast<QTableView*>(view.Find(&form.lines)->keyboard()); }
    QRect Cell(int row, int column) { return Table().visualRect(Table().model()->index(row - 1, column)); }
    void Click(int row, int column)
    {
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Cell(row, column).center());
        QCoreApplication::processEvents();
    }
    void Keys(const char* text)
    {
        QTest::keyClicks(view.focusWidget(), text);
        QCoreApplication::processEvents();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTest::keyClick(view.focusWidget(), key, held);
        QCoreApplication::processEvents();
    }
    void ExpectEditor(int row, const std::string& text)
    {
        const QWidget& field = *view.Find(&form.amount)->widget();
        EXPECT_EQ(form.lines.currentRow(), row);
        EXPECT_TRUE(FormView::HasKeyboard(field)) << row;
        EXPECT_EQ(field.geometry(), Cell(row, kAmount)) << row;
        EXPECT_TRUE(Table().viewport()->rect().contains(field.geometry())) << row;
        EXPECT_EQ(form.amount.text(), text) << row;
    }

    TestBoxes boxes;
    StatementForm form{boxes};
    Actions actions;
    FormView view{form, actions};
};

} // namespace

TEST_F(GridEntry, KeysAColumnOfAmounts)
{
    Click(4, kAmount);
    for (const char* keyed : {"100", "200", "300", "400", "500"}) { // rows 4, 5, 6, 8 and 9: row 7 is hidden
        Keys(keyed);
        Press(Qt::Key_Return);
    }
    ExpectEditor(11, "");
    EXPECT_EQ(form.lines.Cell(9, kAmount), "500");
    EXPECT_EQ(form.lines.Cell(7, kAmount), "");
    for (int i = 0; i < 4; ++i)
        Press(Qt::Key_Up); // over the total, where no editor stands
    ExpectEditor(6, "300");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(form.lines.Cell(6, kAmount), "300") << "what was keyed into another cell is no step of undo here";
    Press(Qt::Key_End);
    ExpectEditor(199, "");
    Press(Qt::Key_Backtab);
    Press(Qt::Key_Space);
    EXPECT_EQ(form.clicked.first, -1) << "the link";

    Click(198, kAmount);
    Keys("1");
    Painted painted;
    Table().viewport()->installEventFilter(&painted);
    Keys("2");
    EXPECT_GT(painted.pixels, 0);
    EXPECT_LT(painted.pixels, 8 * Cell(200, kAmount).width() * Cell(200, kAmount).height()) << "only what changed";
}

TEST_F(GridEntry, TakesAndGivesSeveralLines)
{
    auto& clipboard = *QGuiApplication::clipboard();
    clipboard.setText("10\n20\n30\n");
    Click(1, kAmount);
    Press(Qt::Key_V, Qt::ControlModifier);
    Click(4, kSerial);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.lines.Cell(3, kAmount) + form.lines.Cell(6, kAmount), "3030");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text().count('\n'), form.lines.ShownRows());
    EXPECT_TRUE(clipboard.text().startsWith("1\tSales\t10\t12345\t=>\n"));
}

TEST_F(GridEntry, FollowsTheMouseAndTheWindow)
{
    Click(5, kAmount);
    QWheelEvent turn(Cell(5, kAmount).center(), {}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Table().viewport(), &turn);
    EXPECT_GT(Table().verticalScrollBar()->value(), 0);
    EXPECT_FALSE(form.amount.visible);
    Keys("6");
    ExpectEditor(5, "6");
    Click(6, kDetail);
    EXPECT_EQ(form.clicked, std::pair(6, int(kDetail)));
    EXPECT_FALSE(form.amount.visible);

    Click(8, kAmount);
    for (const int width : {1366, 911, 640}) // 911: 1366 at 150 %
        for (const bool withPrevious : {false, true}) {
            view.Act([&] { form.lines.ShowColumn(kPrevious, withPrevious); });
            Resize(width, 500);
            EXPECT_EQ(Cell(1, kDetail).right(), Table().viewport()->width() - 1) << width;
            ExpectEditor(8, "");
        }
    const auto* whole = view.findChild<QWidget*>("caption of lines");
    EXPECT_TRUE(whole->isVisible() && whole->accessibleName().endsWith("rupees"));
}
