#pragma once

#include "module/module.h"
#include "startup/sub_main.h"
#include "store/files.h"
#include "support/temporary_folder.h"
#include "support/test_boxes.h"

#include <memory>
#include <string>

namespace pgbp {

/// Sibling programs that only note what was started.
class TestProcesses : public Processes {
  public:
    int RunAndWait(const std::filesystem::path& program) override
    {
        started.push_back(program.filename().string());
        if (whileRunning)
            whileRunning();
        return 0;
    }
    void Start(const std::filesystem::path& program) override { started.push_back(program.filename().string()); }

    std::vector<std::string> started;
    std::function<void()> whileRunning;
};

class NoFiles : public FileDialogs {
  public:
    std::optional<std::filesystem::path> AskOpen(const std::string&, const std::string&) override { return {}; }
    std::optional<std::filesystem::path> AskSave(const std::string&, const std::string&) override { return {}; }
};

/// A practice folder with all data files and no rows, and a run on it.
class EmptyPractice {
  public:
    EmptyPractice()
    {
        std::filesystem::copy(Template(), folder.path(), std::filesystem::copy_options::recursive);
        folder.Write("Drive.txt", (folder.path() / "handover").string());
        handOver.Glcode = "A0001r2023-24";
        handOver.Glyear = "2023-24";
        handOver.Glstatus = "01";
        handOver.GlPrCode = "A0001r2022-23";
        handOver.GlServer = (folder.path() / "server").string();
        handOver.GlClient = (folder.path() / "client").string();
    }

    /// Writes the hand-over record and starts a run; rows go in before, through `Company()` and its kin.
    Run& Start()
    {
        WriteHandOver(File("handover/VornTemp.mdb"), handOver);
        return StartWithFilesAsTheyAre();
    }

    Run& StartWithFilesAsTheyAre()
    {
        run = std::make_unique<Run>(Host{.boxes = boxes,
                                         .files = files,
                                         .processes = processes,
                                         .programFolder = folder.path(),
                                         .now = [this] { return now; },
                                         .checksFiles = checksFiles});
        RegisterScreens(*run);
        if (screensKnown)
            screensKnown(*run);
        opened = SubMain(*run, why);
        return *run;
    }

    Connection File(const std::string& name) const { return OpenFile({folder.path() / name, {}}); }
    Connection Company() const { return File("server/company.mdb"); }
    Connection Balance() const { return File("server/balance.mdb"); }
    Connection Tax() const { return File("server/tax.mdb"); }

    TemporaryFolder folder;
    HandOver handOver;
    TestBoxes boxes;
    NoFiles files;
    TestProcesses processes;
    DateTime now{2023, 7, 15, 10, 30, 0};
    bool checksFiles = false;
    std::unique_ptr<Run> run;
    std::function<void(Run&)> screensKnown; ///< before the run opens its files: to put another screen in place of one
    std::string why;
    bool opened = false;

  private:
    /// Made once a test program; each practice copies it.
    static const std::filesystem::path& Template()
    {
        static const TemporaryFolder made;
        static const bool done = [] {
            for (const char* sub : {"handover", "server", "client/data"})
                std::filesystem::create_directories(made.path() / sub);
            CreateEmbeddedFile(made.path() / "VornTemp.mdb", "VornTemp");
            CreateEmbeddedFile(made.path() / "handover/VornTemp.mdb", "VornTemp");
            CreateEmbeddedFile(made.path() / "client/data/qeltemp.mdb", "qeltemp");
            for (const char* name : {"company", "balance", "tax", "misc", "export1", "export2"})
                CreateEmbeddedFile(made.path() / "server" / (std::string(name) + ".mdb"), name);
            return true;
        }();
        static_cast<void>(done);
        return made.path();
    }
};

} // namespace pgbp
