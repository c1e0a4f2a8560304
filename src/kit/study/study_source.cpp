#include "kit/study/study_source.h"

#include "base/code_page.h"
#include "kit/common/utf8.h"
#include "kit/study/short_names.h"
#include "kit/study/source_checks.h"
#include "study/lesson_file.h"
#include "study/model_answer.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

/// The last verse number that fits the two characters that a verse file has for it.
constexpr int lastVerseNumber = 99;

enum class Level { Study, Lesson, Part };

/// Takes the entries one by one.
class Building {
public:
    Building(std::string const& file, BibleTexts& bible, Faults& faults)
        : m_file(file)
        , m_bible(bible)
        , m_faults(faults)
    {
    }

    void Add(SourceEntry const& entry)
    {
        using Handler = void (Building::*)(SourceEntry const&);
        struct Key {
            TextView name;
            bool inStudy, inLesson, inPart;
            Handler handler;
        };
        static constexpr Key keys[] = {
            { u"study", true, false, false, &Building::Prefix },
            { u"title", true, false, false, &Building::Title },
            { u"description", true, false, false, &Building::Description },
            { u"lesson", true, true, true, &Building::OpenLesson },
            { u"second title", false, true, false, &Building::SecondTitle },
            { u"part", false, true, true, &Building::OpenPart },
            { u"main", false, true, true, &Building::MainPassages },
            { u"supplementary", false, true, true, &Building::SupplementaryPassages },
            { u"introduction", false, false, true, &Building::Introduction },
            { u"question", false, false, true, &Building::Question },
            { u"page", false, false, true, &Building::Page },
            { u"answer", false, false, true, &Building::Answer },
            { u"closing", false, false, true, &Building::Closing },
        };
        auto const key = std::ranges::find(keys, TextView(entry.key), &Key::name);
        if (key == std::end(keys)) {
            Report(entry.line, "unknown key " + Quoted(entry.key));
            return;
        }
        bool const isAllowed = m_level == Level::Study ? key->inStudy
            : m_level == Level::Lesson                 ? key->inLesson
                                                       : key->inPart;
        if (!isAllowed) {
            Report(entry.line, Quoted(entry.key) + " can't stand " + WhereWeAre());
            return;
        }
        (this->*key->handler)(entry);
    }

    Study Finish()
    {
        CloseLesson();
        for (TextView const key : { u"study", u"title", u"description" }) {
            if (!m_seenInStudy.contains(Text(key)))
                Report(1, "expected an entry " + Quoted(key));
        }
        if (m_study.lessons.empty())
            Report(1, "expected a lesson");
        return std::move(m_study);
    }

private:
    void Report(int line, std::string message)
    {
        m_faults.push_back({ m_file, line, std::move(message) });
    }

    std::string WhereWeAre() const
    {
        return m_level == Level::Study ? "before the first lesson"
            : m_level == Level::Lesson ? "before the first part of a lesson"
                                       : "in a part of a lesson";
    }

    Lesson& CurrentLesson() { return m_study.lessons.back(); }
    PartOfLesson& CurrentPart() { return CurrentLesson().parts[m_part]; }

    /// Checks that the key hasn't been in the present study, lesson or part.
    void Once(SourceEntry const& entry)
    {
        auto& seen = m_level == Level::Study ? m_seenInStudy
            : m_level == Level::Lesson       ? m_seenInLesson
                                             : m_seenInPart;
        if (!seen.insert(entry.key).second)
            Report(entry.line, Quoted(entry.key) + " a second time");
    }

    Text OneParagraph(SourceEntry const& entry)
    {
        CheckOneParagraph(entry, m_file, m_faults);
        CheckTexts(entry, m_file, m_faults);
        return entry.paragraphs.empty() ? Text() : entry.paragraphs[0].Joined();
    }

    Text Paragraphs(SourceEntry const& entry)
    {
        CheckHasText(entry, m_file, m_faults);
        CheckTexts(entry, m_file, m_faults);
        return entry.Joined();
    }

