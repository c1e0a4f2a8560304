#pragma once
// Benchmarks beside the floor they are held against: the same bytes, each touched once. The ratios
// stand at the end.

#include "base/code_page.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The floor's touch of each byte: its conversion to 16 bits. `to` holds as many characters.
inline void ConvertEach(std::string_view bytes, char16_t* to)
{
    for (char const byte : bytes)
        *to++ = codePageCharacters[static_cast<unsigned char>(byte)];
    benchmark::ClobberMemory();
}

/// Prints as usual and keeps the fastest time of each benchmark.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(std::vector<Run> const& runs) override
    {
        for (auto const& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            auto const time = run.real_accumulated_time / static_cast<double>(run.iterations);
            auto& best = m_times.try_emplace(run.run_name.str(), time).first->second;
            best = std::min(best, time);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatio(std::string const& name, std::string const& floor, double atMost) const
    {
        if (!m_times.contains(name) || !m_times.contains(floor))
            return;
        auto const ratio = m_times.at(name) / m_times.at(floor);
        std::printf("%-40s %6.2f times its floor, at most %g: %s\n", name.c_str(), ratio, atMost,
            ratio <= atMost ? "met" : "MISSED");
    }

    /// The time of one benchmark in seconds; 0 if it didn't run.
    double Time(std::string const& name) const
    {
        return m_times.contains(name) ? m_times.at(name) : 0;
    }

private:
    std::map<std::string, double> m_times; // seconds
};
