#include "kit/study/study_writer.h"

#include "base/code_page.h"
#include "kit/study/scramble.h"
#include "kit/study/short_names.h"
#include "study/study_head.h"
#include "study/study_key.h"
#include "study/verse_file.h"

#include <algorithm>
#include <cctype>

namespace {

/// The lines of one file.
class FileText {
public:
    FileText(bool isPlain, std::string const& source, Faults& faults)
        : m_isPlain(isPlain)
        , m_source(source)
        , m_faults(faults)
    {
    }

    /// `what` names the line in a fault.
    void Add(TextView text, TextView what)
    {
        auto const bytes = ToCodePage(text);
        if (!bytes)
            Report(what, "has a character that code page 1252 lacks");
        else if (bytes->size() > longestBody)
            Report(what, "has more than 32,767 characters");
        else
            m_bytes += FileLine(*bytes, m_count++, m_isPlain) + "\r\n";
    }

    /// Checks that the verse will be read as a verse, with the same number and words.
    void AddVerse(Verse const& verse, Passage const& passage)
    {
        auto const number = FromNumber(verse.number);
        auto const line = EscapeShortNames(number + u' ' + verse.text);
        auto const item = ClassifyVerseLine(line);
        auto const what = passage.heading + u", verse " + number;
        bool const isSame = item && item->kind == VerseFileItem::Kind::NumberedVerse
            && Trim(item->number) == number;
        if (!isSame || Contains(line, u'>'))
            Report(what, "would not be read as this verse: " + ToUtf8(line.substr(0, 40)),
                passage.line);
        else
            Add(line, what);
    }

    std::string Take() { return std::move(m_bytes); }

private:
    void Report(TextView what, std::string const& message, int line = 0)
    {
        m_faults.push_back({ m_source, line, ToUtf8(what) + ' ' + message });
    }

    bool m_isPlain;
    std::string const& m_source;
    Faults& m_faults;
    std::string m_bytes;
    std::size_t m_count = 0;
};

/// Writes one part of a study; `Text` names have no code page characters but ASCII.
class PartWriter {
public:
    PartWriter(Study const& study, std::size_t part, std::string const& name)
        : m_study(study)
        , m_part(part)
        , m_verseName(FromUtf8(name) + FromNumber(static_cast<int>(part) + 1))
    {
    }

    void WriteStudyFile(FileText& file) const
    {
        file.Add(m_study.prefix + u": " + m_study.title, u"the title");
        file.Add(m_study.description, u"the description");
        for (auto const& lesson : m_study.lessons)
            file.Add(lesson.title, u"the title of a lesson");
        file.Add(u"-", u"");
        for (std::size_t i = 0; i < m_study.lessons.size(); ++i)
            WriteBlock(file, m_study.lessons[i], static_cast<int>(i) + 1);
    }

    using Passages = std::vector<Passage> PartOfLesson::*;
    void WriteVerseFile(FileText& file, Passages passages) const
    {
        for (std::size_t i = 0; i < m_study.lessons.size(); ++i) {
            file.Add(u">" + FromNumber(static_cast<int>(i) + 1), u"");
            for (auto const& passage : m_study.lessons[i].parts[m_part].*passages) {
                file.Add(passage.heading, passage.heading);
                for (auto const& verse : passage.verses)
                    file.AddVerse(verse, passage);
            }
        }
    }

    std::string VerseFile(TextView suffix) const
    {
        return ToUtf8(VerseFileName(m_verseName + Text(suffix)));
    }

private:
    void WriteBlock(FileText& file, Lesson const& lesson, int number) const
    {
        auto const& part = lesson.parts[m_part];
        auto const where = u"lesson " + FromNumber(number) + u": ";
        file.Add(u">" + FromNumber(number), u"");
        auto const title = Text(SplitTitles(lesson.title).title);
        file.Add(part.introduction.value_or(title), where + u"the introduction");
        for (auto const& page : part.pages) {
            file.Add(page.label + u". " + page.text, where + u"page " + page.label);
            if (page.answer)
                file.Add(u'[' + *page.answer + u']', where + u"the answer to page " + page.label);
        }
        file.Add(part.closing ? u"- " + *part.closing : u"-", where + u"the closing");
        file.Add(m_verseName, u"");
        file.Add(m_verseName + u's', u"");
    }

    Study const& m_study;
    std::size_t m_part;
    Text m_verseName; ///< of the main passages; the others have an "s" after it
};

} // namespace

bool IsStudyName(std::string const& name)
{
    auto const isAllowed
        = [](unsigned char c) { return c < 0x80 && (std::isalnum(c) || c == '_' || c == '-'); };
    // A name with "-1" would make both parts Part One.
    return !name.empty() && std::ranges::all_of(name, isAllowed)
        && PartWord(FromUtf8(name)) != u"One" && !IsVerseFileName(FromUtf8(name));
}

OutputFiles WriteStudy(Study const& study, std::string const& name, bool isPlain,
    std::string const& source, Faults& faults)
{
    auto const faultsBefore = faults.size();
    OutputFiles files;
    for (std::size_t part = 0; part < 2; ++part) {
        PartWriter const writer(study, part, name);
        FileText studyFile(isPlain, source, faults), mainFile(isPlain, source, faults),
            supplementaryFile(isPlain, source, faults);
        writer.WriteStudyFile(studyFile);
        writer.WriteVerseFile(mainFile, &PartOfLesson::mainPassages);
        writer.WriteVerseFile(supplementaryFile, &PartOfLesson::supplementaryPassages);
        files[name + ToUtf8(partEndings[part])] = studyFile.Take();
        files[writer.VerseFile(u"")] = mainFile.Take();
        files[writer.VerseFile(u"s")] = supplementaryFile.Take();
    }
    return faults.size() > faultsBefore ? OutputFiles {} : files;
}
