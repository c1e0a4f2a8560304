#pragma once
// Ends the program at the end of the user's session and on the usual signals.

#include <QObject>

#include <functional>

class QApplication;
class QSocketNotifier;

class OrderlyEnd final : public QObject {
public:
    /// `finish` stores everything and closes the forms; it runs at most once, as an ordinary event.
    /// Only one object may exist at a time.
    OrderlyEnd(QApplication& application, std::function<void()> finish);
    ~OrderlyEnd() override;

private:
    void WatchSignals();
    void Finish();

    std::function<void()> m_finish;
    int m_pipe[2] = { -1, -1 };
    bool m_finished = false;
};
