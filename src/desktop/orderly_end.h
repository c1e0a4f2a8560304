#pragma once
// The ends of the program that come from outside: the end of the user's session, and the signals
// that ask a process to go.

#include <QObject>

#include <functional>

class QApplication;
class QSocketNotifier;

class OrderlyEnd final : public QObject {
public:
    /// `finish` stores what is to be stored and closes the forms; it runs once at most, as an
    /// ordinary event. One object at a time.
    OrderlyEnd(QApplication& application, std::function<void()> finish);
    ~OrderlyEnd() override;

private:
    void WatchSignals();
    void Finish();

    std::function<void()> m_finish;
    int m_pipe[2] = { -1, -1 };
    bool m_finished = false;
};
