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

    /// Replaces what stands in the place, in one step that outlives a loss of power: the content is on the disk before.
    void TakePlace();
    /// The same where no file stands yet; false, and nothing is changed, when another program was faster.
    bool TakeFreePlace();

  private:
    bool MoveToFreePlace() const;
    void Flush() const;
    void FlushFolder() const;

    std::filesystem::path place_;
    std::filesystem::path path_;
};

} // namespace pgbp
