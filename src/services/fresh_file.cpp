#include "services/fresh_file.h"

#include "services/fault.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace pgbp {
namespace {

constexpr mode_t kRightsBits = 07777;
constexpr mode_t kUsual = 0666; // less what the user's mask takes
constexpr mode_t kOwnerAlone = 0600;

[[noreturn]] void Refuse(const std::filesystem::path& file) { throw FileFault(errno, Attempt::Save, file.string()); }

std::string RandomName()
{
    static constexpr std::string_view kDigits = "abcdefghijklmnopqrstuvwxyz012345";
    std::random_device random;
    std::string name(16, '\0');
    for (char& letter : name)
        letter = kDigits[random() % kDigits.size()];
    return name;
}

/// An open file, closed with its owner.
class OpenedFile {
  public:
    OpenedFile(const std::filesystem::path& path, int flags, mode_t mode = 0)
        : number_(open(path.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, mode))
    {
    }
    ~OpenedFile()
    {
        if (number_ >= 0)
            close(number_);
    }
    OpenedFile(const OpenedFile&) = delete;

    operator int() const { return number_; }

  private:
    int number_;
};

} // namespace

FreshFile::FreshFile(std::filesystem::path place, Rights rights) : place_(std::move(place))
{
    struct stat before {};
    const bool replaces = stat(place_.c_str(), &before) == 0;
    const mode_t mode = replaces || rights == Rights::OwnerAlone ? kOwnerAlone : kUsual;
    do {
        path_ = place_;
        path_ += '.' + RandomName() + ".new";
        if (OpenedFile(path_, O_WRONLY | O_CREAT | O_EXCL, mode) >= 0)
            break;
        if (errno != EEXIST)
            Refuse(place_);
    } while (true);
    if (replaces)
        TakeRightsOf(place_);
}

FreshFile::~FreshFile()
{
    if (!path_.empty())
        unlink(path_.c_str());
}

/// The owner first, since a change of it takes rights away.
void FreshFile::TakeRightsOf(const std::filesystem::path& other)
{
    struct stat before {};
    const OpenedFile file(path_, O_WRONLY);
    if (stat(other.c_str(), &before) != 0 || file < 0)
        return;
    if (fchown(file, before.st_uid, before.st_gid) != 0)
        errno = 0; // only the administrator may give a file away
    fchmod(file, before.st_mode & kRightsBits);
}

void FreshFile::Write(std::string_view content)
{
    const OpenedFile file(path_, O_WRONLY | O_TRUNC);
    while (!content.empty()) {
        const auto written = write(file, content.data(), content.size());
        if (written < 0 && errno != EINTR)
            Refuse(place_);
        content.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

void FreshFile::TakePlace()
{
    Flush();
    if (rename(path_.c_str(), place_.c_str()) != 0)
        Refuse(place_);
    path_.clear();
    FlushFolder();
}

bool FreshFile::TakeFreePlace()
{
    Flush();
    if (!MoveToFreePlace()) {
        if (errno != EEXIST)
            Refuse(place_);
        return false;
    }
    FlushFolder();
    return true;
}

/// Not every file system gives a file a second name.
bool FreshFile::MoveToFreePlace() const
{
    const bool linked = link(path_.c_str(), place_.c_str()) == 0;
    return linked ||
           (errno != EEXIST && renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, place_.c_str(), RENAME_NOREPLACE) == 0);
}

void FreshFile::Flush() const
{
    const OpenedFile file(path_, O_RDONLY);
    if (file < 0 || fsync(file) != 0)
        Refuse(place_);
}

/// Not every file system of a network knows this; then there is nothing more to do.
void FreshFile::FlushFolder() const
{
    const auto folder = place_.parent_path();
    const OpenedFile opened(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (opened >= 0)
        fsync(opened);
}

} // namespace pgbp
