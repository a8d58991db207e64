#include "income/frmReminder.h"

#include "income/FrmHelp.h"
#include "startup/shared_services.h"
#include "support/empty_practice.h"
#include "support/typing.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace pgbp;

namespace {

class Reminder : public testing::Test {
  protected:
    Reminder() : summary(practice.Begin(2023, "06"))
    {
        EXPECT_TRUE(summary.Mnemonic(U'r'));
        form = dynamic_cast<frmReminder*>(practice.run->screens.OnDisplay());
    }

    void Write(const std::string& title, const std::string& note)
    {
        form->Do([&] { form->LV.DoubleClick(0); });
        TypeText(*form, title);
        form->Do([&] { form->SetFocus(form->txtmmo); });
        TypeText(*form, note);
        form->Click(form->cmdsave);
    }
    void OpenFirst()
    {
        form->Do([&] { form->LV.Click(1); });
    }

    EmptyPractice practice;
    frmbusiness& summary;
    frmReminder* form = nullptr;
};

using Titles = std::vector<std::string>;

} // namespace

TEST_F(Reminder, ChangesAndDeletesTheNoteThatWasOpened)
{
    Write("TDS", "one");
    Write("GST", "two");
    OpenFirst();
    form->txthead = "TDS of May";
    form->txtmmo = "changed";
    form->Click(form->cmdhide); // with the frame up it saves
    EXPECT_EQ(form->LV.items(), (Titles{"TDS of May", "GST"}));
    OpenFirst();
    form->txthead = "GST";
    form->Click(form->cmdX);
    EXPECT_EQ(practice.boxes.Take().text, "Item Title already exists......");
    form->Click(form->mnudel); // the note that was opened, not the one whose title was typed
    EXPECT_EQ(form->LV.items(), Titles{"GST"});
}

TEST_F(Reminder, ShowsOneWayOutOfANoteAndKeepsTheLettersOfTheOthers)
{
    const auto seen = [&] {
        std::string captions;
        for (const cmd* button : {&form->cmdsave, &form->mnudel, &form->cmdX, &form->cmdhide})
            if (button->Reachable() && button->inSight)
                captions += button->caption.get() + ' ';
        return captions;
    };
    EXPECT_EQ(seen(), "&Close ");
    form->Do([&] { form->LV.DoubleClick(0); });
    EXPECT_EQ(seen(), "&Save Cancel ");
    TypeText(*form, "TDS");
    EXPECT_TRUE(form->Mnemonic(U'c')); // Close saves
    form->Do([&] { form->LV.Click(1); });
    EXPECT_EQ(seen(), "&Save &Delete &Close ");
    TypeText(*form, "one");
    const auto stops = form->Stops();
    EXPECT_EQ(std::count(stops.begin(), stops.end(), &form->cmdX), 0) << "no stop where nothing is seen";
    EXPECT_TRUE(form->Mnemonic(U'x'));
    EXPECT_EQ(seen(), "&Close ");
    EXPECT_EQ(form->notice.get(), "Reminder TDS saved, 10:30");
    OpenFirst();
    EXPECT_EQ(form->txtmmo.text(), "one");
}

TEST_F(Reminder, EscapeLeavesANoteAsItIs)
{
    Write("TDS", "one\ntwo");
    OpenFirst();
    form->Type(U'!');
    EXPECT_EQ(form->txtmmo.text(), "one\ntwo!") << "a key does not replace the whole note";
    form->Press(Key::Escape);
    EXPECT_FALSE(form->Frame1.visible);
    OpenFirst();
    EXPECT_EQ(form->txtmmo.text(), "one\ntwo");
    form->Press(Key::Escape);
    form->Press(Key::Escape);
    EXPECT_EQ(practice.run->screens.OnDisplay(), &summary);
}

TEST(Help, ShowsTheTextOfATopic)
{
    EmptyPractice practice;
    practice.Tax().Insert("vornhelp", {{"name", "Maximum Deduction ?"}, {"Desc", "Up to the limit."}});
    practice.Begin(2023, "06");
    struct {
        const char* topic;
        const char* text;
    } const rows[] = {
        {"maximum deduction ?", "Up to the limit."},
        {"no such topic", "Nothing to show help"},
    };
    for (const auto& row : rows) {
        practice.run->screens.ShowModal(screens::FrmHelp, {row.topic});
        auto* help = dynamic_cast<FrmHelp*>(practice.run->screens.OnDisplay());
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(help->LblCaption.text(), std::string(row.topic) + " ?");
        EXPECT_EQ(help->txtDesc.text().rfind(row.text, 0), 0U) << row.topic;
        help->Click(help->CmdBack);
    }
}
