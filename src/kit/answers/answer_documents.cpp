#include "kit/answers/answer_documents.h"

#include "base/printable.h"
#include "bible/note_file.h"
#include "documents/lesson_section.h"
#include "platform/posix/whole_file.h"
#include "study/answer_keys.h"
#include "study/lesson_file.h"

#include <algorithm>
#include <optional>
#include <set>
#include <tuple>

namespace {

/// Answers by study key.
std::map<Text, OwnAnswers> AnswersOf(UserWork const& work)
{
    std::map<Text, OwnAnswers> answers;
    for (auto const& entry : work.entries)
        if (auto const page = PageOf(entry.key);
            page && IsStudyKey(entry.section) && !Trim(entry.value).empty())
            answers[entry.section][*page] = entry.value;
    return answers;
}

constexpr char const *othersName = "answers-without-their-study", *notesName = "chapter-notes";

/// A bare file name for the document of a study. The name of the study comes from a section of the
/// store, which may hold anything: a character that isn't a letter or digit (of any script), "_",
/// "-" or a blank becomes "_".
std::string BareName(TextView study)
{
    // Characters. If each takes three bytes, there is still room for a number and an ending.
    constexpr std::size_t longest = 60;
    std::string name;
    for (char16_t const character : study.substr(0, longest)) {
        bool const isSafe = (character >= u'a' && character <= u'z')
            || (character >= u'A' && character <= u'Z') || IsDigit(character) || character == u'_'
            || character == u'-' || character == u' ' || (character >= 0xC0 && character < 0x2000)
            || (character >= 0x2C00 && character < 0xD800);
        name += isSafe ? Printable(ToUtf8(TextView(&character, 1))) : "_";
    }
    return name.empty() || name[0] == ' ' || name[0] == '-' ? "_" + name : name;
}

/// Makes the names of documents unique, with "-2" and so on after a name that is taken.
class Names {
public:
    std::string Take(std::string const& name)
    {
        auto const take = [this](std::string const& wanted) {
            return m_taken.insert(ToLower(FromUtf8(wanted))).second;
        };
        return take(name) ? name : FirstFreeName(name + "-", {}, take, 2);
    }

private:
    std::set<Text> m_taken { FromUtf8(othersName), FromUtf8(notesName) };
};

/// The answers to a lesson that isn't there or can't be read.
DocumentSection SectionOfUnknown(Text const& key, OwnAnswers const& answers)
{
    DocumentSection section { key, {}, {} };
    for (auto const& [page, answer] : answers)
        section.pages.push_back({ FromNumber(page), {}, {}, answer, {} });
    return section;
}

} // namespace

std::vector<Document> BuildAnswerDocuments(
    UserWork const& work, FileSystem const& disc, bool withPublisher)
{
    struct Place {
        Text study;
        std::int64_t lesson;
        Text file;
        Text key;
        OwnAnswers answers;
    };
    std::vector<Place> places;
    for (auto& [key, answers] : AnswersOf(work)) {
        auto const parts = SplitStudyKey(key);
        places.push_back({ Text(StudyName(parts.fileName)),
            ToInteger(parts.lessonNumber).value_or(0), parts.fileName, key, answers });
    }
    std::sort(places.begin(), places.end(), [](Place const& a, Place const& b) {
        return std::tie(a.study, a.lesson, a.file) < std::tie(b.study, b.lesson, b.file);
    });
    std::vector<Document> documents;
    Document others { othersName, u"Answers without their study", {} };
    Names names;
    Text last;
    for (auto const& place : places) {
        Turns turns;
        auto const block = ParseLessonBlock(disc, place.key, turns);
        if (!block) {
            others.sections.push_back(SectionOfUnknown(place.key, place.answers));
            continue;
        }
        if (documents.empty() || place.study != last)
            documents.push_back({ names.Take(BareName(place.study)), block->study.studyTitle, {} });
        last = place.study;
        auto const titles = SplitTitles(block->titleLine);
        LessonHeading const heading { SplitStudyKey(place.key).lessonNumber, block->partWord,
            Text(Trim(titles.title)),
            titles.secondTitle ? std::optional<Text>(Trim(*titles.secondTitle)) : std::nullopt };
        documents.back().sections.push_back(BuildLessonSection(heading, block->body.pages,
            block->body.answers, place.answers, { false, withPublisher }));
    }
    if (!others.sections.empty())
        documents.push_back(std::move(others));
    return documents;
}

Document BuildNotesDocument(UserWork const& work, FileSystem const& files)
{
    Document document { notesName, u"Notes on chapters of the Bible", {} };
    for (auto const& [name, bytes] : work.notes) {
        auto const fileName = FromUtf8(name);
        auto const chapter = ChapterOfNote(fileName);
        if (!chapter)
            continue;
        if (auto const note = ReadNote(files, NotesFolder(u"C") + u'\\' + fileName);
            note && !Trim(*note).empty())
            document.sections.push_back({ *chapter, {}, { { {}, {}, {}, *note, {} } } });
    }
    return document;
}
