#pragma once
// What command line programs need of the console that they run in.

#include <csignal>

/// True if what is written to standard error appears on a terminal, where a line can be written
/// over.
bool IsErrorTerminal();

/// True if the user's session names a screen on which windows can be shown.
bool HasDisplay();

/// While an object of this kind lives, the wish to end the program (SIGINT, SIGTERM, SIGHUP) waits.
/// For one thread.
class DeferredInterrupt {
public:
    DeferredInterrupt();
    ~DeferredInterrupt();
    /// True if a wish to end the program is waiting.
    bool IsWished() const;
    DeferredInterrupt(DeferredInterrupt const&) = delete;
    DeferredInterrupt& operator=(DeferredInterrupt const&) = delete;

private:
    sigset_t m_before;
};
