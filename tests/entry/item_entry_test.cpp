#include "entry/item_entry.h"

#include "controls/frame.h"
#include "support/empty_practice.h"
#include "support/typing.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

struct Item {
    std::string name{};
    double amount = 0;
    std::string hidden{}; ///< no field holds it

    bool operator==(const Item&) const = default;
};

class ItemScreen : public Screen {
  public:
    explicit ItemScreen(Run& itsRun) : Screen(itsRun, "items", "Items")
    {
        framain.Lay({.columns = {LayoutColumn::Field, LayoutColumn::Button},
                     .rows = {{{&txtname}}, {{&txtamount, &cmdadd}}, {{&rows}}}});
        framain.onUndo = [this] { entry.Undo(); };
        entry.checks = {{[this] { return Val(txtamount) == 0; }, "Please fill Amount...", &txtamount}};
    }

    std::vector<ItemColumn<Item>> Columns()
    {
        return {{.shown = {"Name"}, .member = &Item::name, .field = &txtname},
                {.shown = {"Amount", GridColumnKind::Amount}, .member = &Item::amount, .field = &txtamount}};
    }

    Frame framain{*this, "framain", "", FramePlace::Main};
    txt txtname{*this, "txtname"};
    txtn txtamount{*this, "txtamount"};
    cmd cmdadd{*this, "cmdadd", "&Add"};
    Grid rows{*this, "rows", GridColumns(Columns())};
    ItemEntry<Item> entry{*this, rows, cmdadd, Columns()};
};

class Items : public testing::Test {
  protected:
    Items()
    {
        pgbp::Run& run = practice.Start();
        constexpr ScreenName<NoOpening> kItems{"items"};
        run.screens.Register<ItemScreen>(kItems);
        run.screens.Show(kItems);
        screen = static_cast<ItemScreen*>(run.screens.OnDisplay());
        screen->entry.Open({{"Rent", 10, "r"}, {"Fuel", 20}, {"Fees", 30}});
    }

    void Type(const char* name, const char* amount) const
    {
        for (const auto& [field, text] : {std::pair<TextBox*, const char*>(&screen->txtname, name),
                                          std::pair<TextBox*, const char*>(&screen->txtamount, amount)}) {
            screen->SetFocus(*field);
            field->SelectAll();
            TypeText(*screen, text);
        }
    }
    void TakeBack(int row) const
    {
        screen->Do([&] { screen->rows.DoubleClick(row); });
    }
    /// Names in the order of the grid.
    std::string Names() const
    {
        std::string names;
        for (const Item& item : screen->entry.items())
            names += item.name + ' ';
        return names;
    }

    EmptyPractice practice;
    ItemScreen* screen = nullptr;
};

TEST_F(Items, WhatStandsBelowFollowsWhatTheOwnerComputed)
{
    double sum = 0;
    screen->entry.changed = [&] {
        sum = 0;
        for (const Item& item : screen->entry.items())
            sum += item.amount;
    };
    screen->entry.footer = [&] { return std::vector{std::string(), Amount(sum)}; };
    screen->entry.Open({{"Rent", 10}, {"Fuel", 20}});
    EXPECT_EQ(screen->rows.footer()[1], "30.00");
    screen->rows.onDelete(1);
    EXPECT_EQ(screen->rows.footer()[1], "20.00");
}

TEST_F(Items, AChangedItemKeepsItsPlaceAndWhatNoFieldHolds)
{
    TakeBack(1);
    EXPECT_EQ(Names(), "Fuel Fees ");
    Type("Rent of shop", "15");
    screen->Click(screen->cmdadd);
    EXPECT_EQ(Names(), "Rent of shop Fuel Fees ");
    EXPECT_EQ(screen->entry.items().front().hidden, "r");
    EXPECT_EQ(screen->rows.currentRow(), 1) << "it is in sight";
    EXPECT_EQ(screen->focused(), &screen->txtname);
}

