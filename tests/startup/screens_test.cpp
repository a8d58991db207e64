#include "startup/screens.h"

#include "controls/buttons.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// Notes what happens to it.
class Traced : public Screen {
  public:
    Traced(pgbp::Run& itsRun, const char* name, std::string& itsTrace) : Screen(itsRun, name, name), trace(itsTrace)
    {
        cmdback.onClick = [this] { run.screens.Return(); };
    }
    ~Traced() override { trace += "-" + name() + " "; }
    void Open(const HelpOpening& opening) const { trace += "open " + name() + opening.topic + " "; }
    void Activate() override { trace += "active " + name() + " "; }
    void Close() override
    {
        if (refuses)
            return;
        name() == "hub" ? run.screens.End() : Screen::Close();
    }

    cmd cmdback{*this, "cmdback", "&Back"};
    bool refuses = false;
    std::string& trace;
};

constexpr ScreenName<HelpOpening> kHub{"hub"};
constexpr ScreenName<HelpOpening> kDetail{"detail"};
constexpr ScreenName<HelpOpening> kNote{"note"};

void RegisterTraced(pgbp::Run& run, std::string& trace)
{
    for (const auto& screen : {kHub, kDetail, kNote})
        run.screens.Register<HelpOpening>(screen, [&trace, screen](pgbp::Run& its, const HelpOpening& opening) {
            auto made = std::make_unique<Traced>(its, screen.text.data(), trace);
            made->Open(opening);
            return made;
        });
}

} // namespace

TEST(ScreensOfARun, HideShowAndReturn)
{
    EmptyPractice practice;
    std::string trace; // outlives the screens, which write to it until the end
    pgbp::Run run({practice.boxes, practice.files, practice.processes, practice.folder.path()});
    RegisterTraced(run, trace);

    run.screens.Show(kHub);
    run.screens.Show(kDetail, {"!"});
    run.screens.ShowModal(kNote, {}, [&] { trace += "closed over detail "; });
    EXPECT_EQ(run.screens.Displayed().size(), 2U) << "the modal screen lies over the one that waits";
    auto* note = run.screens.Find("note");
    note->Click(static_cast<Traced*>(note)->cmdback); // a screen may leave from its own handler
    EXPECT_EQ(run.screens.Find("note"), nullptr);
    run.screens.Return();
    run.screens.Sweep();
    EXPECT_EQ(trace,
              "open hub active hub open detail! active detail open note active note closed over detail active hub "
              "-note -detail ");
    run.screens.End();
    EXPECT_TRUE(run.screens.Ended());
    EXPECT_EQ(run.screens.OnDisplay(), nullptr);
}

TEST(ScreensOfARun, AreClosedByTheCrossFromTheTopDownUntilOneRefuses)
{
    EmptyPractice practice;
    std::string trace;
    pgbp::Run run({practice.boxes, practice.files, practice.processes, practice.folder.path()});
    RegisterTraced(run, trace);
    run.screens.Show(kHub);
    run.screens.Show(kDetail);
    run.screens.ShowModal(kNote);
    auto* detail = static_cast<Traced*>(run.screens.Find("detail"));
    detail->refuses = true;
    run.screens.PressCross();
    EXPECT_EQ(run.screens.OnDisplay(), detail);
    EXPECT_FALSE(run.screens.Ended());
    detail->refuses = false;
    trace.clear();
    run.screens.PressCross();
    EXPECT_EQ(trace, "active hub ");
    EXPECT_TRUE(run.screens.Ended());
    run.screens.PressCross(); // a second click on the cross finds nothing left
}
