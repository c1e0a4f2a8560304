// Decoding lines. The floor is the conversion of the same bytes to 16-bit characters by the code
// page's table.

#include "ratios.h"
#include "study/codec.h"

#include <random>

namespace {

constexpr double atMost = 5;

/// Words of letters as a study has them, `length` characters.
std::string Prose(std::size_t length)
{
    std::mt19937 random(7);
    std::string text;
    while (text.size() < length) {
        text += static_cast<char>(random() % 8 == 0 ? 'A' + random() % 26 : 'a' + random() % 26);
        for (auto letters = random() % 9; letters > 0; --letters)
            text += static_cast<char>('a' + random() % 26);
        text += random() % 12 == 0 ? ". " : random() % 20 == 0 ? "/" : " ";
    }
    text.resize(length);
    return text;
}

/// Scrambled lines of some 10 to 300 characters with all 26 shifts, 1 MB.
std::vector<std::string> ScrambledLines()
{
    std::mt19937 random(3);
    std::vector<std::string> lines;
    for (std::size_t size = 0; size < 1'000'000; size += lines.back().size())
        lines.push_back('!' + Prose(10 + random() % 290) + static_cast<char>('a' + random() % 26));
    return lines;
}

/// Turns as a desktop arms them: one in some thousands comes to its host.
struct DesktopTurns {
    Turns turns { [this] { turns.Arm(5'000); } };
    DesktopTurns() { turns.Arm(5'000); }
};

void Lines(benchmark::State& state, std::vector<std::string> const& lines)
{
    DesktopTurns host;
    Text text;
    for (auto _ : state)
        for (auto const& line : lines) {
            DecodeLine(line, host.turns, text);
            benchmark::DoNotOptimize(text.data());
        }
}

void LinesFloor(benchmark::State& state, std::vector<std::string> const& lines)
{
    std::vector<char16_t> text(1'000);
    for (auto _ : state)
        for (auto const& line : lines)
            ConvertEach(line, text.data());
}

void OneLine(benchmark::State& state, std::string const& line)
{
    Lines(state, { line });
}

void OneLineFloor(benchmark::State& state, std::string const& line)
{
    std::vector<char16_t> text(line.size());
    for (auto _ : state)
        ConvertEach(line, text.data());
}

std::string Repeated(std::string_view part, int times)
{
    std::string text;
    while (times-- > 0)
        text += part;
    return text;
}

void Names(benchmark::State& state, Text const& text)
{
    for (auto _ : state) {
        Text expanded = text;
        ExpandBookNames(expanded);
        benchmark::DoNotOptimize(expanded.data());
    }
}

} // namespace

int main(int count, char** arguments)
{
    std::map<std::string, std::string> const longLines {
        { "plain 1 KB", Prose(1'000) },
        { "scrambled 1 KB", "!" + Prose(1'000) + "k" },
        { "scrambled 100 KB", "!" + Prose(100'000) + "k" },
        { "scrambled 1 MB", "!" + Prose(1'000'000) + "k" },
    };
    // No study has such lines; the point is that ten times the length takes ten times as long.
    std::map<std::string, std::string> runs;
    for (auto const& [name, part] : { std::pair("slashes", "/"), std::pair("tabs", "\t"),
             std::pair("blanks", " "), std::pair("line ends", "\r\n") }) {
        runs[name + std::string(" 10,000")] = Repeated(part, 10'000);
        runs[name + std::string(" 100,000")] = Repeated(part, 100'000);
    }
    auto const lines = ScrambledLines();
    RegisterShort("scrambled lines", Lines, lines);
    RegisterShort("scrambled lines, floor", LinesFloor, lines);
    for (auto const& [name, line] : longLines) {
        RegisterShort(name, OneLine, line);
        RegisterShort(name + ", floor", OneLineFloor, line);
    }
    for (auto const& [name, line] : runs)
        RegisterShort(name, OneLine, line);
    auto const prose = Prose(10'000);
    RegisterShort("book names, none", Names, FromCodePage(prose));
    RegisterShort("book names, none, floor", OneLineFloor, prose);
    auto const references = Repeated("see Jn. 3 ", 1'000);
    RegisterShort("book names, many", Names, FromCodePage(references));

    benchmark::Initialize(&count, arguments);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("scrambled lines", "scrambled lines, floor", 2.5);
    for (auto const& [name, line] : longLines)
        reporter.PrintRatio(name, name + ", floor", atMost);
    reporter.PrintRatio("book names, none", "book names, none, floor", atMost);
}
