#include "desktop/sample_form.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QWheelEvent>

using namespace pgbp;

using Selectors = ShownForm;

TEST_F(Selectors, PressButtonsByMouseSpaceEnterAndLetter)
{
    int pressed = 0;
    form.cmdopen.onClick = [&] { ++pressed; };
    QTest::mouseClick(KeyboardOf(form.cmdopen), Qt::LeftButton);
    EXPECT_EQ(view.focusWidget(), KeyboardOf(form.cmdopen));
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);
    Focus(form.amount);
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(pressed, 4);
    EXPECT_EQ(form.amount.text(), "");
    EXPECT_EQ(WidgetOf<QPushButton>(form.cmdopen).text(), "&Normal Business");
}

TEST_F(Selectors, KeepTheMainFrameFromUseBehindACard)
{
    view.Act([&] { form.Raise(form.side, form.sidetext); });
    int pressed = 0;
    form.cmdopen.onClick = form.cmddetails.onClick = [&] { ++pressed; };
    Press(Qt::Key_D, Qt::AltModifier);
    QTest::mouseClick(KeyboardOf(form.cmddetails), Qt::LeftButton);
    const QPoint place = KeyboardOf(form.cmdopen)->mapTo(&view, QPoint(5, 5));
    QTest::mouseClick(view.childAt(place), Qt::LeftButton);
    EXPECT_EQ(pressed, 0);
    EXPECT_TRUE(KeyboardOf(form.CmdBack)->isEnabled());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form.side.visible);
    EXPECT_FALSE(view.Find(&form.side)->widget()->isVisible());
}

TEST_F(Selectors, TickAndChoose)
{
    QTest::mouseClick(KeyboardOf(form.tick), Qt::LeftButton);
    Focus(form.second);
    Press(Qt::Key_Space);
    EXPECT_TRUE(form.tick.value && form.second.value);
    view.Act([&] { form.first.Click(); });
    EXPECT_TRUE(WidgetOf<QCheckBox>(form.tick).isChecked());
    EXPECT_TRUE(WidgetOf<QRadioButton>(form.first).isChecked());
    EXPECT_FALSE(WidgetOf<QRadioButton>(form.second).isChecked());
}

TEST_F(Selectors, ChooseFromAListThatDropsDown)
{
    int chosen = 0;
    form.kinds.onClick = [&] { ++chosen; };
    Focus(form.kinds);
    Press(Qt::Key_Down);
    Type("c");
    auto& box = WidgetOf<QComboBox>(form.kinds);
    EXPECT_EQ(box.currentText(), "Company");
    emit box.activated(1);
    EXPECT_EQ(form.kinds.text(), "Firm");
    EXPECT_EQ(chosen, 3);
    view.Act([&] { form.kinds.SetItems({"Trust"}); });
    EXPECT_EQ(box.count(), 1);
    EXPECT_EQ(box.currentIndex(), -1);
}

TEST_F(Selectors, TypeWhatIsNotInTheListWhereThatIsAllowed)
{
    Focus(form.place);
    Type("Nasik");
    Press(Qt::Key_Backspace);
    auto& line = WidgetOf<QLineEdit>(form.place);
    EXPECT_EQ(form.place.text(), "Nasi");
    EXPECT_EQ(line.text(), "Nasi");
    Press(Qt::Key_Down);
    EXPECT_EQ(line.text(), "Pune");
    Press(Qt::Key_Return);
    EXPECT_NE(form.focused(), &form.place);
}

TEST_F(Selectors, OpenADropDownOnItsFirstEntry)
{
    for (combo* field : {&form.kinds, &form.place}) {
        std::vector<std::string> states;
        for (int i = 0; i < 36; ++i)
            states.push_back((i == 30 ? "Sikkim " : "State ") + std::to_string(i));
        view.Act([&] { field->SetItems(states); });
        view.Act([&] { *field = ""; });
        Focus(*field);
        auto& box = *qobject_cast<QComboBox*>(view.Find(field)->widget());
        for (const auto& [key, held] : {std::pair(Qt::Key_F4, Qt::NoModifier), {Qt::Key_Down, Qt::AltModifier}}) {
            Press(key, held);
            EXPECT_TRUE(box.view()->isVisible());
            EXPECT_EQ(box.view()->currentIndex().row(), 0);
            EXPECT_EQ(box.view()->verticalScrollBar()->value(), 0);
            QTest::keyClick(box.view(), Qt::Key_Escape);
            EXPECT_EQ(field->text(), "") << "looking at the list chooses nothing";
        }
        Press(Qt::Key_F4);
        QTest::keyClicks(box.view(), "si");
        QTest::keyClick(box.view(), Qt::Key_Return);
        Settle();
        EXPECT_EQ(field->text(), "Sikkim 30");
    }
}

TEST_F(Selectors, KeepTheirChoiceWhenTheWheelTurnsOverThem)
{
    view.Act([&] { form.kinds = "Firm"; });
    Focus(form.name);
    QWidget& box = *view.Find(&form.kinds)->widget();
    const QPointF middle = box.rect().center();
    QWheelEvent turn(middle, box.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &turn);
    EXPECT_EQ(form.kinds.text(), "Firm");
    EXPECT_EQ(form.focused(), &form.name);
}

