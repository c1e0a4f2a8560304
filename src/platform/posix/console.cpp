#include "platform/posix/console.h"

#include <cstdlib>
#include <initializer_list>
#include <unistd.h>

bool IsErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

bool HasDisplay()
{
    for (char const* const name : { "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM" })
        if (char const* const value = std::getenv(name); value && *value)
            return true;
    return false;
}

static constexpr int endSignals[] = { SIGINT, SIGTERM, SIGHUP };

DeferredInterrupt::DeferredInterrupt()
{
    sigset_t held;
    sigemptyset(&held);
    for (int const signal : endSignals)
        sigaddset(&held, signal);
    pthread_sigmask(SIG_BLOCK, &held, &m_before);
}

DeferredInterrupt::~DeferredInterrupt()
{
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

bool DeferredInterrupt::IsRequested() const
{
    sigset_t waiting;
    sigpending(&waiting);
    for (int const signal : endSignals)
        if (sigismember(&waiting, signal) == 1)
            return true;
    return false;
}
