// Loaded before the system's library into a program under test: of the calls that change files below one folder it
// makes one fail, or it lists them. The environment tells which:
//
//   FAULT_FOLDER   the folder; what is written beside it under a name that begins with its own counts too
//   FAULT_AT       the call that fails, counted from 1
//   FAULT_KIND     enospc, eio: it fails so. full: from this call on nothing can be written any more. short: half of
//                  the bytes are written, and the next write finds the disk full. kill, torn: the process dies there;
//                  torn writes half of the bytes first. list: none fails
//   FAULT_STRUCK   a file that is made when the call came; of a list it holds a line for each call: its name, a blank,
//                  the file

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

enum class Kind { None, List, NoSpace, Io, Full, Short, Kill, Torn };

struct Plan {
    std::string_view folder;
    long at = 0;
    Kind kind = Kind::None;
    const char* struck = nullptr;

    Plan()
    {
        const char* itsFolder = std::getenv("FAULT_FOLDER");
        const char* place = std::getenv("FAULT_AT");
        const char* name = std::getenv("FAULT_KIND");
        struck = std::getenv("FAULT_STRUCK");
        if (!itsFolder || !place || !name || !struck)
            return;
        folder = itsFolder;
        at = std::atol(place);
        constexpr std::pair<std::string_view, Kind> kKinds[] = {
            {"list", Kind::List},   {"enospc", Kind::NoSpace}, {"eio", Kind::Io},   {"full", Kind::Full},
            {"short", Kind::Short}, {"kill", Kind::Kill},      {"torn", Kind::Torn}};
        for (const auto& [each, its] : kKinds)
            if (each == name)
                kind = its;
    }
};

const Plan& ThePlan()
{
    static const Plan plan;
    return plan;
}

std::atomic<long> calls = 0;
std::array<std::atomic<bool>, 4096> isOurs; // by file descriptor

