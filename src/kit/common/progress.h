#pragma once
// How far long work has come, on standard error while that is a terminal.

#include <chrono>
#include <cstdint>
#include <string>

class Progress {
public:
    /// Shows itself only where the work takes longer than a moment. `total` is in the units of At,
    /// more than 0.
    Progress(std::string title, std::uint64_t total);
    /// Takes its line away again.
    ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    void At(std::uint64_t done);

private:
    using Clock = std::chrono::steady_clock;

    std::string m_title;
    std::uint64_t m_total;
    bool m_isTerminal;
    bool m_isShown = false;
    Clock::time_point m_nextShowing;
};
