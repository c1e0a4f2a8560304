// The last lesson of a study of 1,000 lessons in 10 MB, read from a real file. The floor is the
// same file read in one call, each byte converted to a 16-bit character. The memory in use at its
// height is counted as well, for files of two sizes.

#include "ratios.h"
#include "real_file.h"
#include "study/lesson_file.h"

#include <malloc.h>
#include <random>

static constexpr double atMost = 8;

// What is allocated now, and at its height.
static std::size_t inUse = 0;
static std::size_t height = 0;

void* operator new(std::size_t size)
{
    void* const memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    inUse += malloc_usable_size(memory);
    height = std::max(height, inUse);
    return memory;
}

void operator delete(void* memory) noexcept
{
    inUse -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

namespace {

std::string ScrambledLine(std::mt19937& random, std::string line, std::size_t length)
{
    while (line.size() < length) {
        for (auto letters = 1 + random() % 9; letters > 0; --letters)
            line += static_cast<char>('a' + random() % 26);
        line += random() % 12 == 0 ? ". " : random() % 30 == 0 ? "/" : " ";
    }
    return "!" + line + static_cast<char>('a' + random() % 26) + "\r\n";
}

/// A study of `lessons` lessons of some 10 KB each, all lines but the markers scrambled.
std::string Study(int lessons)
{
    std::mt19937 random(5);
    std::string file = "Study:Title\r\nDescription\r\n";
    for (int i = 1; i <= lessons; ++i)
        file += ScrambledLine(random, "Lesson ", 40);
    file += "-\r\n";
    for (int i = 1; i <= lessons; ++i) {
        file += ">" + std::to_string(i) + "\r\n" + ScrambledLine(random, "Introduction ", 400);
        for (int page = 1; page <= 30; ++page)
            file += ScrambledLine(random, std::to_string(page) + ". ", 180)
                + ScrambledLine(random, "[", 120);
        file += "-\r\nV\r\nW\r\n";
    }
    return file;
}

struct StudyOnDisc {
    RealFile file;
    Text lastLesson;
};

void LastLesson(benchmark::State& state, StudyOnDisc const& study)
{
    Turns turns;
    std::function<void()> const again = [&turns] { turns.Arm(5'000); };
    turns = Turns(again);
    turns.Arm(5'000);
    for (auto _ : state) {
        auto const before = height = inUse;
        auto const block = ParseLessonBlock(study.file, study.lastLesson, turns);
        if (!block || block->body.pages.size() != 30)
            state.SkipWithError("the lesson wasn't read");
        state.counters["memory_KB"] = static_cast<double>(height - before) / 1024;
    }
}

void Floor(benchmark::State& state, StudyOnDisc const& study)
{
    std::vector<char16_t> text(study.file.Size());
    std::string bytes(study.file.Size(), '\0');
    for (auto _ : state) {
        study.file.ReadWhole(bytes);
        ConvertEach(bytes, text.data());
    }
}

} // namespace

int main(int count, char** arguments)
{
    StudyOnDisc const large { RealFile("lesson_file_bench-1.dat", Study(1'000)),
        u"lesson_file_bench-1.dat:1000" };
    StudyOnDisc const small { RealFile("lesson_file_bench-2.dat", Study(100)),
        u"lesson_file_bench-2.dat:100" };
    benchmark::RegisterBenchmark("last of 1,000", LastLesson, std::cref(large));
    benchmark::RegisterBenchmark("last of 1,000, floor", Floor, std::cref(large));
    benchmark::RegisterBenchmark("last of 100", LastLesson, std::cref(small));
    benchmark::RegisterBenchmark("last of 100, floor", Floor, std::cref(small));

    benchmark::Initialize(&count, arguments);
    RatioReporter reporter;
    std::printf("%zu and %zu bytes\n", large.file.Size(), small.file.Size());
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("last of 1,000", "last of 1,000, floor", atMost);
    reporter.PrintRatio("last of 100", "last of 100, floor", atMost);
}
