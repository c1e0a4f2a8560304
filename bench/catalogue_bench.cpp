// The catalogue of 1,000 studies with 20 lessons each, from real files to the tree of the loaded
// form. The floor is the heads alone: each opened, read in one call, each byte converted to a
// 16-bit character.

#include "catalogue/frmContents.h"
#include "headless/headless_host.h"
#include "platform/posix/posix_file_system.h"
#include "program/program.h"
#include "ratios.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

static constexpr double atMost = 4.5;
static constexpr int studies = 1000, lessons = 20;

namespace {

/// Forgets everything.
class NoSettings final : public SettingsStore {
public:
    Outcome<std::optional<Text>> Read(TextView, TextView) const override
    {
        return std::optional<Text>();
    }
    Outcome<Done> Write(TextView, TextView, TextView) override { return Done {}; }
    Outcome<Done> DeleteSection(TextView, Backup const&) override { return Done {}; }
    Outcome<std::vector<Entry>> InSection(TextView) const override { return std::vector<Entry>(); }
    Outcome<std::vector<Text>> Sections() const override { return std::vector<Text>(); }
    Outcome<std::vector<Entry>> All() const override { return std::vector<Entry>(); }
    Outcome<Done> WriteAll(std::vector<Entry> const&, Existing) override { return Done {}; }
    std::optional<Failure> TakeReport() override { return std::nullopt; }
};

class NoShell final : public Shell {
public:
    bool Execute(TextView, TextView) override { return false; }
};

/// Counts the bytes that are read through it.
class CountingFiles final : public FileSystem {
public:
    explicit CountingFiles(FileSystem& files)
        : m_files(files)
    {
    }
    mutable std::size_t bytes = 0;

    Presence LookFor(TextView path) const override { return m_files.LookFor(path); }
    bool FolderExists(TextView path) const override { return m_files.FolderExists(path); }
    Outcome<std::uint64_t> FileSize(TextView path) const override { return m_files.FileSize(path); }
    Outcome<std::unique_ptr<InputFile>> Open(TextView path) const override
    {
        auto file = m_files.Open(path);
        if (!file)
            return file.failure();
        return std::unique_ptr<InputFile>(std::make_unique<Input>(std::move(*file), bytes));
    }
    Outcome<std::string> ReadAll(TextView path, std::uint64_t atMost) const override
    {
        return m_files.ReadAll(path, atMost);
    }
    Outcome<Done> Write(TextView path, std::string_view what) override
    {
        return m_files.Write(path, what);
    }
    Outcome<bool> Create(TextView path, std::string_view contents) override
    {
        return m_files.Create(path, contents);
    }
    Outcome<Done> WriteTemporary(TextView path, std::string_view what) override
    {
        return m_files.WriteTemporary(path, what);
    }
    Outcome<Done> SetAside(TextView path) override { return m_files.SetAside(path); }
    Outcome<Done> CreateFolder(TextView path) override { return m_files.CreateFolder(path); }
    Outcome<Done> Delete(TextView path) override { return m_files.Delete(path); }
    std::vector<Text> List(TextView pattern) const override { return m_files.List(pattern); }
    Text ApplicationFolder() const override { return m_files.ApplicationFolder(); }
    Text TemporaryFolder() const override { return m_files.TemporaryFolder(); }
    Text TemporaryName() override { return m_files.TemporaryName(); }

private:
    class Input final : public InputFile {
    public:
        Input(std::unique_ptr<InputFile> file, std::size_t& count)
            : m_file(std::move(file))
            , m_count(count)
        {
        }
        Outcome<std::size_t> Read(std::span<char> block) override
        {
            auto const read = m_file->Read(block);
            m_count += read ? *read : 0;
            return read;
        }

    private:
        std::unique_ptr<InputFile> m_file;
        std::size_t& m_count;
    };

    FileSystem& m_files;
};

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

/// The studies, each with a body of so many bytes behind its head, in the current folder.
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
    CountingFiles counting { files };
    HeadlessHost host { files };
    NoSettings settings;
    NoShell shell;
    InlineWriter writer;
    Program program { host, counting, settings, writer, shell };
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
    auto const folder = fs::temp_directory_path() / ("catalogue_bench-" + std::to_string(getpid()));
    fs::create_directories(folder);
    fs::current_path(folder);
    std::size_t read[2];
    int run = 0;
    for (std::size_t const body : { std::size_t { 8 * 1024 }, std::size_t { 128 * 1024 } }) {
        WriteStudies(body);
        Bench bench;
        bench.program.Start({});
        bench.program.GetScreen().CloseAll();
        read[run++] = bench.counting.bytes;
    }
    Bench bench;
    benchmark::Initialize(&count, words);
    RegisterShort("floor: the heads", ReadHeads);
    RegisterShort("the catalogue", [&](benchmark::State& state) { LoadCatalogue(state, bench); });
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("the catalogue", "floor: the heads", atMost);
    std::printf("bytes read with bodies of 8 KB and of 128 KB: %zu and %zu: %s\n", read[0], read[1],
        read[0] == read[1] ? "met" : "MISSED");
    fs::current_path("/");
    fs::remove_all(folder);
}
