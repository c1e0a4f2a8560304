#include "catalogue/catalogue_nodes.h"

#include "study/study_head.h"
#include "study/study_key.h"

#include <algorithm>

// Far above any disc; a list of lessons without an end would use up the memory of the machine.
static constexpr std::int64_t mostLessonsOfAStudy = 1'000;
static constexpr std::int64_t mostLessons = 50'000;

/// Gives the number of lessons, at most `most`.
static std::int64_t AddStudy(StudyHead& head, Text const& file, std::int64_t most,
    std::function<void(CatalogueNode const&)> const& add)
{
    static NodeLook const lessonLook { 3, false, catalogueBackColor },
        partLook { 0, false, catalogueBackColor };
    add({ 0, { file }, { head.Title() }, { 4, true, catalogueBackColor, head.Description() } });
    Text const partTwo = PartTwoName(file);
    std::int64_t count = 0;
    while (count < most) {
        auto const title = head.NextLesson();
        if (!title)
            break;
        Text const number = FromNumber(++count);
        add({ 1, { file, number }, { u"Lesson ", number + u": ", *title }, lessonLook });
        add({ 2, { file, u":", number }, { u"Part One" }, partLook });
        add({ 2, { partTwo, u":", number }, { u"Part Two" }, partLook });
    }
    return count;
}

void BuildCatalogue(FileSystem const& files, std::span<Text const> fileList,
    std::function<void(CatalogueNode const&)> const& add)
{
    std::int64_t lessons = 0;
    for (Text const& fileName : fileList)
        if (auto head = StudyHead::Open(files, fileName))
            lessons += AddStudy(
                *head, fileName, std::min(mostLessonsOfAStudy, mostLessons - lessons), add);
}
