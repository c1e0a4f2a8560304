#include "desktop/orderly_end.h"

#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <csignal>
#include <unistd.h>

// A signal handler can do next to nothing: it writes a byte for the event loop.
static int volatile signalPipe = -1;

static void Signalled(int)
{
    char const byte = 1;
    [[maybe_unused]] auto const written = write(signalPipe, &byte, 1);
}
#endif

OrderlyEnd::OrderlyEnd(QApplication& application, std::function<void()> finish)
    : m_finish(std::move(finish))
{
    connect(
        &application, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& session) {
            session.setRestartHint(QSessionManager::RestartNever);
            Finish();
        });
    WatchSignals();
}

void OrderlyEnd::WatchSignals()
{
#ifdef Q_OS_UNIX
    if (pipe(m_pipe) != 0)
        return;
    signalPipe = m_pipe[1];
    auto* const notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Finish();
    });
    for (int const number : { SIGTERM, SIGINT, SIGHUP })
        std::signal(number, Signalled);
#endif
}

void OrderlyEnd::Finish()
{
    if (!std::exchange(m_finished, true))
        m_finish();
}

OrderlyEnd::~OrderlyEnd()
{
#ifdef Q_OS_UNIX
    for (int const number : { SIGTERM, SIGINT, SIGHUP })
        std::signal(number, SIG_DFL);
    for (int const end : m_pipe)
        if (end >= 0)
            close(end);
#endif
}
