#include "load/preparer.h"

#include "computation/frmbusinesscal.h"
#include "income/frmbusiness.h"
#include "module/module.h"
#include "services/text.h"
#include "startup/sub_main.h"
#include "store/files.h"
#include "support/empty_practice.h"

#include <ctime>
#include <thread>

namespace pgbp {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kTries = 6;          ///< of one save, before the preparer gives up
constexpr int kMostLines = 6;      ///< of a client
constexpr unsigned kAddsOneIn = 8; ///< a new line, of so many changes
constexpr int kFiguresOfEach = 100000;

double ProcessorSeconds()
{
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec);
}

/// Keeps what is told, and answers: what was typed may go, a head of income is to be written.
class ToldBoxes : public MessageBoxes {
  public:
    Answer Show(const Message& message) override
    {
        told += (told.empty() ? "" : " | ") + Replace(Replace(message.text, "\n", " "), "\t", " ");
        if (message.buttons == Buttons::Ok)
            return Answer::Ok;
        const bool keepsHead = message.text.find("leave without writing it anew") != std::string::npos;
        return keepsHead && !mayLeave ? Answer::No : Answer::Yes;
    }

    std::string told;
    bool mayLeave = false; ///< without writing the head of income
};

/// One line of the journal: a step from its beginning to when the preparer was told its outcome.
class Step {
  public:
    explicit Step(const char* what) : what_(what) {}

    Clock::time_point End() { return end_ = Clock::now(); }
    void Write(std::ostream& journal, const std::string& code, const std::string& line, const std::string& value,
               std::string told)
    {
        if (end_ == Clock::time_point())
            End();
        const bool isUnknown = told.find("Look whether it is stored") != std::string::npos;
        const char* outcome = told.empty() ? "done" : isUnknown ? "unknown" : "refused";
        journal << what_ << '\t' << begin_.time_since_epoch().count() << '\t' << end_.time_since_epoch().count() << '\t'
                << code << '\t' << line << '\t' << value << '\t' << outcome << '\t' << ProcessorSeconds() - processor_
                << '\t' << told << '\n';
    }

  private:
    const char* what_;
    const double processor_ = ProcessorSeconds();
    const Clock::time_point begin_ = Clock::now();
    Clock::time_point end_{};
};

} // namespace

/// One client from the hand-over to the end of the run.
class Preparer::Client {
  public:
    Client(Preparer& preparer, const std::string& code) : preparer_(preparer), code_(code) { RegisterScreens(run_); }

    void Work()
    {
        if (!Open())
            return;
        preparer_.Pause(1);
        if (frmbusinesscal* line = OpenLine()) {
            preparer_.Pause(2); // what he types takes longest
            Change(*line);
            preparer_.Pause(1);
        }
        Leave();
    }

  private:
    bool Open()
    {
        Step step("open");
        std::string why;
        try {
            SubMain(run_, why);
        } catch (const std::exception& error) {
            why = error.what();
        }
        if (why.empty())
            why = std::exchange(boxes_.told, "");
        step.Write(preparer_.journal_, code_, "", "", why);
        return why.empty();
    }

    frmbusiness& Summary() { return static_cast<frmbusiness&>(*run_.screens.Find("frmbusiness")); }
    frmbusinesscal* Line() { return dynamic_cast<frmbusinesscal*>(run_.screens.OnDisplay()); }

    /// A line out of the list, or a new one; none where it could not be opened.
    frmbusinesscal* OpenLine()
    {
        frmbusiness& summary = Summary();
        Step step("line");
        summary.Click(summary.cmd1);
        Grid& list = summary.lines.DBGrid1;
        const bool adds = list.Rows() < kMostLines && preparer_.random_() % kAddsOneIn == 0;
        if (summary.Card() && adds)
            summary.Click(summary.lines.CmdAdd);
        else if (summary.Card())
            summary.Do([&] { list.DoubleClick(1 + static_cast<int>(preparer_.random_() % list.Rows())); });
        frmbusinesscal* line = Line();
        const std::string name = line && !adds ? line->header.txtdescr1.text() : "";
        step.Write(preparer_.journal_, code_, name, line && !adds ? Value(Val(line->TxtOth)).Text() : "",
                   std::exchange(boxes_.told, ""));
        if (!line && summary.Card())
            summary.Click(summary.lines.cmdback1);
        return line;
    }

    static void Type(Form& form, TextBox& field, const std::string& text)
    {
        form.Do([&] { form.SetFocus(field); });
        if (form.focused() != &field)
            throw std::runtime_error(field.name() + " takes no focus");
        field.SelectAll();
        TypeText(form, text);
    }