TEST_F(Items, ASaveTakesWhatIsTyped)
{
    EXPECT_TRUE(screen->entry.Finish());
    EXPECT_EQ(Names(), "Rent Fuel Fees ");
    Type("Tea", "0");
    EXPECT_FALSE(screen->entry.Finish()) << "the checks of Add count";
    EXPECT_EQ(practice.boxes.Take().text, "Please fill Amount...");
    Type("Tea", "5");
    EXPECT_TRUE(screen->entry.Finish());
    EXPECT_EQ(Names(), "Rent Fuel Fees Tea ");
}

TEST_F(Items, ASaveRemovesWhatWasTakenBackAndLeftAlone)
{
    TakeBack(2);
    EXPECT_TRUE(screen->entry.Finish());
    EXPECT_EQ(Names(), "Rent Fees ");
    EXPECT_EQ(screen->entry.Summary(), "2 items (removed: Fuel, 20.00, taken back and not added again)");
}

TEST_F(Items, ADoubleClickLosesNothing)
{
    TakeBack(1);
    TakeBack(2); // Fees, while Rent is in the fields and left alone
    EXPECT_EQ(Names(), "Rent Fuel ");
    EXPECT_EQ(screen->txtname.text(), "Fees");
    Type("Fees paid", "31");
    TakeBack(1);
    EXPECT_EQ(Names(), "Fuel Fees paid ") << "what was typed is added first";
    Type("Rent", "0");
    TakeBack(1);
    EXPECT_EQ(practice.boxes.Take().text, "Please fill Amount...");
    EXPECT_EQ(Names(), "Fuel Fees paid ");
    EXPECT_EQ(screen->txtname.text(), "Rent");
}

TEST_F(Items, TheMarkedItemIsDeletedAndBroughtBack)
{
    screen->SetFocus(screen->txtname);
    screen->Press(Key::ControlDown);
    ASSERT_EQ(screen->focused(), &screen->rows);
    screen->Press(Key::Home);
    screen->Press(Key::Delete);
    EXPECT_EQ(screen->notice.get(), "Rent, 10.00 removed. Ctrl+Z brings it back.");
    screen->Press(Key::Delete);
    EXPECT_EQ(Names(), "Fees ");
    screen->Press(Key::Undo);
    screen->Press(Key::Undo);
    screen->Press(Key::Undo); // nothing more to bring back
    EXPECT_EQ(Names(), "Rent Fuel Fees ");
    EXPECT_EQ(screen->entry.items().front().hidden, "r");
    screen->Press(Key::Escape);
    EXPECT_EQ(screen->focused(), &screen->txtname);
}

TEST_F(Items, KnowWhetherSomethingIsAltered)
{
    EXPECT_FALSE(screen->entry.Altered());
    TakeBack(2);
    EXPECT_FALSE(screen->entry.Altered()) << "looking at an item alters nothing";
    Type("Fuel", "20.00");
    EXPECT_FALSE(screen->entry.Altered());
    Type("Fuel", "21");
    EXPECT_TRUE(screen->entry.Altered());
    Type("Fuel", "20");
    screen->Click(screen->cmdadd);
    EXPECT_FALSE(screen->entry.Altered());
    screen->SetFocus(screen->rows);
    screen->Press(Key::Delete);
    EXPECT_TRUE(screen->entry.Altered());
    screen->Press(Key::Undo);
    EXPECT_FALSE(screen->entry.Altered());
    Type("Tea", "");
    EXPECT_TRUE(screen->entry.Altered()) << "a text that is typed and not added";
}

TEST_F(Items, AreCountedAndAddedUpBelow)
{
    EXPECT_EQ(screen->rows.ShowsBelow(), "3 items\t60.00");
    screen->entry.Append({{"Tea", 0.5}});
    EXPECT_EQ(screen->rows.ShowsBelow(), "4 items\t60.50");
    EXPECT_EQ(screen->rows.currentRow(), 4);
}

} // namespace
} // namespace pgbp
