#pragma once
// What programs need of the console or session that they run in.

#include <csignal>

/// True if standard error is a terminal, where a line can be overwritten.
bool IsErrorTerminal();

/// True if the session has a screen on which windows can be shown.
bool HasDisplay();

/// Holds back the signals that ask the program to end (SIGINT, SIGTERM, SIGHUP) while it exists,
/// for the thread that made it and those that this thread starts.
class DeferredInterrupt {
public:
    DeferredInterrupt();
    ~DeferredInterrupt();
    /// True if such a signal has come.
    bool IsRequested() const;
    DeferredInterrupt(DeferredInterrupt const&) = delete;
    DeferredInterrupt& operator=(DeferredInterrupt const&) = delete;

private:
    sigset_t m_before;
};
