#include "catalogue/catalogue_nodes.h"

#include "catalogue/study_head.h"

#include <utility>

static constexpr TextView partOneEnd = u"-1.dat";

/// The name of the file of Part Two. File names match ignoring case, so the end may be written in capitals.
static Text PartTwoName(TextView partOne)
{
    Text name(partOne);
    if (auto const found = name.find(partOneEnd); found != Text::npos)
        ReplaceAll(name, partOneEnd, u"-2.dat");
    else if (name.size() >= partOneEnd.size())
        name[name.size() - 5] = u'2';
    return name;
}

namespace {

/// A text whose end changes from lesson to lesson; its beginning and its memory stay.
class Changing {
public:
    explicit Changing(Text beginning)
        : m_text(std::move(beginning))
        , m_beginning(m_text.size())
    {
    }

    /// Valid until the next call.
    TextView With(TextView end, TextView furtherEnd = {})
    {
        m_text.resize(m_beginning);
        return m_text.append(end).append(furtherEnd);
    }

private:
    Text m_text;
    std::size_t m_beginning; // characters
};

}

/// No disc comes near it; a list of lessons without an end would take the memory of the whole machine.
static constexpr std::int64_t mostLessons = 50'000;

/// Gives the number of lessons, at most `most`.
static std::int64_t AddStudy(StudyHead& head, Text const& file, std::int64_t most,
    std::function<void(CatalogueNode const&)> const& add)
{
    static NodeLook const lessonLook { 3, false, catalogueBackColor }, partLook { 0, false, catalogueBackColor };
    add({ 0, file, head.Title(), { 4, true, catalogueBackColor, head.Description() } });
    Changing lesson(file), caption(u"Lesson "), partOne(file + u":"), partTwo(PartTwoName(file) + u":");
    std::int64_t count = 0;
    while (count < most) {
        auto const title = head.NextLesson();
        if (!title)
            break;
        Text const number = FromNumber(++count);
        add({ 1, lesson.With(number), caption.With(number + u": ", *title), lessonLook });
        add({ 2, partOne.With(number), u"Part One", partLook });
        add({ 2, partTwo.With(number), u"Part Two", partLook });
    }
    return count;
}

void BuildCatalogue(FileSystem const& files, std::span<Text const> fileList,
    std::function<void(CatalogueNode const&)> const& add)
{
    std::int64_t lessons = 0;
    for (Text const& fileName : fileList)
        if (auto head = StudyHead::Open(files, fileName))
            lessons += AddStudy(*head, fileName, mostLessons - lessons, add);
}
