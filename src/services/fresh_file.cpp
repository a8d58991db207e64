#include "services/fresh_file.h"

#include "services/fault.h"

#include <algorithm>
#include <array>
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

constexpr std::string_view kDigits = "abcdefghijklmnopqrstuvwxyz012345";
constexpr std::string_view kEnding = ".new";
constexpr std::size_t kLengthOfName = 16;

[[noreturn]] void Refuse(const std::filesystem::path& file) { throw FileFault(errno, Attempt::Save, file.string()); }

std::string RandomName()
{
    std::random_device random;
    std::string name(kLengthOfName, '\0');
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

void WriteAll(int file, std::string_view content, const std::filesystem::path& place)
{
    if (file < 0) // it could not be opened
        Refuse(place);
    while (!content.empty()) {
        const auto written = write(file, content.data(), content.size());
        if (written < 0 && errno != EINTR)
            Refuse(place);
        content.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

void Flush(const std::filesystem::path& path, const std::filesystem::path& place)
{
    const OpenedFile file(path, O_RDONLY);
    if (file < 0 || fsync(file) != 0)
        Refuse(place);
}

/// Not every file system of a network knows this; then there is nothing more to do.
void FlushFolder(const std::filesystem::path& folder)
{
    const OpenedFile opened(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (opened >= 0)
        fsync(opened);
}

} // namespace

FreshFile::FreshFile(std::filesystem::path place, Rights rights) : place_(std::move(place))
{
    struct stat before {};
    const bool replaces = stat(place_.c_str(), &before) == 0;
    const mode_t mode = replaces || rights == Rights::OwnerAlone ? kOwnerAlone : kUsual;
    do {
        path_ = NameInTheMaking(place_);
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
    WriteAll(file, content, place_);
}

void FreshFile::WriteCopyOf(const std::filesystem::path& other)
{
    const OpenedFile from(other, O_RDONLY);
    if (from < 0)
        throw FileFault(errno, Attempt::Read, other.string());
    const OpenedFile to(path_, O_WRONLY | O_TRUNC);
    std::array<char, 1 << 16> piece;
    ssize_t length = 0;
    while ((length = read(from, piece.data(), piece.size())) > 0)
        WriteAll(to, {piece.data(), static_cast<std::size_t>(length)}, place_);
    if (length < 0)
        throw FileFault(errno, Attempt::Read, other.string());
}

void FreshFile::TakePlace()
{
    Flush(path_, place_);
    if (rename(path_.c_str(), place_.c_str()) != 0)
        Refuse(place_);
    path_.clear();
    FlushFolder(place_.parent_path());
}

bool FreshFile::TakeFreePlace()
{
    Flush(path_, place_);
    if (!MoveToFreePlace()) {
        if (errno != EEXIST)
            Refuse(place_);
        return false;
    }
    FlushFolder(place_.parent_path());
    return true;
}

/// Not every file system gives a file a second name.
bool FreshFile::MoveToFreePlace() const
{
    const bool linked = link(path_.c_str(), place_.c_str()) == 0;
    return linked ||
           (errno != EEXIST && renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, place_.c_str(), RENAME_NOREPLACE) == 0);
}

FreshFolder::FreshFolder(std::filesystem::path place) : place_(std::move(place))
{
    if (!place_.has_filename()) // a slash ends it
        place_ = place_.parent_path();
    std::error_code error;
    std::filesystem::create_directories(place_.parent_path(), error);
    if (error)
        throw FileFault(error.value(), Attempt::Save, place_.parent_path().string());
    std::filesystem::path path;
    do {
        path = NameInTheMaking(place_);
        if (mkdir(path.c_str(), 0777) == 0)
            break;
        if (errno != EEXIST) // never one that somebody put there
            Refuse(place_);
    } while (true);
    path_ = path;
    rights_ = static_cast<mode_t>(std::filesystem::status(path_, error).permissions());
    chmod(path_.c_str(), 0700);
}

FreshFolder::~FreshFolder()
{
    std::error_code ignored;
    if (!path_.empty())
        std::filesystem::remove_all(path_, ignored);
}

void FreshFolder::TakePlace()
{
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path_)) {
        if (entry.is_directory() && !entry.is_symlink())
            FlushFolder(entry.path());
        else if (entry.is_regular_file() && !entry.is_symlink())
            Flush(entry.path(), place_);
    }
    FlushFolder(path_);
    chmod(path_.c_str(), rights_);
    if (rename(path_.c_str(), place_.c_str()) != 0)
        Refuse(place_);
    path_.clear();
    FlushFolder(place_.parent_path());
}

std::filesystem::path NameInTheMaking(const std::filesystem::path& place)
{
    return place.string() + '.' + RandomName() + std::string(kEnding);
}

bool IsNameInTheMaking(const std::filesystem::path& path)
{
    const std::string name = path.filename().string();
    if (name.size() <= kLengthOfName + 1 + kEnding.size() || !name.ends_with(kEnding))
        return false;
    const std::string_view random =
        std::string_view(name).substr(name.size() - kEnding.size() - kLengthOfName, kLengthOfName);
    return name[name.size() - kEnding.size() - kLengthOfName - 1] == '.' &&
           std::ranges::all_of(random, [](char letter) { return kDigits.find(letter) != std::string_view::npos; });
}

} // namespace pgbp
