#include "store/joint_journals.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace pgbp {
namespace {

namespace fs = std::filesystem;

/// The engine's own pattern: the file's name, "-mj", six hexadecimal digits, a 9, two more.
bool IsJointJournalOf(const fs::path& file, const fs::path& candidate)
{
    constexpr std::string_view kPattern = "-mjXXXXXX9XX";
    const std::string start = file.filename().string();
    const std::string name = candidate.filename().string();
    if (name.size() != start.size() + kPattern.size() || !name.starts_with(start))
        return false;
    return std::equal(kPattern.begin(), kPattern.end(), name.begin() + static_cast<std::ptrdiff_t>(start.size()),
                      [](char wanted, char found) {
                          constexpr std::string_view digits = "0123456789ABCDEF";
                          return wanted == 'X' ? digits.find(found) != std::string_view::npos : wanted == found;
                      });
}

/// The first byte of a journal is set when there is something to roll back.
bool IsHot(const fs::path& journal) { return std::ifstream(journal, std::ios::binary).get() > 0; }

/// Only a journal that stands can need a joint one. The files held have their commits behind them: of theirs only a hot
/// one counts. Of all others each one does, since its commit may be under way.
bool CanNeedJointJournal(const fs::path& journal, std::span<const fs::path> held)
{
    const bool isHeld = std::ranges::any_of(
        held, [&](const fs::path& file) { return journal == fs::absolute(file).string() + "-journal"; });
    return isHeld ? IsHot(journal) : fs::exists(journal);
}

/// One that lies in the same folder may name it under the path of another computer.
bool IsNeeded(const fs::path& jointJournal, std::span<const fs::path> held)
{
    for (const auto& entry : fs::directory_iterator(jointJournal.parent_path()))
        if (entry.path().string().ends_with("-journal") && CanNeedJointJournal(entry.path(), held))
            return true;
    std::ifstream list(jointJournal, std::ios::binary);
    for (std::string journal; std::getline(list, journal, '\0');)
        if (!journal.empty() && CanNeedJointJournal(journal, held))
            return true;
    return !list.eof(); // it can not be read
}

} // namespace

std::vector<fs::path> JointJournals(std::span<const fs::path> files)
{
    std::vector<fs::path> found;
    for (const fs::path& file : files) {
        std::error_code unreadable;
        for (const auto& entry : fs::directory_iterator(fs::absolute(file).parent_path(), unreadable))
            if (IsJointJournalOf(file, entry.path()))
                found.push_back(entry.path());
    }
    return found;
}

void RemoveUnneededJointJournals(std::span<const fs::path> files)
{
    for (const fs::path& journal : JointJournals(files))
        if (!IsNeeded(journal, files))
            fs::remove(journal);
}

} // namespace pgbp