    void Change(frmbusinesscal& line)
    {
        const std::string figure =
            std::to_string(preparer_.work_.number * kFiguresOfEach + ++preparer_.figures_ % kFiguresOfEach);
        if (!line.header.IsEdit()) {
            Type(line, line.header.txtdescr1, "Added " + figure);
            Type(line, line.txtlessdep, "1"); // the other income alone is nothing to save
        }
        Type(line, line.TxtOth, figure);
        const std::string name = line.header.txtdescr1.text();
        for (int tries = 0; Line() == &line; ++tries) {
            if (tries == kTries) {
                line.Click(line.header.CmdBack);
                boxes_.told.clear();
                return;
            }
            Save(line, name, figure);
        }
    }

    /// Told is what the status line says as soon as it is stored; what the summary shows behind it comes later.
    void Save(frmbusinesscal& line, const std::string& name, const std::string& figure)
    {
        Step step("save");
        Step back("saveback");
        bool saved = false;
        const int listener = line.changed.Add([&] {
            if (!saved && line.notice.get().find(" saved, ") != std::string::npos) {
                saved = true;
                step.End();
            }
        });
        line.Click(line.header.CmdSave);
        line.changed.Remove(listener);
        const std::string told = std::exchange(boxes_.told, "");
        step.Write(preparer_.journal_, code_, name, figure, saved ? "" : told.empty() ? "nothing was told" : told);
        if (saved)
            back.Write(preparer_.journal_, code_, name, "", told);
        else
            preparer_.Pause(0.5);
    }

    void Leave()
    {
        for (int tries = 1; run_.screens.OnDisplay(); ++tries) {
            boxes_.mayLeave = tries >= kTries;
            Step step("leave");
            frmbusiness& summary = Summary();
            summary.Click(summary.CmdBack);
            const std::string head = run_.screens.OnDisplay() ? "" : Value(Val(summary.lbl1)).Text();
            step.Write(preparer_.journal_, code_, "", head, std::exchange(boxes_.told, ""));
            if (run_.screens.OnDisplay())
                preparer_.Pause(0.5);
        }
    }

    Preparer& preparer_;
    const std::string code_;
    ToldBoxes boxes_;
    TestFiles files_;
    TestProcesses processes_;
    Run run_{{.boxes = boxes_, .files = files_, .processes = processes_, .programFolder = preparer_.work_.station}};
};

Preparer::Preparer(Work work) : work_(std::move(work)), random_(static_cast<unsigned>(work_.number))
{
    SetUpStation();
    journal_.open(work_.station / "journal");
    journal_.precision(6);
    journal_ << std::fixed;
}

/// The settings of the practice, a hand-over file and a working file of its own.
void Preparer::SetUpStation() const
{
    std::filesystem::remove_all(work_.station);
    std::filesystem::create_directories(work_.station / "handover");
    std::filesystem::create_directories(work_.station / "client/data");
    for (const char* name : {"Settings.ini", "VornServer.ini", "QelCtrl.ini"})
        if (std::filesystem::exists(work_.practice / name))
            std::filesystem::copy_file(work_.practice / name, work_.station / name);
    std::ofstream(work_.station / "Drive.txt") << (work_.station / "handover").string() << '\n';
    CreateEmbeddedFile(work_.station / "handover/VornTemp.mdb", "VornTemp");
    CreateEmbeddedFile(work_.station / "client/data/qeltemp.mdb", "qeltemp");
}

void Preparer::HandOverClient(const std::string& code) const
{
    HandOver record;
    record.Glcode = code;
    record.Glyear = code.substr(code.find('r') + 1);
    record.Glstatus = "05";
    record.GlServer = PracticeFolders{work_.practice}.Server();
    record.GlClient = (work_.station / "client").string();
    WriteHandOver(OpenFile({work_.station / "handover/VornTemp.mdb", {}}), record);
}

void Preparer::Pause(double share)
{
    const double seconds = share * work_.pause * std::uniform_real_distribution(0.5, 1.5)(random_);
    const auto until =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    if (seconds > 0)
        std::this_thread::sleep_until(std::min(until, end_));
}

void Preparer::WorkUntil(std::chrono::steady_clock::time_point end)
{
    end_ = end;
    Pause(std::uniform_real_distribution(0.0, 4.0)(random_)); // they do not all begin at once
    while (Clock::now() < end_) {
        const std::string& code = work_.codes[random_() % work_.codes.size()];
        HandOverClient(code);
        Client(*this, code).Work();
        Pause(1);
    }
    journal_.flush();
}

} // namespace pgbp
