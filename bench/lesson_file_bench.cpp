// The last lesson of a study of 1,000 lessons in 10 MB, read from a real file. The floor is the
// same file read in one call, each byte converted to a 16-bit character. The memory in use at its
// height is counted as well, for files of two sizes.

#include "ratios.h"
#include "real_file.h"
#include "study/lesson_file.h"

#include <malloc.h>
#include <random>

static constexpr double atMost = 8;

/// Every how many turns the host is called, as on a desktop.
static constexpr Turns::Count turnsBetween = 5'000;

// What is allocated now, and at its height.
static std::size_t inUse = 0;
static std::size_t height = 0;

// Not inlined, so that the compiler doesn't take the pair for mismatched.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    void* const memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    inUse += malloc_usable_size(memory);
    height = std::max(height, inUse);
    return memory;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    inUse -= malloc_usable_size(memory);
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
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

/// The file holds a study of so many lessons.
void LastLesson(benchmark::State& state, RealFile const& file, int lessons)
{
    Turns turns;
    turns = Turns([&turns] { turns.Arm(turnsBetween); });
    turns.Arm(turnsBetween);
    auto const studyKey = file.Path() + u":" + FromNumber(lessons);
    for (auto _ : state) {
        auto const before = height = inUse;
        auto const block = ParseLessonBlock(file.Files(), studyKey, turns);
        if (!block || block->body.pages.size() != 30)
            state.SkipWithError("the lesson wasn't read");
        state.counters["memory_KB"] = static_cast<double>(height - before) / 1024;
    }
}

void Floor(benchmark::State& state, RealFile const& file)
{
    std::vector<char16_t> text(file.Size());
    for (auto _ : state) {
        auto const bytes = file.Files().ReadAll(file.Path());
        ConvertEach(*bytes, text.data());
    }
}

} // namespace

int main(int count, char** arguments)
{
    static constexpr int sizes[] = { 100, 1'000 };
    RatioReporter reporter;
    benchmark::Initialize(&count, arguments);
    RealFile const small("small_study-1.dat", Study(sizes[0]));
    RealFile const large("large_study-1.dat", Study(sizes[1]));
    std::printf("100 lessons: %zu bytes, 1,000 lessons: %zu bytes\n", small.Size(), large.Size());
    RegisterShort("last of 100", LastLesson, std::cref(small), sizes[0]);
    RegisterShort("last of 100, floor", Floor, std::cref(small));
    RegisterShort("last of 1,000", LastLesson, std::cref(large), sizes[1]);
    RegisterShort("last of 1,000, floor", Floor, std::cref(large));
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("last of 100", "last of 100, floor", atMost);
    reporter.PrintRatio("last of 1,000", "last of 1,000, floor", atMost);
}
