#pragma once
// Benchmarks beside the floor they are held against: the same bytes, each touched once. The ratios
// stand at the end.

#include "base/code_page.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The floor's touch of each byte: its conversion to 16 bits. `to` holds as many characters.
inline void ConvertEach(std::string_view bytes, char16_t* to)
{
    for (char const byte : bytes)
        *to++ = codePageCharacters[static_cast<unsigned char>(byte)];
    benchmark::ClobberMemory();
}

/// Registers a benchmark that runs a few times for a short while: the fastest run counts, and a
/// machine with other work to do leaves at least one of them alone.
template <class... Arguments> void RegisterFew(std::string const& name, Arguments&&... arguments)
{
    benchmark::RegisterBenchmark(name.c_str(), std::forward<Arguments>(arguments)...)
        ->Repetitions(7)
        ->MinTime(0.05)
        ->UseRealTime();
}

/// Prints the fastest time of each benchmark, with its counters.
class RatioReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(Context const&) override { return true; }

    void ReportRuns(std::vector<Run> const& runs) override
    {
        for (auto const& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            if (run.error_occurred)
                std::printf(
                    "%s: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
            else
                Keep(run);
        }
    }

    /// Says how often the benchmark takes as long as its floor.
    void PrintRatio(std::string const& name, std::string const& floor, double atMost) const
    {
        if (!m_times.contains(name) || !m_times.contains(floor))
            return;
        auto const ratio = m_times.at(name) / m_times.at(floor);
        std::printf("%-40s %6.2f times its floor, at most %g: %s\n", name.c_str(), ratio, atMost,
            ratio <= atMost ? "met" : "MISSED");
    }

    /// Says how many times as fast the benchmark is as another way to the same.
    void PrintGain(std::string const& name, std::string const& other, double atLeast) const
    {
        if (!m_times.contains(name) || !m_times.contains(other))
            return;
        auto const gain = m_times.at(other) / m_times.at(name);
        std::printf("%-40s %6.2f times as fast, at least %g: %s\n", name.c_str(), gain, atLeast, gain >= atLeast ? "met" : "MISSED");
    }

    /// Says how long the benchmark takes, in milliseconds.
    void PrintTime(std::string const& name, double atMost) const
    {
        if (!m_times.contains(name))
            return;
        auto const time = m_times.at(name) * 1000;
        std::printf("%-40s %6.2f ms, at most %g: %s\n", name.c_str(), time, atMost, time <= atMost ? "met" : "MISSED");
    }

private:
    void Keep(Run const& run)
    {
        auto const& name = run.run_name.function_name;
        auto const time = run.real_accumulated_time / static_cast<double>(run.iterations);
        auto& best = m_times.try_emplace(name, time).first->second;
        best = std::min(best, time);
        if (run.repetition_index + 1 < run.repetitions)
            return;
        std::printf("%-40s %12.1f us", name.c_str(), best * 1e6);
        for (auto const& [counter, value] : run.counters)
            std::printf("  %s %.1f", counter.c_str(), value.value);
        std::printf("\n");
    }

    std::map<std::string, double> m_times; // seconds
};
