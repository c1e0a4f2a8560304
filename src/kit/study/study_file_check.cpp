#include "kit/study/study_file_check.h"

#include "study/codec.h"
#include "study/lesson_file.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace {

/// The number after the ">" of a marker; nothing if there is none, or one with leading zeros.
std::optional<std::int64_t> MarkerNumber(TextView line)
{
    if (!line.starts_with(u'>'))
        return std::nullopt;
    line.remove_prefix(1);
    return line.starts_with(u'0') ? std::nullopt : ToInteger(line.substr(0, CountDigits(line)));
}

/// Follows the grammar line by line.
class Grammar {
public:
    explicit Grammar(CheckLines& lines)
        : m_lines(lines)
    {
    }

    void Add(TextView line) { m_state = (this->*m_state.step)(line); }

    StudyOutline Finish()
    {
        if (m_state.step != &Grammar::Marker)
            m_lines.Report("the file ends; expected " + Wanted());
        else if (m_lesson < m_outline.lessons.size())
            m_lines.Report("the file ends; expected " + MarkerName());
        return std::move(m_outline);
    }

private:
    struct State {
        State (Grammar::*step)(TextView line);
    };

    std::int64_t Count() const { return static_cast<std::int64_t>(m_outline.lessons.size()); }
    std::string MarkerName() const { return "the marker >" + std::to_string(m_lesson + 1); }

    std::string Wanted() const
    {
        struct Row {
            State (Grammar::*step)(TextView line);
            char const* wanted;
        };
        constexpr Row rows[] = {
            { &Grammar::StudyTitle, "<prefix>:<title>" },
            { &Grammar::Description, "the description of the study" },
            { &Grammar::Lesson, "the “-” that ends the list of lessons" },
            { &Grammar::Introduction, "the introduction of the lesson" },
            { &Grammar::Body, "the closing line, which begins with “-”" },
            { &Grammar::MainName, "the name of the main verse file" },
            { &Grammar::SupplementalName, "the name of the supplemental verse file" },
        };
        for (auto const& row : rows) {
            if (row.step == m_state.step)
                return row.wanted;
        }
        return MarkerName();
    }

    State StudyTitle(TextView line)
    {
        auto const study = SplitStudyLine(line);
        if (!Contains(line, u':'))
            m_lines.Report("expected <prefix>:<title>, found no colon in " + Excerpt(line));
        else if (study.studyPrefix.empty() || study.studyTitle.empty())
            m_lines.Report("expected <prefix>:<title>, found an empty one");
        return { &Grammar::Description };
    }

    State Description(TextView) { return { &Grammar::Lesson }; }

    State Lesson(TextView line)
    {
        CheckForCatalogue(line);
        auto const titles = ReadLessonLine(line);
        if (!titles && line.starts_with(u'>')) {
            m_lines.Report(
                "expected the “-” that ends the list of lessons, found " + Excerpt(line));
            return Marker(line);
        }
        if (!titles) {
            if (m_outline.lessons.empty())
                m_lines.Report("the list of lessons ends; expected the title of a lesson");
            return { &Grammar::Marker };
        }
        if (Trim(SplitTitles(*titles).title).empty())
            m_lines.Report("expected the title of a lesson, found an empty one");
        else if (std::ranges::count(*titles, u'/') > 1)
            m_lines.Report("expected <title> or <title>/<second title>, found more");
        m_outline.lessons.emplace_back(*titles);
        return { &Grammar::Lesson };
    }

    /// The catalogue keeps the blanks at the ends of a line, and by them takes it for something
    /// else.
    void CheckForCatalogue(TextView line)
    {
        Text kept;
        DecodeCatalogueLine(m_lines.Raw(), kept);
        if (line.starts_with(u'-') && !kept.starts_with(u'-'))
            m_lines.Report(
                "expected the “-” that ends the list of lessons at the start of its line");
        else if (line.ends_with(u'/') && !kept.ends_with(u'/'))
            m_lines.Report(
                "expected nothing after the “/” at the end of the title, which the catalogue "
                "shows now");
    }

