#include "controls/text_controls.h"

#include "controls/form.h"
#include "controls/frame.h"
#include "services/format.h"
#include "support/test_boxes.h"
#include "support/typing.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// One field of each kind of text box, in two rows.
class Fields : public Form {
  public:
    explicit Fields(MessageBoxes& boxes) : Form("Fields", "Fields", boxes, "Vorn")
    {
        framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&walking}}, {{&amount}}, {{&plain}}, {{&still}}}});
        SetFocus(walking);
    }
    Frame framain{*this, "framain", "", FramePlace::Main};
    txt walking{*this, "walking"};
    txtn amount{*this, "amount"};
    Txt1 plain{*this, "plain"};
    Txtn1 still{*this, "still"};
};

class TextBoxes : public testing::Test {
  protected:
    TestBoxes boxes;
    Fields form{boxes};
};

} // namespace

TEST_F(TextBoxes, FilterTheKeysOfAnAmount)
{
    constexpr int kWhole = -1; // the whole text is selected
    struct {
        const char* what;
        const char* text;
        int caret;
        const char* typed;
        int deci;
        const char* result;
    } const rows[] = {
        {"digits replace the selection", "125.50", kWhole, "7", 2, "7"},
        {"letters and signs are swallowed", "", 0, "1a,/:+ 2", 2, "12"},
        {"one point", "", 0, "1.2.3", 2, "1.23"},
        {"a point over the whole selection", "12.34", kWhole, ".5", 2, ".5"},
        {"no point without places", "", 0, "1.5", 0, "15"},
        {"places are full behind the point", "12.34", 5, "5", 2, "12.34"},
        {"digits before the point are free", "12.34", 1, "9", 2, "192.34"},
        {"three places", "", 0, "1.2345", 3, "1.234"},
        {"fifteen digits", "", 0, "12345678901234567", 2, "123456789012345"},
        {"minus over a selection", "125.50", kWhole, "-", 2, "-"},
        {"minus in an empty field", "", 0, "-5", 2, "-5"},
        {"minus turns the sign", "125.50", 2, "-", 2, "-125.5"},
        {"minus turns it back", "-125.5", 0, "-", 2, "125.5"},
        {"minus on zero", "0.00", 2, "-", 2, "-"},
        {"minus on a bare point", ".1", 2, "-", 2, "-0.1"},
        {"minus on a large amount", "123456789012345", 0, "-", 2, "-123456789012345"},
        {"minus twice", "", 0, "--", 2, "-"},
    };
    for (const auto& row : rows)
        for (TextBox* field : {static_cast<TextBox*>(&form.amount), static_cast<TextBox*>(&form.still)}) {
            form.SetFocus(*field);
            static_cast<NumberBox*>(field)->deci = row.deci;
            field->Set(row.text);
            if (row.caret == kWhole)
                field->SelectAll();
            else
                field->Select(row.caret, 0);
            TypeText(form, row.typed);
            EXPECT_EQ(field->text(), row.result) << row.what << ", " << field->name();
        }
}

TEST_F(TextBoxes, WorkOutALineOfArithmetic)
{
    struct {
        const char* what;
        const char* typed; ///< "<" is Backspace
        Key key;
        const char* line; ///< the open line afterwards; none when it is closed
        const char* result;
        int deci = 2;
    } const rows[] = {
        {"Enter takes the result", "=1200+18%", Key::Enter, nullptr, "1416.00"},
        {"rounded to the places of the field", "=10/4", Key::Enter, nullptr, "3", 0},
        {"negative", "=3*-450", Key::Enter, nullptr, "-1350.00"},
        {"Escape leaves the text", "=3*450", Key::Escape, nullptr, "7.50"},
        {"Backspace erases", "=3*45<<50", Key::Enter, nullptr, "150.00"},
        {"no result, nothing happens", "=3*", Key::Enter, "3* (not finished)", "7.50"},
        {"division by zero", "=3/0", Key::Enter, "3/0 (division by zero)", "7.50"},
        {"too long for the field", "=99999999*99", Key::Enter, "99999999*99 (longer than the field)", "7.50"},
        {"an empty line", "=", Key::Enter, nullptr, "7.50"},
        {"the second = is none", "==1+1", Key::Home, "1+1 = 2.00", "7.50"},
    };
    for (const auto& row : rows)
        for (NumberBox* field : {static_cast<NumberBox*>(&form.amount), static_cast<NumberBox*>(&form.still)}) {
            SCOPED_TRACE(row.what + (" in " + field->name()));
            field->deci = row.deci;
            field->maxLength = 12;
            field->Set("7.50");
            form.SetFocus(*field);
            int changes = 0;
            field->onChange = [&] { ++changes; };
            for (const char key : std::string_view(row.typed))
                key == '<' ? form.Press(Key::Backspace) : form.Type(static_cast<char32_t>(key));
            EXPECT_EQ(changes, 0) << "nothing is typed into the field itself";
            form.Press(row.key);
            EXPECT_EQ(form.focused(), field);
            EXPECT_EQ(field->text(), row.result);
            EXPECT_EQ(changes, field->text() == "7.50" ? 0 : 1);
            EXPECT_EQ(field->sum() ? field->sum()->Shows() : "", row.line ? row.line : "");
            form.Press(Key::Escape);
            field->onChange = nullptr; // the count ends with the round
        }
}

