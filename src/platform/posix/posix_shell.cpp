#include "platform/posix/posix_shell.h"

#include "platform/posix/descriptor.h"
#include "platform/posix/path_rules.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <span>
#include <sys/wait.h>
#include <unistd.h>

/// A program and its words, ended by a null. One named by a path is that file and nothing else, one
/// named by a bare name is looked for where programs lie.
using CommandWords = std::span<char const* const>;

/// Between fork and exec: starts the program as nobody's child, and writes a byte into the pipe if
/// it couldn't be started.
[[noreturn]] static void StartFromChild(CommandWords words, int report)
{
    pid_t const orphan = ::fork();
    if (orphan == 0) {
        ::setsid();
        sigset_t none;
        sigemptyset(&none);
        ::sigprocmask(SIG_SETMASK, &none, nullptr); // It would inherit what we hold back.
        auto* const* const arguments = const_cast<char* const*>(words.data());
        // execvp would hand a document that may be executed to the command interpreter.
        if (std::strchr(words[0], '/'))
            ::execv(words[0], arguments);
        else
            ::execvp(words[0], arguments);
    }
    if (orphan <= 0) {
        char const failed = 1;
        [[maybe_unused]] auto const told = ::write(report, &failed, 1);
    }
    ::_exit(0);
}

/// Starts the program without a shell in between, so that no one has to wait for it. The pipe
/// closes by itself when it has started.
static bool StartDetached(CommandWords words)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return false;
    Descriptor const reading(ends[0]);
    Descriptor writing(ends[1]);
    pid_t const child = ::fork();
    if (child == 0)
        StartFromChild(words, writing.Number());
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

bool PosixShell::Execute(TextView verb, TextView file)
{
    bool const isBelow = !file.starts_with(u'/') && file.find(u':') == TextView::npos;
    auto const place = isBelow ? PlaceOf(file, {}) : std::nullopt;
    std::error_code error;
    if (verb != u"open" || !place || !std::filesystem::is_regular_file(*place, error))
        return false;
    auto const whole = std::filesystem::absolute(*place, error);
    if (error)
        return false;
    char const* const program[] = { whole.c_str(), nullptr };
    char const* const opener[] = { "xdg-open", whole.c_str(), nullptr };
    return (::access(whole.c_str(), X_OK) == 0 && StartDetached(program)) || StartDetached(opener);
}
