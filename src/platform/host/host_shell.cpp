#include "platform/host/host_shell.h"

#include "platform/host/descriptor.h"
#include "platform/host/path_rules.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

/// Between fork and exec: starts the program as nobody's child, and writes a byte into the pipe if
/// it couldn't be started.
[[noreturn]] static void StartFromChild(char const* program, char const* argument, int report)
{
    pid_t const orphan = ::fork();
    if (orphan == 0) {
        ::setsid();
        ::execlp(program, program, argument, static_cast<char*>(nullptr));
    }
    if (orphan <= 0) {
        char const failed = 1;
        [[maybe_unused]] auto const told = ::write(report, &failed, 1);
    }
    ::_exit(0);
}

/// Starts the program without a shell in between, so that no one has to wait for it. The pipe
/// closes by itself when it has started.
static bool StartDetached(char const* program, std::string const& argument)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return false;
    Descriptor const reading(ends[0]);
    Descriptor writing(ends[1]);
    pid_t const child = ::fork();
    if (child == 0)
        StartFromChild(program, argument.c_str(), writing.Number());
    writing.Close();
    if (child < 0)
        return false;
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) { }
    char failed = 0;
    ssize_t size = 0;
    do
        size = ::read(reading.Number(), &failed, 1);
    while (size < 0 && errno == EINTR);
    return size == 0;
}

bool HostShell::Execute(TextView verb, TextView file)
{
    bool const isBelow = !file.starts_with(u'/') && file.find(u':') == TextView::npos;
    auto const place = isBelow ? PlaceOf(file, {}) : std::nullopt;
    std::error_code error;
    if (verb != u"open" || !place || !std::filesystem::is_regular_file(*place, error))
        return false;
    auto const whole = std::filesystem::absolute(*place, error);
    return !error && StartDetached("xdg-open", whole.string());
}
