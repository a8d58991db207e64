#pragma once

#include <filesystem>
#include <string_view>
#include <sys/types.h>

namespace pgbp {

/// What a file that is made may be read and written by.
enum class Rights { AsUsual, OwnerAlone };

/// A file in the making, beside the place it is to take; gone with its owner if it took none. Its name can not be
/// guessed, and no link is followed where it is made. It takes over the rights, and where possible the owner, of the
/// file in whose place it comes. Each call throws Fault.
class FreshFile {
  public:
    /// `rights` count where no file stands in the place yet.
    explicit FreshFile(std::filesystem::path place, Rights rights = Rights::AsUsual);
    ~FreshFile();
    FreshFile(const FreshFile&) = delete;

    const std::filesystem::path& path() const { return path_; }

    void TakeRightsOf(const std::filesystem::path& other);
    void Write(std::string_view content);
    /// The content of another file, which this process must not hold open as a data file: closing it lets go of the
    /// process's locks on it.
    void WriteCopyOf(const std::filesystem::path& other);

    /// Replaces what stands in the place, in one step that outlives a loss of power: the content is on the disk before.
    void TakePlace();
    /// The same where no file stands yet; false, and nothing is changed, when another program was faster.
    bool TakeFreePlace();

  private:
    bool MoveToFreePlace() const;

    std::filesystem::path place_;
    std::filesystem::path path_;
};

/// A folder in the making, beside the place it is to take; gone with its owner if it took none. Nobody else can look
/// into it until then. The folders above it are made where they are missing. Each call throws Fault.
class FreshFolder {
  public:
    explicit FreshFolder(std::filesystem::path place);
    ~FreshFolder();
    FreshFolder(const FreshFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    const std::filesystem::path& place() const { return place_; }

    /// Replaces nothing but an empty folder, in one step that outlives a loss of power: all that is in it is on the
    /// disk before.
    void TakePlace();

  private:
    std::filesystem::path place_;
    std::filesystem::path path_;
    mode_t rights_ = 0; ///< in its place
};

/// A free name for what is on its way to that place, or from it to its end.
std::filesystem::path NameInTheMaking(const std::filesystem::path& place);

/// The name is one that a file or a folder in the making has, or that a process which was killed left behind.
bool IsNameInTheMaking(const std::filesystem::path& path);

} // namespace pgbp