    Text WithoutColon(SourceEntry const& entry)
    {
        Once(entry);
        auto text = OneParagraph(entry);
        if (Contains(text, u':'))
            Report(entry.line,
                "a colon would end the " + ToUtf8(entry.key == u"study" ? u"name" : u"title"));
        return text;
    }

    void Prefix(SourceEntry const& entry) { m_study.prefix = WithoutColon(entry); }
    void Title(SourceEntry const& entry) { m_study.title = WithoutColon(entry); }
    void Description(SourceEntry const& entry)
    {
        Once(entry);
        m_study.description = Paragraphs(entry);
    }

    void OpenLesson(SourceEntry const& entry)
    {
        CloseLesson();
        m_level = Level::Lesson;
        m_seenInLesson.clear();
        m_lessonLine = entry.line;
        m_isPartSeen = {};
        m_study.lessons.emplace_back();
        CheckBeginning(entry, u"->", "the end of the list of lessons", m_file, m_faults);
        CurrentLesson().title = OneParagraph(entry);
    }
    void SecondTitle(SourceEntry const& entry)
    {
        Once(entry);
        CurrentLesson().title += u'/' + OneParagraph(entry);
    }

    void OpenPart(SourceEntry const& entry)
    {
        ClosePart();
        auto const name = OneParagraph(entry);
        int const part = name == u"one" ? 0 : name == u"two" ? 1 : -1;
        if (part < 0)
            Report(entry.line, "expected part “one” or “two”");
        else if (m_isPartSeen[static_cast<std::size_t>(part)])
            Report(entry.line, "this part a second time");
        else if (part == 1 && !m_isPartSeen[0])
            Report(entry.line, "part “one” has to come before");
        if (m_level == Level::Lesson) {
            for (auto& ofPart : CurrentLesson().parts) {
                ofPart.mainPassages = m_mainOfLesson;
                ofPart.supplementaryPassages = m_supplementaryOfLesson;
            }
        }
        m_level = Level::Part;
        m_seenInPart.clear();
        m_partLine = entry.line;
        m_questions = 0;
        m_part = static_cast<std::size_t>(std::max(part, 0));
        m_isPartSeen[m_part] |= part >= 0;
    }

    std::vector<Passage> Passages(SourceEntry const& entry)
    {
        Once(entry);
        std::vector<Passage> passages;
        if (entry.paragraphs.empty())
            Report(entry.line, "expected a passage");
        for (auto const& paragraph : entry.paragraphs) {
            for (auto const& line : paragraph.lines)
                AddPassages(line, passages);
        }
        return passages;
    }

    void AddPassages(SourceLine const& line, std::vector<Passage>& passages)
    {
        for (auto const reference : Split(line.text, u';')) {
            if (Trim(reference).empty())
                continue;
            for (auto& passage :
                FindPassages(Trim(reference), m_bible, m_file, line.line, m_faults)) {
                if (std::ranges::max(passage.verses, {}, &Verse::number).number > lastVerseNumber)
                    Report(line.line,
                        "verse numbers above 99 don't fit their place on the screen: "
                            + ToUtf8(passage.heading));
                passages.push_back(std::move(passage));
            }
        }
    }

    void MainPassages(SourceEntry const& entry)
    {
        (m_level == Level::Lesson ? m_mainOfLesson : CurrentPart().mainPassages) = Passages(entry);
    }
    void SupplementaryPassages(SourceEntry const& entry)
    {
        (m_level == Level::Lesson ? m_supplementaryOfLesson : CurrentPart().supplementaryPassages)
            = Passages(entry);
    }

