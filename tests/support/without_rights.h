#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace pgbp {

inline constexpr std::filesystem::perms kWriting =
    std::filesystem::perms::owner_write | std::filesystem::perms::group_write | std::filesystem::perms::others_write;

/// Every user may read and write the folder with all that is in it.
inline void LetEverybodyIn(const std::filesystem::path& folder)
{
    std::filesystem::permissions(folder, std::filesystem::perms::all);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        std::filesystem::permissions(entry.path(), std::filesystem::perms::all);
}

/// Takes rights from a file or folder as long as it lives. A test that runs with all rights gives those up meanwhile:
/// they would let it pass everywhere.
class WithoutRights {
  public:
    WithoutRights(std::filesystem::path path, std::filesystem::perms taken)
        : path_(std::move(path)), before_(std::filesystem::status(path_).permissions())
    {
        std::filesystem::permissions(path_, taken, std::filesystem::perm_options::remove);
        if (wasRoot_ && seteuid(kNobody) != 0)
            ADD_FAILURE() << "the rights can not be given up";
    }
    ~WithoutRights()
    {
        if (wasRoot_ && seteuid(0) != 0)
            ADD_FAILURE() << "the rights do not come back";
        std::filesystem::permissions(path_, before_);
    }
    WithoutRights(const WithoutRights&) = delete;

  private:
    static constexpr uid_t kNobody = 65534;

    const std::filesystem::path path_;
    const std::filesystem::perms before_;
    const bool wasRoot_ = geteuid() == 0;
};

} // namespace pgbp
