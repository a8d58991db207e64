#include "support/failing_store.h"

#include "records/deletion.h"
#include "services/format.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <functional>

using namespace pgbp;

namespace {

/// A preparer's way through the summary: what is stored before, and what is done between the opening and Back.
struct Story {
    const char* name;
    const char* status;
    bool byHand; ///< the program does not calculate the remuneration
    std::vector<std::function<void(EmptyPractice&, frmbusiness&)>> deeds;
};

void StoreFirm(EmptyPractice& practice, bool byHand)
{
    practice.Line("1", {{"SNO", 3}, {"NET", 500000}});
    practice.Detail("PARTREMU", {{"SNO", 3}, {"amt1", 900000}});
    practice.Detail("LESSREMU", {{"amt1", 1234}, {"name1", "Remuneration to partners"}});
    practice.Company().Insert("setup", {{"code", practice.handOver.Glcode}, {"auto_rem", byHand}});
    practice.Item("Fast2018", {{"name3", "0"}});
    practice.Note("NEWPL", {{"amt2", 77}});
    practice.Note("BUSI", {{"amt14", -1}});
}

/// The screen of the line; none where the store did not let it open.
Screen* OpenTheLine(EmptyPractice& practice, frmbusiness& form)
{
    form.Click(form.cmd1);
    if (form.lines.fra1.visible)
        form.Press(Key::Enter);
    Screen* line = practice.run->screens.OnDisplay();
    return line == &form ? nullptr : line;
}

/// A line is opened, stored with another income and other partners, and left.
void ChangeALine(EmptyPractice& practice, frmbusiness& form)
{
    if (!OpenTheLine(practice, form))
        return;
    practice.Company().Execute("update {business} set net = 800000");
    practice.Company().Execute("delete from {business1} where [Type] = 'PARTINTT'");
    practice.Detail("PARTINTT", {{"SNO", 3}, {"amt1", 70000}, {"amt3", 60000}});
    practice.run->screens.Return();
}

/// A line is deleted; where the store refuses that, the preparer goes back.
void DeleteALine(EmptyPractice& practice, frmbusiness& form)
{
    Screen* line = OpenTheLine(practice, form);
    if (!line)
        return;
    line->Do([&] {
        DeleteLine(*practice.run, kNormal, 3);
        practice.run->screens.Return();
    });
    if (practice.run->screens.OnDisplay() == line)
        line->Do([&] { practice.run->screens.Return(); });
}

void BringTheLineBack(EmptyPractice&, frmbusiness& form) { form.Press(Key::Undo); }

void TypeBoth(EmptyPractice&, frmbusiness& form)
{
    for (const auto& [field, amount] :
         {std::pair(&form.partners.txtlesspart1, "20000"), {&form.partners.txtlesspart2, "45000"}}) {
        form.Do([&, to = field] { form.SetFocus(*to); });
        if (form.focused() == field)
            TypeText(form, amount);
        form.Press(Key::Enter);
    }
}

void Calculate(EmptyPractice&, frmbusiness& form) { form.Click(form.partners.cmdmax); }

void LookAtTheReminder(EmptyPractice& practice, frmbusiness& form)
{
    form.Click(form.cmdr);
    if (practice.run->screens.OnDisplay() != &form)
        practice.run->screens.OnDisplay()->Press(Key::Escape);
}

const Story kStories[] = {
    {"calculated, then changed", "06", false, {ChangeALine, LookAtTheReminder}},
    {"typed and calculated by hand", "05", true, {TypeBoth, LookAtTheReminder, Calculate}},
    {"deleted, calculated and back", "06", false, {DeleteALine, BringTheLineBack}},
};

std::string Figures(const frmbusiness& form)
{
    std::string figures;
    for (const TextControl* figure : std::initializer_list<const TextControl*>{
             &form.lbl1, &form.lbl2, &form.lbl3, &form.lbl4, &form.lbl5, &form.Txt6, &form.Txt7, &form.lbllic,
             &form.lbltotal, &form.partners.txtlesspart1, &form.partners.txtlesspart2, &form.lblinc, &form.lblloss,
             &form.lbllast})
        figures += figure->text() + ' ';
    return figures;
}

/// One telling of a story with a store that refuses.
class Telling {
  public:
    Telling(const Story& story, Refusal itsRefusal) : refusal(itsRefusal)
    {
        StoreFirm(practice_, story.byHand);
        practice_.screensKnown = [this](pgbp::Run& run) {
            run.screens.Register<NoOpening>(screens::frmbusiness, [this](pgbp::Run& its, const NoOpening&) {
                LetFail(its, refusal);
                return std::make_unique<frmbusiness>(its);
            });
        };
        frmbusiness& form = practice_.Begin(2023, story.status);
        for (const auto& deed : story.deeds) {
            EndOfAction();
            deed(practice_, form);
        }
        constexpr int kTries = 4; // the focus may have to be got out of a field first
        for (int tries = 0; tries < kTries && !practice_.run->screens.Ended(); ++tries) {
            EndOfAction();
            form.Click(form.CmdBack);
        }
        ended = practice_.run->screens.Ended();
        shown = Figures(form);
        writes = refusal.writes;
    }

    std::string Stored() const
    {
        std::string head;
        for (int column = 1; column <= 14; ++column)
            head += Amount(practice_.HeadOfIncome(("amt" + std::to_string(column)).c_str())) + ' ';
        return head;
    }

    /// What a run that begins now, and is not disturbed, shows.
    std::string OpenedAgain()
    {
        refusal.write = 0;
        practice_.Start();
        return Figures(practice_.Summary());
    }

    Refusal refusal;
    bool ended = false;
    int writes = 0; ///< from the opening to the end
    std::string shown;

  private:
    /// A lock that lasted as long as an action is gone at its end.
    void EndOfAction()
    {
        if (refusal.HasBegun())
            refusal.write = 0;
        practice_.boxes.answers = {Answer::No}; // to leave without a head of income
    }

    EmptyPractice practice_;
};

} // namespace

// Whichever write fails, and for how long: the head of income that is stored in the end is the one on the screen, and
// the one that the stored rows give.
TEST(FailingStore, NeverMakesAnotherHeadOfIncome)
{
    constexpr Refusal kRefusals[] = {{.once = true, .afterCommit = true}, {.once = false}};
    for (const Story& story : kStories)
        for (Refusal refusal : kRefusals)
            for (bool reached = true; reached;) {
                ++refusal.write;
                SCOPED_TRACE(std::string(story.name) + ", write " + std::to_string(refusal.write) +
                             (refusal.once ? "" : " to the end of the action"));
                Telling telling(story, refusal);
                ASSERT_TRUE(telling.ended);
                const auto stored = telling.Stored();
                EXPECT_EQ(stored, telling.shown);
                EXPECT_EQ(stored, telling.OpenedAgain());
                reached = telling.writes >= refusal.write;
            }
}
