#include "services/name_lock.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace pgbp {
namespace {

/// The place in the file that stands for the name (FNV-1a): two names meet in one of 2^62 places. The file stays empty.
off_t PlaceOf(std::string_view name)
{
    std::uint64_t hash = 14695981039346656037U;
    for (const char letter : name)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 1099511628211U;
    return static_cast<off_t>(hash >> 2U);
}

} // namespace

NameLock::NameLock(const std::filesystem::path& file, std::string_view name)
    : file_(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666))
{
    struct flock place = {};
    place.l_type = F_WRLCK;
    place.l_whence = SEEK_SET;
    place.l_start = PlaceOf(name);
    place.l_len = 1;
    if (file_ >= 0 && fcntl(file_, F_OFD_SETLK, &place) != 0)
        isTaken_ = errno == EAGAIN || errno == EACCES;
}

NameLock::~NameLock()
{
    if (file_ >= 0)
        close(file_);
}

NameLock& NameLock::operator=(NameLock&& other) noexcept
{
    std::swap(file_, other.file_);
    std::swap(isTaken_, other.isTaken_);
    return *this;
}

} // namespace pgbp
