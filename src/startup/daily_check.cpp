#include "startup/daily_check.h"

#include "services/ini_file.h"
#include "startup/run.h"
#include "store/connection.h"
#include "store/content_check.h"

namespace pgbp {
namespace {

namespace fs = std::filesystem;

/// The day on which each file was found whole, with its path, since several practices may share a client folder.
class Notes {
  public:
    Notes(const fs::path& file, std::string today) : file_{file}, today_(std::move(today)) {}

    bool Tell(const fs::path& file) const { return file_.GetValue(kSection, Key(file)) == Entry(file); }
    void Add(const fs::path& file) const { file_.WriteValue(kSection, Key(file), Entry(file)); }

  private:
    static constexpr std::string_view kSection = "CHECKED";
    static std::string Key(const fs::path& file) { return file.stem().string(); }
    std::string Entry(const fs::path& file) const { return today_ + ' ' + file.string(); }

    const clsIniFile file_;
    const std::string today_;
};

/// Without a note the file is checked again at the next start, so nothing that goes wrong here needs to be told.
std::optional<Damage> Check(const std::vector<fs::path>& files, const Notes& notes, const std::stop_token& stop)
{
    for (const fs::path& file : files)
        try {
            if (auto words = DamageOf(file, stop))
                return Damage{file, std::move(*words)};
            notes.Add(file);
        } catch (const std::runtime_error&) {
            continue;
        }
    return std::nullopt;
}

bool IsNoted(const Notes& notes, const fs::path& file)
{
    try {
        return notes.Tell(file);
    } catch (const std::runtime_error&) {
        return false;
    }
}

} // namespace

DailyCheck::DailyCheck(std::vector<fs::path> files, const fs::path& notesFile, const std::string& today)
{
    const Notes notes(notesFile, today);
    std::erase_if(files, [&](const fs::path& file) { return IsNoted(notes, file); });
    if (!files.empty())
        found_ = std::async(std::launch::async, [files, notes, stop = stop_.get_token()] {
                     return Check(files, notes, stop);
                 }).share();
}

std::optional<Damage> DailyCheck::Found(std::chrono::milliseconds patience) const
{
    if (!found_.valid() || found_.wait_for(patience) != std::future_status::ready)
        return std::nullopt;
    return found_.get();
}

bool DailyCheck::Ended() const
{
    return !found_.valid() || found_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void TellDamage(Run& run)
{
    if (!run.dailyCheck)
        return;
    const auto damage = run.dailyCheck->Found(std::chrono::milliseconds(0));
    Screen* screen = run.screens.OnDisplay();
    if (!damage || !screen)
        return;
    run.dailyCheck.reset(); // told once; the session of the files keeps it
    run.readOnly = true;
    run.GLlock = 1;
    const StoreError error(Cause::Damaged, Attempt::Read, {damage->file.string()}, damage->words);
    run.Log(error);
    run.host.boxes.Show({PreparersWords(error), run.title, Icon::Critical});
    if (screen->name() == "frmbusiness") // the summary locks itself
        screen->Do([&] { screen->Activate(); });
    screen->notice = "The file \"" + damage->file.string() +
                     "\" is damaged: the year is open as a locked one, and nothing is stored.";
}

} // namespace pgbp
