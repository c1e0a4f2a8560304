// The catalogue of 1,000 studies with 20 lessons each, from real files to the tree of the loaded
// form. The floor is the heads alone: each opened, read in one call, each byte converted to a
// 16-bit character.

#include "catalogue/frmContents.h"
#include "headless/headless_host.h"
#include "platform/posix/posix_file_system.h"
#include "program/program.h"
#include "ratios.h"
#include "support/memory_settings_store.h"
#include "support/memory_shell.h"
#include "support/test_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

static constexpr double atMost = 4.5;
static constexpr int studies = 1000, lessons = 20;

namespace {

/// The bytes that this process has read so far, from whatever file.
long long BytesRead()
{
    std::ifstream counts("/proc/self/io");
    std::string name;
    long long bytes = 0;
    counts >> name >> bytes; // the first line: "rchar: 123"
    return bytes;
}

std::string Head(int study)
{
    std::string head = "Study " + std::to_string(study) + ": A title of some length\r\n"
        + "A description of this study, in a sentence or two./It says what the study is about and "
          "for whom it is.\r\n";
    for (int lesson = 1; lesson <= lessons; ++lesson)
        head += (lesson % 2 ? "!Tjoz yvvbo lg dlkllub nlunjm/Thaaolw 5h"
                            : "The title of a lesson/Matthew 6")
            + std::string("\r\n");
    return head + "-\r\n";
}

/// The studies, each with a body of so many bytes after its head, in the current folder.
void WriteStudies(std::size_t body)
{
    for (int study = 0; study < studies; ++study) {
        char name[32];
        std::snprintf(name, sizeof name, "study%04d-1.dat", study);
        std::ofstream(name, std::ios::binary) << Head(study) << std::string(body, 'x');
    }
}

void ReadHeads(benchmark::State& state)
{
    std::vector<std::string> names;
    for (auto const& entry : fs::directory_iterator("."))
        if (entry.is_regular_file())
            names.push_back(entry.path().filename().string());
    std::size_t const size = Head(500).size();
    std::string bytes(size, '\0');
    std::vector<char16_t> converted(size);
    for (auto _ : state)
        for (auto const& name : names) {
            std::FILE* const file = std::fopen(name.c_str(), "rb");
            std::setvbuf(file, nullptr, _IONBF, 0);
            benchmark::DoNotOptimize(std::fread(bytes.data(), 1, size, file));
            std::fclose(file);
            ConvertEach(bytes, converted.data());
        }
}

struct Bench {
    PosixFileSystem files { { "/", fs::absolute("drive_c") } };
    HeadlessHost host { files };
    MemorySettingsStore settings;
    MemoryShell shell;
    InlineWriter writer;
    Program program { host, files, settings, writer, shell };
};

void LoadCatalogue(benchmark::State& state, Bench& bench)
{
    for (auto _ : state) {
        bench.program.Start({});
        bench.program.GetScreen().CloseAll();
    }
}

} // namespace

int main(int count, char** words)
{
    TestFolder const folder;
    fs::current_path(folder.Path());
    std::vector<long long> read;
    for (std::size_t const body : { std::size_t { 8 * 1024 }, std::size_t { 128 * 1024 } }) {
        WriteStudies(body);
        Bench bench;
        auto const before = BytesRead();
        bench.program.Start({});
        bench.program.GetScreen().CloseAll();
        read.push_back(BytesRead() - before);
    }
    Bench bench;
    benchmark::Initialize(&count, words);
    RegisterShort("floor: the heads", ReadHeads);
    RegisterShort("the catalogue", [&](benchmark::State& state) { LoadCatalogue(state, bench); });
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("the catalogue", "floor: the heads", atMost);
    // The counts include the reading of the counts, whose digits vary.
    std::printf("bytes read with bodies of 8 KB and of 128 KB: %lld and %lld: %s\n", read[0],
        read[1], std::abs(read[0] - read[1]) < 100 ? "met" : "MISSED");
}