TEST_F(TextBoxes, LeaveAFieldWithTheResultOfItsLineOrNotAtAll)
{
    form.SetFocus(form.amount);
    TypeText(form, "=3*");
    form.Press(Key::Tab);
    EXPECT_EQ(form.focused(), &form.amount);
    EXPECT_EQ(form.notice.get(), "The sum in this field: not finished. Escape leaves the amount as it was.");
    TypeText(form, "450");
    form.Press(Key::Down);
    EXPECT_EQ(form.focused(), &form.plain);
    EXPECT_EQ(form.amount.text(), "1350.00");
    EXPECT_EQ(form.notice.get(), "");
    form.amount.locked = true;
    form.SetFocus(form.amount);
    TypeText(form, "=");
    EXPECT_FALSE(form.amount.sum());
}

TEST_F(TextBoxes, OfferWhatWasUsedBefore)
{
    form.walking.SetOffers({"Rent of godown", "Rent", "Repairs", "Salary"});
    struct {
        const char* what;
        const char* typed;
        std::vector<Key> keys;
        std::vector<std::string> offered; ///< before the keys
        const char* text;
        const Control& focused;
    } const rows[] = {
        {"what begins so, in any case", "reN", {}, {"Rent of godown", "Rent"}, "reN", form.walking},
        {"the text itself is none to choose", "Rent", {}, {"Rent of godown"}, "Rent", form.walking},
        {"nothing begins so", "x", {Key::Down}, {}, "x", form.amount},
        {"Enter takes the marked one",
         "re",
         {Key::Down, Key::Down, Key::Enter},
         {"Rent of godown", "Rent", "Repairs"},
         "Rent",
         form.walking},
        {"Tab takes it and goes on", "s", {Key::Down, Key::Tab}, {"Salary"}, "Salary", form.amount},
        {"Enter without a mark keeps what is typed",
         "re",
         {Key::Enter},
         {"Rent of godown", "Rent", "Repairs"},
         "re",
         form.amount},
        {"Up leads back into the field", "s", {Key::Down, Key::Up, Key::Enter}, {"Salary"}, "s", form.amount},
        {"Escape closes them", "s", {Key::Escape, Key::Down}, {"Salary"}, "s", form.amount},
        {"the last stays", "s", {Key::Down, Key::Down, Key::Enter}, {"Salary"}, "Salary", form.walking},
        {"erased to nothing", "s", {Key::Backspace, Key::Down}, {"Salary"}, "", form.amount},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        form.SetFocus(form.amount);
        form.walking = "Rent"; // by program: nothing is offered
        form.SetFocus(form.walking);
        EXPECT_FALSE(form.walking.offers().IsOpen());
        TypeText(form, row.typed);
        EXPECT_EQ(form.walking.offers().shown(), row.offered);
        for (const Key key : row.keys)
            form.Press(key);
        EXPECT_EQ(form.walking.text(), row.text);
        EXPECT_EQ(form.focused(), &row.focused);
        EXPECT_TRUE(row.keys.empty() || !form.walking.offers().IsOpen());
    }
}

TEST_F(TextBoxes, OfferByWordsWhatHasThemInAnyOrder)
{
    const std::string salaries = "22i Salaries and wages", direct = "9ii Direct Expenses: Power and fuel",
                      indirect = "1Ei Indirect wages";
    form.walking.SetOffers({salaries, direct, indirect}, OfferMatch::Words);
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"wag SAL", {salaries}},     {"direct", {direct}}, {"22i", {salaries}},
        {"w", {salaries, indirect}}, {"age", {}},          {"fuel direct", {direct}},
    };
    form.SetFocus(form.walking);
    for (const auto& [typed, offered] : rows) {
        form.walking.SelectAll();
        TypeText(form, typed);
        EXPECT_EQ(form.walking.offers().shown(), offered) << typed;
    }
}

