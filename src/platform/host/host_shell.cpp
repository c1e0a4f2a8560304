#include "platform/host/host_shell.h"

#include "platform/host/path_rules.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

/// Starts the program as nobody's child, so that no one has to wait for it. The pipe closes by itself when it has started, and
/// has a byte in it when it couldn't be.
static bool StartDetached(char const* program, std::string const& argument)
{
    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0)
        return false;
    pid_t const child = ::fork();
    if (child == 0) {
        if (::fork() == 0) {
            ::setsid();
            ::execlp(program, program, argument.c_str(), static_cast<char*>(nullptr));
            char const failed = 1;
            [[maybe_unused]] auto const told = ::write(pipe[1], &failed, 1);
        }
        ::_exit(0);
    }
    ::close(pipe[1]);
    char failed = 0;
    bool const started = child > 0 && ::read(pipe[0], &failed, 1) == 0;
    ::close(pipe[0]);
    if (child > 0)
        ::waitpid(child, nullptr, 0);
    return started;
}

bool HostShell::Execute(TextView verb, TextView file)
{
    auto const place = PlaceOf(file, {});
    std::error_code error;
    if (verb != u"open" || !place || !std::filesystem::exists(*place, error))
        return false;
    return StartDetached("xdg-open", std::filesystem::absolute(*place).string());
}
