#include "setup/window/worker.h"

#include <QFile>
#include <QMetaObject>

#include <chrono>
#include <exception>

Worker::Worker(Listener listener)
    : m_listener(std::move(listener))
{
}

Worker::~Worker()
{
    Cancel();
    if (m_thread.joinable())
        m_thread.join();
}

Watcher Worker::WatcherOfWork()
{
    using Clock = std::chrono::steady_clock;
    return [this, next = Clock::time_point()](CopyProgress const& progress) mutable {
        if (auto const now = Clock::now(); now >= next) {
            next = now + std::chrono::milliseconds(40); // faster than that nobody sees
            auto const permille
                = progress.total ? static_cast<int>(progress.done * 1000 / progress.total) : 1000;
            auto const file = QFile::decodeName(progress.file.c_str());
            QMetaObject::invokeMethod(
                this, [this, permille, file] { m_listener.progressed(permille, file); },
                Qt::QueuedConnection);
        }
        return !m_isCancelled;
    };
}

void Worker::Start(Work work)
{
    m_isCancelled = false;
    m_isBusy = true;
    m_thread = std::thread([this, work = std::move(work)] {
        auto outcome = [&]() -> Outcome<SetupReport> {
            try {
                return work(WatcherOfWork());
            } catch (std::exception const& error) {
                return Failure { {}, 0, FromUtf8(error.what()) };
            }
        }();
        QMetaObject::invokeMethod(
            this, [this, outcome = std::move(outcome)] { End(outcome); }, Qt::QueuedConnection);
    });
}

void Worker::End(Outcome<SetupReport> const& outcome)
{
    m_thread.join();
    m_isBusy = false;
    m_listener.ended(outcome);
}
