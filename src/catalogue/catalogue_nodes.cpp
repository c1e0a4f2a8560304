#include "catalogue/catalogue_nodes.h"

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

static void AddStudy(StudyHead const& head, std::function<void(CatalogueNode const&)> const& add)
{
    static NodeLook const lessonLook { 3, false, catalogueBackColor }, partLook { 0, false, catalogueBackColor };
    Text const& file = head.fileName;
    add({ 0, file, head.title, { 4, true, catalogueBackColor, head.description } });
    Changing lesson(file), caption(u"Lesson "), partOne(file + u":"), partTwo(PartTwoName(file) + u":");
    for (std::size_t i = 0; i < head.lessonTitles.size(); ++i) {
        Text const number = FromNumber(static_cast<std::int64_t>(i) + 1);
        add({ 1, lesson.With(number), caption.With(number + u": ", head.lessonTitles[i]), lessonLook });
        add({ 2, partOne.With(number), u"Part One", partLook });
        add({ 2, partTwo.With(number), u"Part Two", partLook });
    }
}

void BuildCatalogue(FileSystem const& files, std::span<Text const> fileList,
    std::function<void(CatalogueNode const&)> const& add)
{
    for (Text const& fileName : fileList)
        if (auto const head = ReadStudyHead(files, fileName))
            AddStudy(*head, add);
}
