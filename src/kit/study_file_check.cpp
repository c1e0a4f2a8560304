#include "kit/study_file_check.h"

#include "study/codec.h"

#include <cstdint>
#include <optional>

namespace {

/// The number behind the ">" of a marker; nothing if there is none.
std::optional<std::int64_t> MarkerNumber(TextView line)
{
    auto const digits = line.substr(1, line.find_first_not_of(u"0123456789", 1) - 1);
    return line.starts_with(u'>') && !digits.empty() ? ToInteger(digits) : std::nullopt;
}

bool Begins(TextView line, char16_t character)
{
    return line.starts_with(character);
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
        auto const colon = line.find(u':');
        if (colon == TextView::npos)
            m_lines.Report("expected <prefix>:<title>, found no colon in " + Excerpt(line));
        else if (Trim(line.substr(colon + 1)).empty())
            m_lines.Report("expected a title behind the colon");
        else if (line.find(u':', colon + 1) != TextView::npos)
            m_lines.Report("what follows the second colon is never shown; expected <prefix>:<title>");
        return { &Grammar::Description };
    }

    State Description(TextView line)
    {
        if (Begins(line, u'-') || Begins(line, u'>'))
            m_lines.Report("expected the description of the study, found " + Excerpt(line));
        return { &Grammar::Lesson };
    }

    State Lesson(TextView line)
    {
        auto title = line;
        if (title.ends_with(u'/'))
            title.remove_suffix(1);
        if (Begins(title, u'-')) {
            if (m_outline.lessons.empty())
                m_lines.Report("the list of lessons ends; expected the title of a lesson");
            return { &Grammar::Marker };
        }
        if (Begins(title, u'>')) {
            m_lines.Report("expected the “-” that ends the list of lessons, found " + Excerpt(line));
            return Marker(line);
        }
        if (title.empty())
            m_lines.Report("expected the title of a lesson, found an empty line");
        else if (Split(title, u'/').size() > 2)
            m_lines.Report("expected <title> or <title>/<second title>, found more");
        m_outline.lessons.emplace_back(title);
        return { &Grammar::Lesson };
    }

    State Marker(TextView line)
    {
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
        if (*number > static_cast<std::int64_t>(m_outline.lessons.size()))
            m_lines.Report("expected no lesson " + std::to_string(*number) + ", since the list has "
                + std::to_string(m_outline.lessons.size()));
        else if (*number != wanted)
            m_lines.Report("expected " + MarkerName() + ", found >" + std::to_string(*number));
        // The blocks behind it are counted from here.
        m_lesson = static_cast<std::size_t>(*number);
        m_hasPage = false;
        return { &Grammar::Introduction };
    }

    State Introduction(TextView line)
    {
        auto const slash = line.rfind(u'/');
        auto last = slash == TextView::npos ? line : line.substr(slash + 1);
        if (Begins(last, u'^'))
            last.remove_prefix(1);
        if (Begins(last, u'-')) {
            m_lines.Report("expected an introduction whose last paragraph doesn't begin with “-”, which ends the body");
            return { &Grammar::Body };
        }
        if (Begins(line, u'>') || Begins(line, u'['))
            m_lines.Report("expected the introduction of the lesson, found " + Excerpt(line));
        return Begins(line, u'>') ? Marker(line) : State { &Grammar::Body };
    }

    State Body(TextView line)
    {
        if (Begins(line, u'-'))
            return Close(line);
        if (Begins(line, u'[')) {
            if (!m_hasPage)
                m_lines.Report("an answer; expected a page before it");
            if (line.size() < 2 || !line.ends_with(u']'))
                m_lines.Report("expected “]” at the end of the answer, whose last character is never shown");
        } else if (Begins(line, u'>') && MarkerNumber(line)) {
            m_lines.Report("expected the closing line and the names of two verse files before " + Excerpt(line));
            return Marker(line);
        } else if (line.size() >= 3 && !Begins(line, u'#')) {
            m_hasPage = true;
            CheckPage(line);
        }
        return { &Grammar::Body };
    }

    void CheckPage(TextView line)
    {
        auto const stop = line.find(u'.'), blank = line.find(u' ');
        if (stop == TextView::npos || blank == TextView::npos || blank != stop + 1)
            m_lines.Report("expected <label>. <text>, found " + Excerpt(line));
    }

    State Close(TextView line)
    {
        bool const isPage = line.size() >= 3; // as well
        if (!m_hasPage && !isPage)
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
            m_lines.Report(std::string("expected the name of the ") + which + " verse file, found " + Excerpt(line));
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

}

StudyOutline CheckStudyLines(CheckLines& lines)
{
    Grammar grammar(lines);
    while (lines.Next())
        grammar.Add(lines.Line());
    return grammar.Finish();
}
