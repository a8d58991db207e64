#pragma once

#include <filesystem>
#include <string_view>

namespace pgbp {

/// A lock of the operating system on a name, among all programs that use the same file. It goes with the process that
/// holds it, however that ends; no sign of it stays behind.
class NameLock {
  public:
    NameLock() = default;
    /// Takes the name in the file, which is made where it is missing, if nobody has it.
    NameLock(const std::filesystem::path& file, std::string_view name);
    ~NameLock();
    NameLock(const NameLock&) = delete;
    NameLock& operator=(NameLock&& other) noexcept;

    /// Another one has the name. A file that can not be locked tells of nobody.
    bool IsTaken() const { return isTaken_; }

  private:
    int file_ = -1;
    bool isTaken_ = false;
};

} // namespace pgbp