template <typename Function>
Function Real(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool Below(const char* path)
{
    const Plan& plan = ThePlan();
    return plan.kind != Kind::None && path && std::string_view(path).starts_with(plan.folder);
}

bool Ours(int file)
{
    return file >= 0 && file < static_cast<int>(isOurs.size()) && isOurs[static_cast<unsigned>(file)];
}

int Opened(int file, bool ours)
{
    if (file >= 0 && file < static_cast<int>(isOurs.size()))
        isOurs[static_cast<unsigned>(file)] = ours;
    return file;
}

void Die()
{
    kill(getpid(), SIGKILL);
    pause();
}

/// A call that changes something: its name, and its file, by path or open.
struct Call {
    const char* name;
    const char* path = nullptr;
    int file = -1;
};

/// One write for each line, so that those of two threads do not mix.
void List(const Call& call)
{
    std::array<char, PATH_MAX> open{};
    if (!call.path) {
        const std::string link = "/proc/self/fd/" + std::to_string(call.file);
        if (readlink(link.c_str(), open.data(), open.size() - 1) < 0)
            open[0] = '\0';
    }
    const std::string line = std::string(call.name) + ' ' + (call.path ? call.path : open.data()) + '\n';
    const long list = syscall(SYS_openat, AT_FDCWD, ThePlan().struck, O_CREAT | O_WRONLY | O_APPEND, 0600);
    syscall(SYS_write, list, line.data(), line.size());
    syscall(SYS_close, list);
}

enum class What { Pass, Fail, Half };

/// What is to become of a call; `errno` is set where it fails.
What Strike(const Call& its, bool isWrite)
{
    const Plan& plan = ThePlan();
    if (plan.kind == Kind::List) {
        List(its);
        return What::Pass;
    }
    const long call = ++calls;
    const bool isAfterShort = plan.kind == Kind::Short && call == plan.at + 1;
    const bool isHit = call == plan.at || isAfterShort || (plan.kind == Kind::Full && call > plan.at);
    if (!isHit)
        return What::Pass;
    if (call == plan.at)
        syscall(SYS_close, syscall(SYS_openat, AT_FDCWD, plan.struck, O_CREAT | O_WRONLY, 0600));
    if (isWrite && call == plan.at && (plan.kind == Kind::Short || plan.kind == Kind::Torn))
        return What::Half;
    if (plan.kind == Kind::Kill || plan.kind == Kind::Torn)
        Die();
    errno = plan.kind == Kind::Io ? EIO : ENOSPC;
    return What::Fail;
}

/// A write, done by `real` with as many bytes as it may.
template <typename Write>
ssize_t Written(const char* name, int file, size_t count, Write real)
{
    const What what = Ours(file) ? Strike({name, nullptr, file}, true) : What::Pass;
    if (what == What::Fail)
        return -1;
    if (what == What::Pass)
        return real(count);
    const ssize_t half = real(count / 2);
    if (ThePlan().kind == Kind::Torn)
        Die();
    return half;
}

/// Any other call that changes something: it fails or is done.
template <typename Work>
auto Done(bool ours, const Call& call, Work real) -> decltype(real())
{
    return ours && Strike(call, false) == What::Fail ? -1 : real();
}

bool Changes(int flags) { return (flags & (O_CREAT | O_TRUNC | O_WRONLY | O_RDWR)) != 0; }

mode_t ModeOf(int flags, va_list& more) { return (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0; }

using Open = int (*)(const char*, int, ...);
using OpenAt = int (*)(int, const char*, int, ...);
using OpenStream = FILE* (*)(const char*, const char*);

int OpenFile(const char* name, const char* path, int flags, mode_t mode)
{
    const bool ours = Below(path);
    return Opened(Done(ours && Changes(flags), {name, path}, [&] { return Real<Open>(name)(path, flags, mode); }),
                  ours);
}

int OpenFileAt(const char* name, int folder, const char* path, int flags, mode_t mode)
{
    const bool ours = Below(path);
    return Opened(
        Done(ours && Changes(flags), {name, path}, [&] { return Real<OpenAt>(name)(folder, path, flags, mode); }),
        ours);
}

FILE* OpenTheStream(const char* name, const char* path, const char* mode)
{
    const bool ours = Below(path);
    if (ours && std::strpbrk(mode, "wa+") && Strike({name, path}, false) == What::Fail)
        return nullptr;
    FILE* stream = Real<OpenStream>(name)(path, mode);
    if (stream)
        Opened(fileno(stream), ours);
    return stream;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = ModeOf(flags, more);
    va_end(more);
    return OpenFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = ModeOf(flags, more);
    va_end(more);
    return OpenFile("open64", path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = ModeOf(flags, more);
    va_end(more);
    return OpenFileAt("openat", folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = ModeOf(flags, more);
    va_end(more);
    return OpenFileAt("openat64", folder, path, flags, mode);
}

FILE* fopen(const char* path, const char* mode) { return OpenTheStream("fopen", path, mode); }

FILE* fopen64(const char* path, const char* mode) { return OpenTheStream("fopen64", path, mode); }

ssize_t write(int file, const void* bytes, size_t count)
{
    return Written("write", file, count, [&](size_t length) {
        return Real<ssize_t (*)(int, const void*, size_t)>("write")(file, bytes, length);
    });
}

ssize_t writev(int file, const iovec* pieces, int count)
{
    return Done(Ours(file), {"writev", nullptr, file},
                [&] { return Real<ssize_t (*)(int, const iovec*, int)>("writev")(file, pieces, count); });
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset)
{
    return Written("pwrite", file, count, [&](size_t length) {
        return Real<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite")(file, bytes, length, offset);
    });
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t offset)
{
    return Written("pwrite64", file, count, [&](size_t length) {
        return Real<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64")(file, bytes, length, offset);
    });
}

int fsync(int file)
{
    return Done(Ours(file), {"fsync", nullptr, file}, [&] { return Real<int (*)(int)>("fsync")(file); });
}

int fdatasync(int file)
{
    return Done(Ours(file), {"fdatasync", nullptr, file}, [&] { return Real<int (*)(int)>("fdatasync")(file); });
}

int ftruncate(int file, off_t length) noexcept
{
    return Done(Ours(file), {"ftruncate", nullptr, file},
                [&] { return Real<int (*)(int, off_t)>("ftruncate")(file, length); });
}

int ftruncate64(int file, off64_t length) noexcept
{
    return Done(Ours(file), {"ftruncate64", nullptr, file},
                [&] { return Real<int (*)(int, off64_t)>("ftruncate64")(file, length); });
}

int unlink(const char* path) noexcept
{
    return Done(Below(path), {"unlink", path}, [&] { return Real<int (*)(const char*)>("unlink")(path); });
}

int unlinkat(int folder, const char* path, int flags) noexcept
{
    return Done(Below(path), {"unlinkat", path},
                [&] { return Real<int (*)(int, const char*, int)>("unlinkat")(folder, path, flags); });
}

int remove(const char* path) noexcept
{
    return Done(Below(path), {"remove", path}, [&] { return Real<int (*)(const char*)>("remove")(path); });
}

int rename(const char* from, const char* to) noexcept
{
    return Done(Below(to), {"rename", to}, [&] { return Real<int (*)(const char*, const char*)>("rename")(from, to); });
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return Done(Below(path), {"mkdir", path}, [&] { return Real<int (*)(const char*, mode_t)>("mkdir")(path, mode); });
}

} // extern "C"
