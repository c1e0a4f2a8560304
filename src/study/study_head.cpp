#include "study/study_head.h"

#include "study/codec.h"

#include <algorithm>

StudyLine SplitStudyLine(TextView line)
{
    auto const fields = Split(line, u':');
    return { Text(fields[0]), fields.size() > 1 ? Text(Trim(fields[1])) : Text() };
}

std::optional<TextView> ReadLessonLine(TextView line)
{
    if (line.starts_with(u'-') || line.starts_with(u'>'))
        return std::nullopt;
    return line.substr(0, line.size() - line.ends_with(u'/'));
}

LessonTitles SplitTitles(TextView titles)
{
    auto const fields = Split(titles, u'/');
    return { fields[0], fields.size() > 1 ? std::optional(fields[1]) : std::nullopt };
}

StudyHead::StudyHead(TextLines lines)
    : m_lines(std::move(lines))
{
}

std::optional<StudyHead> StudyHead::Open(FileSystem const& files, TextView fileName)
{
    auto lines = TextLines::Open(files, fileName);
    if (!lines)
        return std::nullopt;
    std::optional<StudyHead> head = StudyHead(std::move(*lines));
    if (!head->ReadLine(head->m_title) || !head->ReadLine(head->m_description))
        return std::nullopt;
    std::replace(head->m_description.begin(), head->m_description.end(), u'/', u' ');
    return head;
}

bool StudyHead::ReadLine(Text& line)
{
    auto const bytes = m_lines.NextBytes();
    if (bytes)
        DecodeCatalogueLine(*bytes, line);
    return static_cast<bool>(bytes);
}

std::optional<TextView> StudyHead::NextLesson()
{
    return ReadLine(m_lesson) ? ReadLessonLine(m_lesson) : std::nullopt;
}
