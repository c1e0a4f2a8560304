// The publisher's kit: the check of a study file of 10 MB beside the reading of its bytes, each
// converted once; the import of both Bibles and the making of both studies as a whole, from file to
// file.
//
//   kit_bench [EXPORTS]    a folder with the exports that packaging/make_disc.sh leaves (left out:
//   build/exports)

#include "kit/bible/bible_import.h"
#include "kit/bible/bible_texts.h"
#include "kit/common/files.h"
#include "kit/study/scramble.h"
#include "kit/study/study_check.h"
#include "kit/study/study_source.h"
#include "kit/study/study_writer.h"
#include "ratios.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <sys/resource.h>

namespace fs = std::filesystem;

namespace {

constexpr double checkAtMost = 10; // times its floor
constexpr double importAtMost = 3, makeAtMost = 1; // seconds
constexpr double memoryAtMost = 150; // megabytes

/// A study file of some 10 MB without a fault, every line scrambled, and its other part and verse
/// file beside it.
void WriteLargeStudy(fs::path const& folder)
{
    std::string const sentence
        = "Read the passage twice and tell in your own words what it says; then go on. ";
    std::vector<std::string> lines { "Large: A Study", "For the bench." };
    int const lessons = 1000;
    for (int lesson = 1; lesson <= lessons; ++lesson)
        lines.push_back("Lesson " + std::to_string(lesson) + "/Its second title");
    lines.push_back("-");
    for (int lesson = 1; lesson <= lessons; ++lesson) {
        lines.push_back('>' + std::to_string(lesson));
        lines.push_back("Heading/^Bold/" + sentence + sentence);
        for (int page = 1; page <= 20; ++page) {
            lines.push_back(std::to_string(page) + ". " + sentence + sentence + '/' + sentence);
            lines.push_back('[' + sentence + sentence + sentence + ']');
        }
        lines.insert(lines.end(), { "-", "x", "x" });
    }
    std::string bytes;
    for (std::size_t i = 0; i < lines.size(); ++i)
        bytes += FileLine(lines[i], i, false) + "\r\n";
    static_cast<void>(ReplaceFiles(
        folder, { { "large-1.dat", bytes }, { "large-2.dat", bytes }, { "V-x", ">1\r\n" } }));
}

void Check(benchmark::State& state, fs::path const& file)
{
    for (auto _ : state) {
        Faults faults;
        CheckFile(file, faults);
        if (!faults.empty())
            state.SkipWithError(ToString(faults[0]).c_str());
    }
}

void CheckFloor(benchmark::State& state, fs::path const& file)
{
    for (auto _ : state) {
        Faults faults;
        auto const bytes = ReadWhole(file, faults);
        std::vector<char16_t> text(bytes->size());
        ConvertEach(*bytes, text.data());
    }
}

/// Runs once and says how long it took, or what went wrong.
void Once(std::string const& what, double atMost, std::function<void(Faults&)> const& work)
{
    Faults faults;
    auto const start = std::chrono::steady_clock::now();
    work(faults);
    std::chrono::duration<double> const seconds = std::chrono::steady_clock::now() - start;
    if (!faults.empty()) {
        std::printf("%s: %s\n", what.c_str(), ToString(faults[0]).c_str());
        return;
    }
    std::printf("%-40s %6.3f s, at most %g s: %s\n", what.c_str(), seconds.count(), atMost,
        seconds.count() <= atMost ? "met" : "MISSED");
}

void Deliver(fs::path const& disc, OutputFiles const& files, Faults& faults)
{
    if (auto const replaced = ReplaceFiles(disc, files); !replaced)
        faults.push_back(ToFault(replaced.failure()));
}

void Import(
    fs::path const& file, std::string const& translation, fs::path const& disc, Faults& faults)
{
    auto const bytes = ReadWhole(file, faults);
    auto const import
        = bytes ? ImportBible(*bytes, file.string(), translation, faults) : std::nullopt;
    if (import)
        Deliver(disc, import->files, faults);
}

void MakeStudies(fs::path const& disc, Faults& faults)
{
    for (auto const& entry : fs::directory_iterator(SPARROWFIELD_SOURCE_DIR "/data/studies")) {
        auto bible = BibleTexts::Open(disc, "kjv", faults);
        auto const bytes = ReadWhole(entry.path(), faults);
        if (!bible || !bytes)
            return;
        auto const study = ReadStudySource(*bytes, entry.path().string(), *bible, faults);
        if (study)
            Deliver(
                disc, WriteStudy(*study, entry.path().stem().string(), false, "", faults), faults);
    }
}

void BenchDisc(fs::path const& exports, fs::path const& disc)
{
    std::error_code error;
    for (auto const& entry : fs::directory_iterator(exports, error)) {
        auto const name = entry.path().filename().string();
        auto const translation = name.starts_with("engKJV") ? "kjv" : "nasb";
        Once("import of " + name, importAtMost,
            [&](Faults& faults) { Import(entry.path(), translation, disc, faults); });
    }
    if (error) {
        std::printf("%s: %s; make the disc first\n", exports.c_str(), error.message().c_str());
        return;
    }
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    auto const peak = static_cast<double>(usage.ru_maxrss) / 1024;
    std::printf("%-40s %6.1f MB, at most %g MB: %s\n", "memory at its height", peak, memoryAtMost,
        peak <= memoryAtMost ? "met" : "MISSED");
    Once("both studies", makeAtMost, [&](Faults& faults) { MakeStudies(disc, faults); });
}

} // namespace

int main(int count, char** arguments)
{
    benchmark::Initialize(&count, arguments);
    auto const folder = fs::temp_directory_path() / "sparrowfield-kit-bench";
    fs::remove_all(folder);
    fs::create_directory(folder);
    BenchDisc(count > 1 ? arguments[1] : SPARROWFIELD_SOURCE_DIR "/build/exports", folder);
    WriteLargeStudy(folder);
    RegisterShort("check of a 10 MB study", Check, folder / "large-1.dat");
    RegisterShort("check of a 10 MB study, floor", CheckFloor, folder / "large-1.dat");
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("(the check reads the other part's list of lessons too)\n");
    reporter.PrintRatio("check of a 10 MB study", "check of a 10 MB study, floor", checkAtMost);
    fs::remove_all(folder);
}
