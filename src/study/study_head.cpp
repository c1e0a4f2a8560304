#include "study/study_head.h"

#include "study/codec.h"

#include <algorithm>

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
    if (!ReadLine(m_lesson))
        return std::nullopt;
    TextView title = m_lesson;
    if (title.ends_with(u'/'))
        title.remove_suffix(1);
    if (title.starts_with(u'-') || title.starts_with(u'>'))
        return std::nullopt;
    return title;
}