    void Introduction(SourceEntry const& entry)
    {
        Once(entry);
        auto text = Paragraphs(entry);
        CheckBeginning(entry, u">", "the beginning of a lesson", m_file, m_faults);
        if (!entry.paragraphs.empty()) {
            auto const last = entry.paragraphs.back().Joined();
            if (last.starts_with(u'-') || last.starts_with(u"^-"))
                Report(entry.paragraphs.back().lines[0].line,
                    "a last paragraph that begins with “-” ends the lesson");
        }
        CurrentPart().introduction = std::move(text);
    }

    void Question(SourceEntry const& entry)
    {
        m_questions += 1;
        auto const label = entry.label.empty() ? FromNumber(m_questions) : entry.label;
        if (label.find_first_of(u" .#[->/") != Text::npos)
            Report(entry.line, "a label can't hold a blank or one of . # [ - > /");
        else if (FindShortName(label + u'.', 0).length > 0)
            Report(entry.line, "the label would be written out as the name of a book");
        else if (!ToCodePage(label))
            Report(entry.line, "code page 1252 lacks a character of the label");
        CurrentPart().pages.push_back({ label, Paragraphs(entry), std::nullopt });
    }
    void Page(SourceEntry const& entry)
    {
        CurrentPart().pages.push_back({ {}, Paragraphs(entry), std::nullopt });
    }

    void Answer(SourceEntry const& entry)
    {
        auto text = Paragraphs(entry);
        if (LeavesAnswerToUser(text))
            Report(entry.line,
                "an answer with the words “answers will vary” is replaced as a whole by the "
                "program's own sentence; say it in other words, or leave the answer out");
        if (CurrentPart().pages.empty())
            Report(entry.line, "an answer, but no page above it");
        else if (CurrentPart().pages.back().answer)
            Report(entry.line, "a second answer to the same page");
        else
            CurrentPart().pages.back().answer = std::move(text);
    }

    void Closing(SourceEntry const& entry)
    {
        Once(entry);
        auto text = Paragraphs(entry);
        if (!ReplacesConclusion(text))
            Report(entry.line,
                "expected the word “Congratulations”; without it the closing is a page like any "
                "other");
        if (Contains(text, u'.'))
            Report(entry.line, "all before the full stop would become the label of the page");
        CurrentPart().closing = std::move(text);
    }

    void ClosePart()
    {
        if (m_level == Level::Part && CurrentPart().pages.empty())
            Report(m_partLine, "this part has no page");
    }

    void CloseLesson()
    {
        ClosePart();
        m_mainOfLesson.clear();
        m_supplementaryOfLesson.clear();
        if (m_level == Level::Study)
            return;
        if (!m_isPartSeen[0] && !m_isPartSeen[1])
            Report(m_lessonLine, "this lesson has no parts");
        else if (!m_isPartSeen[1])
            Report(m_lessonLine, "this lesson has no part “two”");
        else if (!m_isPartSeen[0])
            Report(m_lessonLine, "this lesson has no part “one”");
    }

    std::string const& m_file;
    BibleTexts& m_bible;
    Faults& m_faults;
    Study m_study;
    Level m_level = Level::Study;
    std::set<Text> m_seenInStudy, m_seenInLesson, m_seenInPart;
    std::vector<Passage> m_mainOfLesson, m_supplementaryOfLesson;
    int m_lessonLine = 0, m_partLine = 0;
    std::array<bool, 2> m_isPartSeen {}; ///< of the lesson
    std::size_t m_part = 0;
    int m_questions = 0; ///< of the part
};

} // namespace

std::optional<Study> ReadStudySource(
    std::string_view bytes, std::string const& file, BibleTexts& bible, Faults& faults)
{
    auto const faultsBefore = faults.size();
    Building building(file, bible, faults);
    for (auto const& entry : ReadEntries(bytes, file, faults))
        building.Add(entry);
    auto study = building.Finish();
    std::stable_sort(faults.begin() + static_cast<std::ptrdiff_t>(faultsBefore), faults.end(),
        [](Fault const& a, Fault const& b) { return a.line < b.line; });
    if (faults.size() > faultsBefore)
        return std::nullopt;
    return study;
}
