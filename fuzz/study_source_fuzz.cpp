// Any source of a study: a study or a fault, never both; and what is written of a study the program
// reads again, lesson by lesson and page by page, the same whether it is scrambled or plain.

#include "check.h"
#include "kit/kit_fixtures.h"
#include "kit/study/study_source.h"
#include "kit/study/study_writer.h"
#include "study/lesson_file.h"
#include "support/memory_file_system.h"

static BibleTexts& TheBible()
{
    static TestFolder const folder;
    static BibleTexts bible = [] {
        WriteTestBible(folder);
        Faults faults;
        return *BibleTexts::Open(folder.Path(), "kjv", faults);
    }();
    return bible;
}

static void CheckPart(OutputFiles const& output, TextView file, PartOfLesson const& part,
    int number, LessonBody& body)
{
    MemoryFileSystem files;
    for (auto const& [name, bytes] : output)
        files.Put(FromUtf8(name.string()), bytes);
    Turns turns;
    auto block = ParseLessonBlock(files, Text(file) + u":" + FromNumber(number), turns);
    CHECK(block);
    auto const size = part.pages.size();
    CHECK(
        block->body.pages.size() == size || (block->body.pages.size() == size + 1 && part.closing));
    for (std::size_t page = 0; page < size; ++page)
        CHECK(!part.pages[page].answer || !block->body.answers[page].empty());
    body = std::move(block->body);
}

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    Faults faults;
    auto const study = ReadStudySource(
        { reinterpret_cast<char const*>(data), size }, "a.txt", TheBible(), faults);
    CHECK(study.has_value() == faults.empty());
    for (auto const& fault : faults)
        CHECK(fault.file == "a.txt" && fault.line >= 0 && !fault.message.empty());
    if (!study)
        return 0;
    auto const plain = WriteStudy(*study, "a", true, "a.txt", faults);
    auto const scrambled = WriteStudy(*study, "a", false, "a.txt", faults);
    CHECK(plain.empty() == scrambled.empty() && plain.empty() == !faults.empty());
    if (plain.empty())
        return 0;
    for (std::size_t lesson = 0; lesson < study->lessons.size(); ++lesson)
        for (std::size_t part = 0; part < 2; ++part) {
            TextView const file = part == 0 ? u"a-1.dat" : u"a-2.dat";
            auto const& source = study->lessons[lesson].parts[part];
            LessonBody first, second;
            CheckPart(plain, file, source, static_cast<int>(lesson) + 1, first);
            CheckPart(scrambled, file, source, static_cast<int>(lesson) + 1, second);
            CHECK(first.pages == second.pages && first.answers == second.answers
                && first.closingLine == second.closingLine);
        }
    return 0;
}