TEST_F(Selectors, OfferTextsBelowAFieldWithoutTakingTheKeyboard)
{
    for (TextBox* box : {static_cast<TextBox*>(&form.name), static_cast<TextBox*>(&form.place)}) {
        box->SetOffers({"Rent of godown", "Repairs"});
        Focus(*box);
        Type("re");
        const QWidget& field = *KeyboardOf(*box);
        auto* offered = view.findChild<QListWidget*>("offers of " + QString::fromStdString(box->name()));
        ASSERT_TRUE(offered && offered->isVisible());
        EXPECT_EQ(offered->count(), 2);
        EXPECT_TRUE(FormView::HasKeyboard(field));
        EXPECT_GT(offered->y(), field.mapTo(&view, QPoint()).y());
        Press(Qt::Key_Down);
        EXPECT_EQ(offered->currentRow(), 0);
        EXPECT_EQ(WidgetOf<QLineEdit>(*box).text(), "re");
        Press(Qt::Key_Escape);
        EXPECT_FALSE(offered->isVisible());
        Type("p");
        EXPECT_EQ(offered->count(), 1);
        QTest::mouseClick(offered->viewport(), Qt::LeftButton, {}, QPoint(9, 9));
        EXPECT_EQ(box->text(), "Repairs");
        EXPECT_EQ(WidgetOf<QLineEdit>(*box).text(), "Repairs");
        EXPECT_FALSE(offered->isVisible());
        EXPECT_TRUE(FormView::HasKeyboard(field));
    }
    Focus(form.name);
    Press(Qt::Key_F4);
    EXPECT_EQ(form.name.offers().shown().size(), 2U);
    Focus(form.amount);
    EXPECT_FALSE(view.findChild<QListWidget*>("offers of name")->isVisible());
}

TEST_F(Selectors, WalkAGridByKeysAndOpenItsRows)
{
    int opened = 0;
    form.lines.onDoubleClick = [&](int row) { opened = row; };
    auto& table = WidgetOf<QTableView>(form.lines);
    Focus(form.lines);
    Press(Qt::Key_Down);
    EXPECT_EQ(table.currentIndex().row(), 1);
    Press(Qt::Key_End);
    Press(Qt::Key_Return);
    EXPECT_EQ(opened, 3);
    const QPoint firstRow(80, table.rowViewportPosition(0) + 5);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, firstRow);
    EXPECT_EQ(form.lines.currentRow(), 1);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, firstRow);
    EXPECT_EQ(opened, 1);
    view.Act([&] { form.lines.SetRows({{"1", "Only", "7.00", ""}}); });
    EXPECT_EQ(table.model()->rowCount(), 1);
    EXPECT_EQ(table.model()->index(0, 1).data().toString(), "Only");
    view.Act([&] { form.lines.Clear(); });
    Press(Qt::Key_Return);
    EXPECT_EQ(opened, 1);
}

TEST_F(Selectors, CopyRowsOfAGridForASpreadsheet)
{
    Focus(form.lines);
    auto& table = WidgetOf<QTableView>(form.lines);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1\tShop\t-1250.50\n");
    table.selectAll();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1\tShop\t-1250.50\n2\tMill\t300.00\n3\tFarm\t0.00\n");
}

TEST_F(Selectors, MarkAComputedAmountToCopyIt)
{
    view.Act([&] { form.total = "-2472131.00"; });
    Focus(form.name);
    Type("Shop");
    Press(Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(view.Find(&form.total)->widget(), Qt::LeftButton);
    EXPECT_EQ(form.focused(), &form.name);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "-2472131.00");
    Press(Qt::Key_End);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Shop") << "another key ends the mark";
    view.Act([&] {
        form.amount = "900000";
        form.amount.enabled = false;
    });
    QTest::mouseClick(view.Find(&form.amount)->widget(), Qt::LeftButton);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "900000.00") << "a field that can not be typed into";
    Press(Qt::Key_End);
    QTest::mouseClick(view.Find(&form.caption)->widget(), Qt::LeftButton);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "900000.00") << "a caption is no amount";
}

TEST_F(Selectors, NeverScrollAnAmountOutOfAGrid)
{
    auto& table = WidgetOf<QTableView>(form.lines);
    for (const int width : {1100, 700}) {
        view.resize(width, 760);
        Settle();
        EXPECT_EQ(table.horizontalHeader()->length(), table.viewport()->width()) << width;
    }
    EXPECT_TRUE(table.isColumnHidden(3));
}

TEST_F(Selectors, OpenTheEmptySpotOfAList)
{
    int clicked = -1;
    int opened = -1;
    form.titles.onClick = [&](int entry) { clicked = entry; };
    form.titles.onDoubleClick = [&](int entry) { opened = entry; };
    auto& rows = WidgetOf<QListWidget>(form.titles);
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualItemRect(rows.item(1)).center());
    EXPECT_EQ(clicked, 2);
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, QPoint(20, rows.viewport()->height() - 4));
    EXPECT_EQ(opened, 0);
    Press(Qt::Key_Down);
    EXPECT_EQ(rows.currentRow(), 0);
}
