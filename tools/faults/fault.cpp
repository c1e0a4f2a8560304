#include "fault.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

struct Mode {
    char const* name;
    Verdict verdict;
    int calls; // how many in a row
    bool isForRoom; // only calls that need room
};

constexpr std::array modes {
    Mode { "enospc", { Fault::Fails, ENOSPC }, 1, false },
    Mode { "eio", { Fault::Fails, EIO }, 1, false },
    Mode { "erofs", { Fault::Fails, EROFS }, 1, false },
    Mode { "short", { Fault::Short, 0 }, 1, true },
    Mode { "full", { Fault::Fails, ENOSPC }, 30, true },
    Mode { "kill-before", { Fault::KillBefore, 0 }, 1, false },
    Mode { "kill-half", { Fault::KillHalf, 0 }, 1, true },
    Mode { "kill-after", { Fault::KillAfter, 0 }, 1, false },
};

std::string Environment(char const* name)
{
    char const* value = std::getenv(name);
    return value ? value : "";
}

/// What the environment tells, read at the first call.
struct Plan {
    std::string folder = Environment("FAULTS_FOLDER");
    std::string mode = Environment("FAULTS_MODE");
    int at = std::atoi(Environment("FAULTS_AT").c_str());
    // Past the wrapped calls, as all of this library's own work on files is.
    long log = ::syscall(SYS_openat, AT_FDCWD, Environment("FAULTS_LOG").c_str(),
        O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
};

Plan const& ThePlan()
{
    static Plan const plan;
    return plan;
}

bool IsBelow(std::string const& path, std::string const& folder)
{
    return !folder.empty() && path.starts_with(folder)
        && (path.size() == folder.size() || path[folder.size()] == '/');
}

void Log(int number, char const* name, std::string const& path, bool isDisturbed)
{
    std::string const line
        = std::to_string(number) + ' ' + name + ' ' + path + (isDisturbed ? " !\n" : "\n");
    ::syscall(SYS_write, ThePlan().log, line.data(), line.size());
}

std::atomic<int> counted { 0 };
std::atomic<int> fullDescriptor { -1 };

} // namespace

Verdict Judge(char const* name, std::string const& path, Room room)
{
    int const before = errno;
    Verdict verdict;
    auto const& plan = ThePlan();
    if (IsBelow(path, plan.folder)) {
        int const number = ++counted;
        for (auto const& mode : modes) {
            bool const isHit = plan.at > 0 && number >= plan.at && number - plan.at < mode.calls;
            if (isHit && mode.name == plan.mode && (room == Room::Needed || !mode.isForRoom))
                verdict = mode.verdict;
        }
        Log(number, name, path, verdict.fault != Fault::None);
    }
    errno = before;
    return verdict;
}

std::string PathOf(int descriptor)
{
    int const before = errno;
    std::array<char, 4096> path {};
    auto const link = "/proc/self/fd/" + std::to_string(descriptor);
    auto const size = ::readlink(link.c_str(), path.data(), path.size());
    errno = before;
    return size > 0 ? std::string(path.data(), static_cast<std::size_t>(size)) : std::string();
}

std::string PathOf(int folder, char const* path)
{
    if (path[0] == '/')
        return path;
    std::array<char, 4096> current {};
    bool const isCurrent = folder == AT_FDCWD && ::getcwd(current.data(), current.size());
    return (isCurrent ? std::string(current.data()) : PathOf(folder)) + '/' + path;
}

void FillUp(int descriptor)
{
    fullDescriptor = descriptor;
}

bool TakeFull(int descriptor)
{
    return fullDescriptor.compare_exchange_strong(descriptor, -1);
}

void EndProcess()
{
    ::kill(::getpid(), SIGKILL);
    std::_Exit(137); // Not reached: nothing outlives that signal.
}
