// A library that is loaded before the C library (LD_PRELOAD). It replaces the calls that change
// files, counts those that concern the user's folder, and makes one of them fail. All others are
// passed on to the C library. Reading is never disturbed.

#include "fault.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

template <class Function> Function* Next(char const* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

template <class Value> Value Failed(int error)
{
    errno = error;
    if constexpr (std::is_pointer_v<Value>)
        return nullptr;
    else
        return -1;
}

/// Performs a call, unless it is the one that has to fail. A fault that needs bytes to halve
/// doesn't apply to it.
template <class Call> auto Meet(char const* name, std::string const& path, Room room, Call call)
{
    auto const [fault, error] = Judge(name, path, room);
    if (fault == Fault::Fails)
        return Failed<decltype(call())>(error);
    if (fault == Fault::KillBefore)
        EndProcess();
    auto const result = call();
    if (fault == Fault::KillAfter)
        EndProcess();
    return result;
}

/// The same for a call that writes `size` bytes; `write` takes how many of them.
template <class Write> ssize_t MeetWrite(char const* name, int file, std::size_t size, Write write)
{
    if (TakeFull(file))
        return Failed<ssize_t>(ENOSPC);
    auto const [fault, error] = Judge(name, PathOf(file), Room::Needed);
    if (fault == Fault::Fails)
        return Failed<ssize_t>(error);
    if (fault == Fault::KillBefore)
        EndProcess();
    bool const isHalf = fault == Fault::Short || fault == Fault::KillHalf;
    if (fault == Fault::Short)
        FillUp(file);
    if (isHalf && size < 2)
        return fault == Fault::Short ? (static_cast<void>(TakeFull(file)), Failed<ssize_t>(ENOSPC))
                                     : (EndProcess(), 0);
    auto const written = write(isHalf ? size / 2 : size);
    if (fault == Fault::KillHalf || fault == Fault::KillAfter)
        EndProcess();
    return written;
}

bool Writes(int flags)
{
    return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
}

Room RoomFor(int flags)
{
    return (flags & O_CREAT) != 0 ? Room::Needed : Room::NotNeeded;
}

template <class Call> int Open(char const* name, std::string const& path, int flags, Call call)
{
    return Writes(flags) ? Meet(name, path, RoomFor(flags), call) : call();
}

/// The permissions that follow the flags, where a file is to be made.
mode_t Permissions(int flags, std::va_list words)
{
    bool const makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? va_arg(words, mode_t) : 0;
}

} // namespace

extern "C" {
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): those of the C library are
// reserved.

int open(char const* path, int flags, ...)
{
    std::va_list words;
    va_start(words, flags);
    auto const mode = Permissions(flags, words);
    va_end(words);
    static auto* const next = Next<decltype(::open)>("open");
    return Open("open", PathOf(AT_FDCWD, path), flags, [=] { return next(path, flags, mode); });
}

int open64(char const* path, int flags, ...)
{
    std::va_list words;
    va_start(words, flags);
    auto const mode = Permissions(flags, words);
    va_end(words);
    static auto* const next = Next<decltype(::open64)>("open64");
    return Open("open64", PathOf(AT_FDCWD, path), flags, [=] { return next(path, flags, mode); });
}

int openat(int folder, char const* path, int flags, ...)
{
    std::va_list words;
    va_start(words, flags);
    auto const mode = Permissions(flags, words);
    va_end(words);
    static auto* const next = Next<decltype(::openat)>("openat");
    return Open(
        "openat", PathOf(folder, path), flags, [=] { return next(folder, path, flags, mode); });
}

int openat64(int folder, char const* path, int flags, ...)
{
    std::va_list words;
    va_start(words, flags);
    auto const mode = Permissions(flags, words);
    va_end(words);
    static auto* const next = Next<decltype(::openat64)>("openat64");
    return Open(
        "openat64", PathOf(folder, path), flags, [=] { return next(folder, path, flags, mode); });
}

FILE* fopen(char const* path, char const* mode)
{
    static auto* const next = Next<decltype(::fopen)>("fopen");
    auto const call = [=] { return next(path, mode); };
    return std::strpbrk(mode, "wa+") ? Meet("fopen", PathOf(AT_FDCWD, path), Room::Needed, call)
                                     : call();
}

FILE* fopen64(char const* path, char const* mode)
{
    static auto* const next = Next<decltype(::fopen64)>("fopen64");
    auto const call = [=] { return next(path, mode); };
    return std::strpbrk(mode, "wa+") ? Meet("fopen64", PathOf(AT_FDCWD, path), Room::Needed, call)
                                     : call();
}

