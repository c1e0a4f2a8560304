// A verse file is read line by line, with one piece of state: whether the lines belong to the
// lesson. Lines before the first mark do. A line with ">" in it is a mark; at a mark, the reader
// skips lines until it finds one of its own lesson. For lesson 1:
//
//     Read it aloud.              heading; before the first mark, so for every lesson
//     >2                          not this lesson: skip ...
//     4 And, behold, Boaz came
//     >1                          ... up to here
//     ^Ruth 1                     heading, without its "^"
//     1 A man of Bethlehem        verse " 1"
//     16 Where you go, I will go  verse "16"
//
// A verse opens with a number and doesn't end in a digit, so "1 Samuel 16" is a heading.

#include "study/verse_file.h"

#include "platform/text_lines.h"
#include "study/codec.h"
#include "study/lesson_file.h"

#include <utility>

static constexpr TextView verseFileStart = u"V-";

/// True if the line's second character, or its first two together, read as a number.
static bool OpensWithNumber(TextView line)
{
    if (line.size() < 2)
        return false;
    return IsDigit(line[1]) || (IsDigit(line[0]) && (line[1] == u' ' || line[1] == u'.'));
}

static VerseFileItem VerseOf(Text line, double value)
{
    if (line.size() > 3 && value > 0 && value < 10)
        line.insert(line.begin(), u' ');
    if (!OpensWithNumber(line))
        return { VerseFileItem::Kind::PlainVerse, {}, std::move(line) };
    Text number = line.substr(0, 2);
    if (number.ends_with(u' '))
        number.pop_back();
    return { VerseFileItem::Kind::NumberedVerse, std::move(number),
        u" " + Text(Trim(TextView(line).substr(2))) };
}

std::optional<VerseFileItem> ClassifyVerseLine(TextView line)
{
    auto const value = NumericValue(line);
    if (value != 0 && !IsDigit(line.back()))
        return VerseOf(Text(line), value);
    if (line.empty())
        return std::nullopt;
    if (line.starts_with(u'^'))
        line.remove_prefix(1);
    return VerseFileItem { VerseFileItem::Kind::Heading, {}, Text(line) };
}

namespace {

/// Reads the sections of one lesson.
class SectionReader {
public:
    SectionReader(TextLines lines, double lesson, Turns& turns, VerseFileListener const& listener)
        : m_lines(std::move(lines))
        , m_lesson(lesson)
        , m_turns(turns)
        , m_listener(listener)
    {
    }

    void Read()
    {
        while (Next(Counts::Yes)) {
            ExpandBookNames(m_line);
            if (!PassMarks())
                return;
            if (!m_size.Add(m_line.size()))
                return;
            if (auto const item = ClassifyVerseLine(m_line); item && m_listener.item)
                m_listener.item(*item);
        }
    }

private:
    enum class Counts { No, Yes };

    bool Next(Counts counts)
    {
        auto const raw = m_lines.NextBytes();
        if (!raw)
            return false;
        if (counts == Counts::Yes && m_listener.line)
            m_listener.line(raw->size());
        DecodeLine(*raw, m_turns, m_line);
        return true;
    }

    /// If the line is a mark, goes to the first line after a mark of this lesson. That line doesn't
    /// count for the progress, and its abbreviations stay. False if the file ends before.
    bool PassMarks()
    {
        while (Contains(m_line, u'>')) {
            while (
                !m_line.starts_with(u'>') || NumericValue(TextView(m_line).substr(1)) != m_lesson)
                if (!Next(Counts::Yes))
                    return false;
            if (!Next(Counts::No))
                return false;
        }
        return true;
    }

    TextLines m_lines;
    double m_lesson;
    Turns& m_turns;
    VerseFileListener const& m_listener;
    Text m_line;
    LessonSize m_size;
};

} // namespace

Text VerseFileName(TextView name)
{
    Text fileName(Trim(name));
    std::erase(fileName, u'^');
    return Text(verseFileStart) + fileName;
}

bool IsVerseFileName(TextView fileName)
{
    return ToLowerLatin(fileName).starts_with(ToLowerLatin(verseFileStart));
}

Outcome<Done> ReadVerseSection(FileSystem const& files, TextView name, TextView lessonNumber,
    Turns& turns, VerseFileListener const& listener)
{
    auto const fileName = VerseFileName(name);
    auto const size = files.FileSize(fileName);
    if (!size)
        return size.failure();
    if (listener.size)
        listener.size(*size);
    auto lines = TextLines::Open(files, fileName);
    if (!lines)
        return lines.failure();
    SectionReader(std::move(*lines), NumericValue(lessonNumber), turns, listener).Read();
    return Done {};
}
