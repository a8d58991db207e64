#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdlib.h>
#include <string>

namespace pgbp {

/// A folder that is gone when the test is over; in memory where there is room, since hundreds of practices are made and
/// written to.
class TemporaryFolder {
  public:
    TemporaryFolder()
    {
        std::string pattern = (Place() / "pgbp-test-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    void Write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path_ / name, std::ios::binary | std::ios::trunc) << content;
    }

    std::string Read(const std::string& name) const
    {
        std::ostringstream text;
        text << std::ifstream(path_ / name, std::ios::binary).rdbuf();
        return text.str();
    }

  private:
    static std::filesystem::path Place()
    {
        constexpr std::uintmax_t kRoom = 1U << 30;
        const std::filesystem::path memory = "/dev/shm";
        std::error_code none;
        const auto space = std::filesystem::space(memory, none);
        return !none && space.available > kRoom ? memory : std::filesystem::temp_directory_path();
    }

    std::filesystem::path path_;
};

} // namespace pgbp
