#pragma once
// What command line programs need of the console that they run in.

#include <csignal>

/// True if what is written to standard error appears on a terminal, where a line can be written over.
bool IsErrorTerminal();

/// While an object of this kind lives, the wish to end the program (SIGINT, SIGTERM, SIGHUP) waits. For one thread.
class EndHeldBack {
public:
    EndHeldBack();
    ~EndHeldBack();
    EndHeldBack(EndHeldBack const&) = delete;
    EndHeldBack& operator=(EndHeldBack const&) = delete;

private:
    sigset_t m_before;
};
