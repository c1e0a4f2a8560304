#pragma once
// Long work on a thread of its own, so that the window stays responsive.

#include "setup/install.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <thread>

class Worker final : public QObject {
public:
    using Work = std::function<Outcome<SetupReport>(Watcher const&)>;
    /// Both are called in the screen's thread, `ended` once after each Start.
    struct Listener {
        std::function<void(int permille, QString const& file)> progressed;
        std::function<void(Outcome<SetupReport> const&)> ended;
    };

    explicit Worker(Listener listener);
    /// Cancels, and waits for the end.
    ~Worker() override;

    /// One work at a time.
    void Start(Work work);
    void Cancel() { m_isCancelled = true; }
    bool IsBusy() const { return m_isBusy; }

private:
    Watcher WatcherOfWork();
    void End(Outcome<SetupReport> const& outcome);

    Listener m_listener;
    std::thread m_thread;
    std::atomic<bool> m_isCancelled = false;
    bool m_isBusy = false;
};