    State Marker(TextView line)
    {
        if (line.empty())
            return { &Grammar::Marker };
        auto const number = MarkerNumber(line);
        if (!number) {
            if (m_lesson >= m_outline.lessons.size())
                m_lines.Report("expected the end of the file, found " + Excerpt(line));
            else if (!m_isLost)
                m_lines.Report("expected " + MarkerName() + ", found " + Excerpt(line));
            m_isLost = true;
            return { &Grammar::Marker };
        }
        m_isLost = false;
        auto const wanted = static_cast<std::int64_t>(m_lesson) + 1;
        if (*number > Count())
            m_lines.Report("expected no lesson " + std::to_string(*number) + ", since the list has "
                + std::to_string(m_outline.lessons.size()));
        else if (*number != wanted)
            m_lines.Report("expected " + MarkerName() + ", found >" + std::to_string(*number));
        // The blocks after it are counted from here, unless the list has no such lesson.
        m_lesson = *number > Count() ? m_lesson + 1 : static_cast<std::size_t>(*number);
        m_hasPage = false;
        return { &Grammar::Introduction };
    }

    State Introduction(TextView line)
    {
        if (MarkerNumber(line)) {
            m_lines.Report("expected the introduction of the lesson, found " + Excerpt(line));
            return Marker(line);
        }
        auto const slash = line.rfind(u'/');
        auto last = slash == TextView::npos ? line : line.substr(slash + 1);
        bool const isReplaced = slash == TextView::npos && Contains(line, u"XXXX");
        if (last.starts_with(u'^'))
            last.remove_prefix(1);
        if (last.starts_with(u'-') && !isReplaced)
            m_lines.Report(
                "expected an introduction whose last paragraph doesn't begin with “-”, which ends "
                "the body");
        return { &Grammar::Body };
    }

    State Body(TextView line)
    {
        if (line.starts_with(u'-'))
            return Close(line);
        if (line.starts_with(u'[')) {
            if (!m_hasPage)
                m_lines.Report("an answer; expected a page before it");
            if (line.size() < 2 || !line.ends_with(u']'))
                m_lines.Report(
                    "expected “]” at the end of the answer, whose last character is never shown");
        } else if (line.starts_with(u'>') && MarkerNumber(line)) {
            m_lines.Report("expected the closing line and the names of two verse files before "
                + Excerpt(line));
            return Marker(line);
        } else if (IsPageLine(line)) {
            m_hasPage = true;
            CheckPage(line);
        }
        return { &Grammar::Body };
    }

    void CheckPage(TextView raw)
    {
        Text line(raw);
        ExpandBookNames(line);
        auto const stop = line.find(u'.'), blank = line.find(u' ');
        if (stop == TextView::npos || blank == TextView::npos || blank != stop + 1)
            m_lines.Report("expected <label>. <text>, found " + Excerpt(raw));
    }

    State Close(TextView line)
    {
        if (!m_hasPage && !IsPageLine(line))
            m_lines.Report("the lesson ends; expected a page");
        return { &Grammar::MainName };
    }

    /// True if the line can name a verse file.
    bool CheckName(TextView line, char const* which)
    {
        bool const isName = !line.empty() && line.find_first_of(u">[/\\:") == TextView::npos;
        if (isName)
            m_outline.verseFiles.push_back({ Text(line), m_lines.Number() });
        else
            m_lines.Report(std::string("expected the name of the ") + which + " verse file, found "
                + Excerpt(line));
        return isName;
    }

    State MainName(TextView line)
    {
        if (!CheckName(line, "main") && MarkerNumber(line))
            return Marker(line);
        return { &Grammar::SupplementalName };
    }

    State SupplementalName(TextView line)
    {
        if (!CheckName(line, "supplemental") && MarkerNumber(line))
            return Marker(line);
        return { &Grammar::Marker };
    }

    CheckLines& m_lines;
    State m_state { &Grammar::StudyTitle };
    StudyOutline m_outline;
    std::size_t m_lesson = 0; ///< the number of the last block that began
    bool m_hasPage = false; ///< the block has one
    bool m_isLost = false; ///< a line before a marker has been reported
};

} // namespace

StudyOutline CheckStudyLines(CheckLines& lines)
{
    Grammar grammar(lines);
    while (lines.Next())
        grammar.Add(lines.Line());
    return grammar.Finish();
}