TEST_F(TextBoxes, OfferOnlyWhatTheFieldTakes)
{
    form.walking.SetOffers({"Rent of godown", "O'Neil"});
    form.walking.onKeyPress = DropQuotes;
    form.walking.maxLength = 6;
    form.SetFocus(form.walking);
    form.walking.OpenOffers();
    EXPECT_EQ(form.walking.offers().shown().size(), 2U);
    form.walking.TakeOffer(0);
    EXPECT_EQ(form.walking.text(), "");
    EXPECT_TRUE(form.notice.get().starts_with("Not taken: "));
    form.walking.OpenOffers();
    form.walking.TakeOffer(1);
    EXPECT_EQ(form.walking.text(), "ONeil");
    form.walking.locked = true;
    form.walking.OpenOffers();
    EXPECT_FALSE(form.walking.offers().IsOpen());
    form.walking.SetOffers(std::vector<std::string>(100, "Rent"));
    form.walking.locked = false;
    form.walking.OpenOffers();
    EXPECT_EQ(form.walking.offers().shown().size(), static_cast<std::size_t>(Offers::kMost));
}

TEST_F(TextBoxes, WalkWithTheirKeys)
{
    struct {
        Control& from;
        Key key;
        Control& to;
    } const rows[] = {
        {form.walking, Key::Enter, form.amount}, {form.walking, Key::Down, form.amount},
        {form.amount, Key::Up, form.walking},    {form.amount, Key::Enter, form.plain},
        {form.amount, Key::Down, form.plain},    {form.walking, Key::Up, form.still}, // round
        {form.still, Key::Up, form.still},       {form.plain, Key::Down, form.plain},
        {form.still, Key::Enter, form.still}, // the still amount stays
        {form.plain, Key::Tab, form.still},      {form.plain, Key::BackTab, form.amount},
    };
    for (const auto& row : rows) {
        form.SetFocus(row.from);
        form.Press(row.key);
        EXPECT_EQ(form.focused(), &row.to) << row.from.name();
    }
}

TEST_F(TextBoxes, EditByCharactersOfAnyScript)
{
    form.walking = "\xE0\xA4\x86\xE0\xA4\xB6x";
    form.walking.Select(2, 0);
    TypeText(form, "y");
    form.Press(Key::Left);
    form.Press(Key::Backspace);
    EXPECT_EQ(form.walking.text(), "\xE0\xA4\x86yx");
    form.Press(Key::End);
    form.Press(Key::Delete);
    EXPECT_EQ(form.walking.text(), "\xE0\xA4\x86yx");
    form.Press(Key::Home);
    form.Press(Key::Delete);
    EXPECT_EQ(form.walking.text(), "yx");
}

TEST_F(TextBoxes, RefuseWhatIsTooLongOrLocked)
{
    form.plain.maxLength = 3;
    form.SetFocus(form.plain);
    TypeText(form, "abcd");
    EXPECT_EQ(form.plain.text(), "abc");
    form.plain.locked = true;
    form.Press(Key::Backspace);
    TypeText(form, "x");
    EXPECT_EQ(form.plain.text(), "abc");
}

TEST_F(TextBoxes, LetTheScreenLookAtTheKeyFirst)
{
    form.walking.onKeyPress = DropQuotes;
    TypeText(form, "O'Brien \"&\" Co");
    EXPECT_EQ(form.walking.text(), "OBrien & Co");
    form.amount.onKeyPress = [](char32_t key) { return key == U'k' ? U'1' : key; };
    form.SetFocus(form.amount);
    TypeText(form, "k2");
    EXPECT_EQ(form.amount.text(), "12");
}

TEST_F(TextBoxes, RaiseTheChangeByTypingAndByProgramUnlessToldNot)
{
    int changes = 0;
    form.amount.onChange = [&] { ++changes; };
    form.amount = "5";
    form.amount = "5"; // the same text is no change
    form.SetFocus(form.amount);
    TypeText(form, "6");
    form.amount.Set("7", Notify::No);
    EXPECT_EQ(changes, 2);
    form.amount = "-";
    EXPECT_EQ(Val(form.amount), 0);
}
