// A study file has a head and then a block for each lesson. To read lesson 2, the reader goes
// through the file once, and each of its steps takes the next lines:
//
//     Ruth: A Stranger Comes Home      ReadHead
//     Two evenings with one book.      ReadTitleLine skips the description ...
//     The Road to Bethlehem            ... and the titles before the one it wants
//     In the Field
//     -                                FindBlock skips everything up to the marker of lesson 2
//     >2
//     In the Field/^Read it aloud.     ReadIntroduction: paragraphs, bold ones marked with "^"
//     1. Where does Ruth work?         ReadBody: pages, each with the answer below it, if any ...
//     [In the field of Boaz.]
//     -                                ... up to and including the closing line
//     Ruth2                            ReadName, twice
//     Ruth2s
//
// The end of the list of lessons isn't looked for: a title is found by its place, a block by its
// marker. Lines count toward LessonSize from the marker on.

#include "study/lesson_file.h"

#include "study/codec.h"
#include "study/general_texts.h"
#include "study/model_answer.h"

#include <optional>
#include <utility>

/// The paragraph of an introduction at an index.
static IntroParagraph ParagraphOf(TextView field, std::size_t index)
{
    IntroParagraph paragraph { Text(field), index == 0 };
    if (index == 0 && Contains(paragraph.text, u"XXXX"))
        paragraph.text = u"Scripture references as given.";
    if (paragraph.text.starts_with(u'^')) {
        paragraph.text.erase(0, 1);
        paragraph.bold = true;
    }
    ExpandBookNames(paragraph.text);
    return paragraph;
}

bool IsPageLine(TextView line)
{
    return line.size() >= 3 && !line.starts_with(u'[') && !line.starts_with(u'#');
}

bool ReplacesConclusion(TextView closingLine)
{
    return Contains(closingLine, u"Congratulations");
}

/// Adds what a line of a lesson's body says.
static void AddBodyLine(LessonBody& body, TextView line)
{
    if (line.starts_with(u'[')) {
        if (!body.answers.empty())
            body.answers.back() = line.size() > 2 ? line.substr(1, line.size() - 2) : TextView();
    } else if (IsPageLine(line)) {
        body.pages.emplace_back(line);
        body.answers.emplace_back(answersVary);
    }
}

LessonReader::LessonReader(
    FileSystem const& files, StudyKey key, std::int64_t number, TextLines lines, Turns& turns)
    : m_files(&files)
    , m_turns(&turns)
    , m_key(std::move(key))
    , m_number(number)
    , m_lines(std::move(lines))
{
}

Outcome<LessonReader> LessonReader::Open(FileSystem const& files, TextView studyKey, Turns& turns)
{
    auto key = SplitStudyKey(studyKey);
    auto const number = ToInteger(key.lessonNumber);
    if (!number || *number < 1)
        return Failure { key.fileName, 0,
            u"\"" + key.lessonNumber + u"\" is no number of a lesson" };
    auto lines = TextLines::Open(files, key.fileName);
    if (!lines)
        return lines.failure();
    return LessonReader(files, std::move(key), *number, std::move(*lines), turns);
}

Outcome<StudyLine> LessonReader::ReadHead()
{
    if (auto const read = Next(u"the title of the study"); !read)
        return read.failure();
    return SplitStudyLine(m_line);
}

Outcome<Text> LessonReader::ReadTitleLine()
{
    if (auto const read = Next(u"the description of the study"); !read)
        return read.failure();
    auto const wanted = u"the title of lesson " + m_key.lessonNumber;
    for (std::int64_t i = 0; i < m_number; ++i)
        if (auto const read = Next(wanted); !read)
            return read.failure();
    return m_line;
}

Outcome<Done> LessonReader::FindBlock()
{
    auto const marker = u">" + m_key.lessonNumber;
    auto const wanted = u"the line \"" + marker + u"\" that opens the lesson";
    while (!m_line.starts_with(marker))
        if (auto const read = Next(wanted); !read)
            return read.failure();
    m_isInLesson = true;
    return Done {};
}

Outcome<Done> LessonReader::ReadIntroduction(
    std::function<void(IntroParagraph const&)> const& listener)
{
    if (auto const read = Next(u"the introduction of the lesson"); !read)
        return read.failure();
    if (m_line.empty())
        return Done {};
    auto const line = std::move(m_line);
    auto const fields = Split(line, u'/');
    if (!m_size.Add(0, fields.size()))
        return Fail(u"the introduction has more than 40,000 paragraphs");
    for (std::size_t i = 0; i < fields.size(); ++i) {
        auto paragraph = ParagraphOf(fields[i], i);
        listener(paragraph);
        m_line = std::move(paragraph.text); // The last one decides whether there is a body.
    }
    return Done {};
}

Outcome<LessonBody> LessonReader::ReadBody()
{
    LessonBody body;
    while (!m_line.starts_with(u'-')) {
        if (auto const read = Next(u"the line \"-\" that closes the lesson"); !read)
            return read.failure();
        ExpandBookNames(m_line);
        AddBodyLine(body, m_line);
    }
    body.closingLine = m_line;
    if (!ReplacesConclusion(body.closingLine)) {
        if (auto const conclusion = ReadConclusion(*m_files, *m_turns)) {
            body.pages.push_back(u". " + *conclusion);
            body.answers.emplace_back();
        }
    }
    if (body.pages.empty())
        return Fail(u"the lesson has no page");
    return body;
}

Outcome<Text> LessonReader::ReadName()
{
    if (auto const read = Next(u"the names of the two verse files"); !read)
        return read.failure();
    return m_line;
}

Outcome<Done> LessonReader::Next(TextView wanted)
{
    if (m_lines.AtEnd())
        return Fail(u"the file ends before " + Text(wanted));
    auto const raw = m_lines.NextBytes();
    if (!raw)
        return raw.failure();
    if (m_isInLesson && !m_size.Add(raw->size()))
        return Fail(u"the lesson is larger than 4 MB, or has more than 40,000 lines");
    DecodeLine(*raw, *m_turns, m_line);
    return Done {};
}

Failure LessonReader::Fail(Text reason) const
{
    return { m_key.fileName, m_lines.LineNumber(), std::move(reason) };
}

/// Moves the value of a step into `to`, or gives the failure of the step.
template <class Value> static std::optional<Failure> TakeValue(Outcome<Value> step, Value& to)
{
    if (!step)
        return step.failure();
    to = std::move(*step);
    return std::nullopt;
}

Outcome<LessonBlock> ParseLessonBlock(FileSystem const& files, TextView studyKey, Turns& turns)
{
    auto reader = LessonReader::Open(files, studyKey, turns);
    if (!reader)
        return reader.failure();
    LessonBlock block;
    block.partWord = reader->PartWord();
    if (auto failure = TakeValue(reader->ReadHead(), block.study))
        return *failure;
    if (auto failure = TakeValue(reader->ReadTitleLine(), block.titleLine))
        return *failure;
    if (auto const found = reader->FindBlock(); !found)
        return found.failure();
    auto const add
        = [&](IntroParagraph const& paragraph) { block.introParagraphs.push_back(paragraph); };
    if (auto const read = reader->ReadIntroduction(add); !read)
        return read.failure();
    if (auto failure = TakeValue(reader->ReadBody(), block.body))
        return *failure;
    if (auto failure = TakeValue(reader->ReadName(), block.mainVerseName))
        return *failure;
    if (auto failure = TakeValue(reader->ReadName(), block.supplementalVerseName))
        return *failure;
    return block;
}