// Calls on a path, on two paths (the second counts), and on an open file differ in their arguments
// alone.
#define WRAP_PATH(result, name, room, path, parameters, arguments, ...)                            \
    result name parameters __VA_ARGS__                                                             \
    {                                                                                              \
        static auto* const next = Next<result parameters>(#name);                                  \
        return Meet(#name, path, room, [=] { return next arguments; });                            \
    }

WRAP_PATH(
    int, creat, Room::Needed, PathOf(AT_FDCWD, path), (char const* path, mode_t mode), (path, mode))
WRAP_PATH(int, creat64, Room::Needed, PathOf(AT_FDCWD, path), (char const* path, mode_t mode),
    (path, mode))
WRAP_PATH(int, mkstemp, Room::Needed, PathOf(AT_FDCWD, name), (char* name), (name))
WRAP_PATH(int, mkstemp64, Room::Needed, PathOf(AT_FDCWD, name), (char* name), (name))
WRAP_PATH(
    int, mkostemp, Room::Needed, PathOf(AT_FDCWD, name), (char* name, int flags), (name, flags))
WRAP_PATH(
    int, mkostemp64, Room::Needed, PathOf(AT_FDCWD, name), (char* name, int flags), (name, flags))
WRAP_PATH(char*, mkdtemp, Room::Needed, PathOf(AT_FDCWD, name), (char* name), (name), noexcept)
WRAP_PATH(int, mkdir, Room::Needed, PathOf(AT_FDCWD, path), (char const* path, mode_t mode),
    (path, mode), noexcept)
WRAP_PATH(int, mkdirat, Room::Needed, PathOf(folder, path),
    (int folder, char const* path, mode_t mode), (folder, path, mode), noexcept)
WRAP_PATH(int, rmdir, Room::NotNeeded, PathOf(AT_FDCWD, path), (char const* path), (path), noexcept)
WRAP_PATH(
    int, unlink, Room::NotNeeded, PathOf(AT_FDCWD, path), (char const* path), (path), noexcept)
WRAP_PATH(int, unlinkat, Room::NotNeeded, PathOf(folder, path),
    (int folder, char const* path, int flags), (folder, path, flags), noexcept)
WRAP_PATH(
    int, remove, Room::NotNeeded, PathOf(AT_FDCWD, path), (char const* path), (path), noexcept)
WRAP_PATH(int, rename, Room::NotNeeded, PathOf(AT_FDCWD, to), (char const* from, char const* to),
    (from, to), noexcept)
WRAP_PATH(int, renameat, Room::NotNeeded, PathOf(there, to),
    (int here, char const* from, int there, char const* to), (here, from, there, to), noexcept)
WRAP_PATH(int, renameat2, Room::NotNeeded, PathOf(there, to),
    (int here, char const* from, int there, char const* to, unsigned flags),
    (here, from, there, to, flags), noexcept)
WRAP_PATH(int, link, Room::Needed, PathOf(AT_FDCWD, to), (char const* from, char const* to),
    (from, to), noexcept)
WRAP_PATH(int, linkat, Room::Needed, PathOf(there, to),
    (int here, char const* from, int there, char const* to, int flags),
    (here, from, there, to, flags), noexcept)
WRAP_PATH(int, symlink, Room::Needed, PathOf(AT_FDCWD, to), (char const* from, char const* to),
    (from, to), noexcept)
WRAP_PATH(int, chmod, Room::NotNeeded, PathOf(AT_FDCWD, path), (char const* path, mode_t mode),
    (path, mode), noexcept)
WRAP_PATH(int, fchmodat, Room::NotNeeded, PathOf(folder, path),
    (int folder, char const* path, mode_t mode, int flags), (folder, path, mode, flags), noexcept)
WRAP_PATH(
    int, fchmod, Room::NotNeeded, PathOf(file), (int file, mode_t mode), (file, mode), noexcept)
WRAP_PATH(int, truncate, Room::NotNeeded, PathOf(AT_FDCWD, path), (char const* path, off_t size),
    (path, size), noexcept)
WRAP_PATH(int, truncate64, Room::NotNeeded, PathOf(AT_FDCWD, path),
    (char const* path, off64_t size), (path, size), noexcept)
WRAP_PATH(
    int, ftruncate, Room::NotNeeded, PathOf(file), (int file, off_t size), (file, size), noexcept)
WRAP_PATH(int, ftruncate64, Room::NotNeeded, PathOf(file), (int file, off64_t size), (file, size),
    noexcept)
WRAP_PATH(int, fsync, Room::NotNeeded, PathOf(file), (int file), (file))
WRAP_PATH(int, fdatasync, Room::NotNeeded, PathOf(file), (int file), (file))
#undef WRAP_PATH

ssize_t write(int file, void const* bytes, std::size_t size)
{
    static auto* const next = Next<decltype(::write)>("write");
    return MeetWrite(
        "write", file, size, [=](std::size_t part) { return next(file, bytes, part); });
}

ssize_t pwrite(int file, void const* bytes, std::size_t size, off_t offset)
{
    static auto* const next = Next<decltype(::pwrite)>("pwrite");
    return MeetWrite(
        "pwrite", file, size, [=](std::size_t part) { return next(file, bytes, part, offset); });
}

ssize_t pwrite64(int file, void const* bytes, std::size_t size, off64_t offset)
{
    static auto* const next = Next<decltype(::pwrite64)>("pwrite64");
    return MeetWrite(
        "pwrite64", file, size, [=](std::size_t part) { return next(file, bytes, part, offset); });
}

/// Half of its pieces count as half of its bytes.
ssize_t writev(int file, iovec const* pieces, int count)
{
    static auto* const next = Next<decltype(::writev)>("writev");
    auto const write = [=](std::size_t part) { return next(file, pieces, static_cast<int>(part)); };
    return MeetWrite("writev", file, static_cast<std::size_t>(count), write);
}

ssize_t sendfile(int to, int from, off_t* offset, std::size_t size)
{
    static auto* const next = Next<decltype(::sendfile)>("sendfile");
    return MeetWrite(
        "sendfile", to, size, [=](std::size_t part) { return next(to, from, offset, part); });
}

/// Only the closing of a file that was open for writing counts. It is closed even where it fails.
int close(int file)
{
    static auto* const next = Next<decltype(::close)>("close");
    int const flags = ::fcntl(file, F_GETFL);
    if (flags < 0 || !Writes(flags))
        return next(file);
    static_cast<void>(TakeFull(file));
    auto const [fault, error] = Judge("close", PathOf(file), Room::NotNeeded);
    if (fault == Fault::KillBefore)
        EndProcess();
    int const result = next(file);
    if (fault == Fault::KillAfter)
        EndProcess();
    return fault == Fault::Fails ? Failed<int>(error) : result;
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
}
