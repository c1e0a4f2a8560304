#include "platform/host/console.h"

#include <initializer_list>
#include <unistd.h>

bool IsErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

EndHeldBack::EndHeldBack()
{
    sigset_t held;
    sigemptyset(&held);
    for (int const signal : { SIGINT, SIGTERM, SIGHUP })
        sigaddset(&held, signal);
    pthread_sigmask(SIG_BLOCK, &held, &m_before);
}

EndHeldBack::~EndHeldBack()
{
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}
