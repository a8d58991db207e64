#pragma once

#include "controls/message_box.h"
#include "services/name_lock.h"
#include "services/processes.h"
#include "startup/hand_over.h"
#include "startup/screens.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace pgbp {

class DailyCheck;

/// What a run needs from the program it runs in: a window, the driver or a test.
struct Host {
    MessageBoxes& boxes;
    FileDialogs& files;
    Processes& processes;
    std::filesystem::path programFolder;               ///< settings, templates and sibling programs stand here
    std::function<DateTime()> now = Now;               ///< the clock
    std::function<void(bool)> hourglass = [](bool) {}; ///< the pointer while a sibling program runs
    bool checksFiles = false;                          ///< holds the data files against themselves once a day
};

/// A line of business that was deleted, and the way back.
struct Deletion {
    std::string name;                ///< the line's descriptions
    std::function<void()> bringBack; ///< stores it anew with all its rows, or throws and stores nothing
};

/// One run of the module: one assessee, one assessment year. All state of the run hangs here; the variables keep the
/// names under which the suite hands them over.
class Run : public HandOver {
  public:
    explicit Run(Host programHost) : host(std::move(programHost)), screens(*this) {}
    Run(const Run&) = delete;

    const Host host;
    const std::string title = "Vorn"; ///< the program's name in title bars and message boxes

    std::filesystem::path GlDrive = "C:"; ///< folder of the hand-over file
    bool IsSqlStore = false;              ///< `company` and `balance` live on a database server
    bool UseNativeClient = false;         ///< which of the two server connection strings is used
    std::optional<bool> OVServerAlive;    ///< the accounts product's database server answers; nothing: not asked yet
    bool readOnly = false;                ///< a data file can only be read: nothing is stored in this run
    double GlITR = 0;                     ///< return form of the assessee-year; 0 when unknown
    std::string clientName;               ///< name of the assessee; empty when the suite's list has none
    bool FormCheckDone = false;           ///< the statements are in Ind AS
    int GlBusinessKind = 0;               ///< line of the summary opened last

    std::optional<Deletion> deletion; ///< the last one; none once something was saved behind it
    Event<> deletingLine; ///< a line goes: sums of lines on a screen are loaded afresh, whatever comes of it

    Connection company;
    Connection balance;
    Connection tax;
    Connection qeltemp;
    Connection misc;
    Connection export1;
    Connection export2;
    std::shared_ptr<DailyCheck> dailyCheck; ///< none where nothing is checked, or damage was told
    Recordset rights;                       ///< rows of `user_comp` for the user's category; open to the end of the run

    bool knowsNoPanCheck = false; ///< the preparer was told that the program that checks a PAN is missing

    NameLock assesseeYear; ///< held as long as the run lives, so that a second run on it can be told so

    Screens screens;

    /// The assessment year as the number that every year rule compares: 2023 for "2023-24".
    int Year() const;
    /// `Glcode` without blanks around it, as all tables hold it.
    std::string Code() const;
    /// "Income of minor 1" in a child's run; empty in the assessee's own.
    std::string IncomeOf() const;

    /// Shows a message; `kind` is what stands behind the title: "Information", "Question" ...
    Answer Show(const std::string& text, const std::string& kind, Icon icon, Buttons buttons = Buttons::Ok,
                Answer byDefault = Answer::Ok) const;
    /// The message with an information icon.
    void Inform(const std::string& text) const;

    /// Runs an action of the preparer; what it throws is told and logged. All that an action sets off is one action,
    /// whichever screens it passes through: it waits once for a locked file and tells its first error alone.
    void Guard(const std::function<void()>& action);
    /// Adds the technical words of an error to the log in the client folder.
    void Log(const std::exception& error) const;

  private:
    void EndAction();

    int actions_ = 0; ///< that run now, one within the other
    bool told_ = false;
};

} // namespace pgbp
