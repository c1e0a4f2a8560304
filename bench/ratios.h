#pragma once
// Benchmarks compared with a floor: the same bytes, each touched once. The ratios are printed at
// the end.

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

/// Registers a benchmark that runs many times, each for a very short while. The fastest run counts:
/// even a busy machine leaves at least one of them undisturbed.
template <class... Arguments> void RegisterShort(std::string const& name, Arguments&&... arguments)
{
    benchmark::RegisterBenchmark(name.c_str(), std::forward<Arguments>(arguments)...)
        ->Repetitions(20)
        ->MinTime(0.02)
        ->UseRealTime();
}

/// Prints the fastest time of each benchmark, with its counters. Ratios are of the processor's
/// time: a machine with other work keeps a long run waiting more often than a short one.
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

    /// Prints the benchmark's time as a multiple of its floor's.
    void PrintRatio(std::string const& name, std::string const& floor, double atMost) const
    {
        if (m_best.contains(name) && m_best.contains(floor))
            Print(name, m_best.at(name).processor / m_best.at(floor).processor, "times its floor",
                atMost);
    }

    /// Prints how many times as fast the benchmark is as another way to the same.
    void PrintGain(std::string const& name, std::string const& other, double atLeast) const
    {
        if (m_best.contains(name) && m_best.contains(other))
            Print(name, m_best.at(other).processor / m_best.at(name).processor, "times as fast",
                atLeast, false);
    }

    /// Prints how long the benchmark takes, in milliseconds.
    void PrintTime(std::string const& name, double atMost) const
    {
        if (m_best.contains(name))
            Print(name, m_best.at(name).real * 1000, "ms", atMost);
    }

private:
    struct Times {
        double real, processor; // seconds
    };

    static void Print(
        std::string const& name, double value, char const* unit, double limit, bool isMost = true)
    {
        std::printf("%-40s %6.2f %s, at %s %g: %s\n", name.c_str(), value, unit,
            isMost ? "most" : "least", limit,
            (isMost ? value <= limit : value >= limit) ? "met" : "MISSED");
    }

    void Keep(Run const& run)
    {
        auto const& name = run.run_name.function_name;
        auto const iterations = static_cast<double>(run.iterations);
        Times const times { run.real_accumulated_time / iterations,
            run.cpu_accumulated_time / iterations };
        auto& best = m_best.try_emplace(name, times).first->second;
        best = { std::min(best.real, times.real), std::min(best.processor, times.processor) };
        if (run.repetition_index + 1 < run.repetitions)
            return;
        std::printf("%-40s %12.1f us", name.c_str(), best.real * 1e6);
        for (auto const& [counter, value] : run.counters)
            std::printf("  %s %.1f", counter.c_str(), value.value);
        std::printf("\n");
    }

    std::map<std::string, Times> m_best;
};
