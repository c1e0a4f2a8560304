#include "kit/answers/answer_documents.h"

#include "base/printable.h"
#include "bible/note_file.h"
#include "platform/posix/whole_file.h"
#include "study/lesson_file.h"

#include <algorithm>
#include <optional>
#include <set>
#include <tuple>

namespace {

using Answers = std::map<std::int64_t, Text>; // by page

/// The paragraphs of a page or of the publisher's answer, which are parted by slashes, without the
/// brackets round the answer.
std::vector<Text> Paragraphs(TextView text)
{
    if (text.starts_with(u'[') && text.ends_with(u']'))
        text = text.substr(1, text.size() - 2);
    std::vector<Text> paragraphs;
    for (TextView const part : Split(text, u'/'))
        if (!Trim(part).empty())
            paragraphs.emplace_back(Trim(part));
    return paragraphs;
}

std::optional<std::int64_t> PageOf(TextView key)
{
    return key.starts_with(u"Page") ? ToInteger(key.substr(4)) : std::nullopt;
}

/// Answers by study key.
std::map<Text, Answers> AnswersOf(UserWork const& work)
{
    std::map<Text, Answers> answers;
    for (auto const& entry : work.entries)
        if (auto const page = PageOf(entry.key);
            page && Contains(entry.section, u':') && !Trim(entry.value).empty())
            answers[entry.section][*page] = entry.value;
    return answers;
}

constexpr char const *othersName = "answers-without-their-study", *notesName = "chapter-notes";

/// A bare file name for the document of a study. The study's own name comes from a section of the
/// store, which may hold anything: what isn't a letter or digit (of Latin script, or anything
/// beyond), "_", "-" or a blank becomes "_".
std::string BareName(TextView study)
{
    // Characters of three bytes each leave room for a number and an ending in a file name.
    constexpr std::size_t longest = 60;
    std::string name;
    for (char16_t const character : study.substr(0, longest)) {
        bool const isSafe = (character >= u'a' && character <= u'z')
            || (character >= u'A' && character <= u'Z') || (character >= u'0' && character <= u'9')
            || character == u'_' || character == u'-' || character == u' '
            || (character >= 0xC0 && character < 0x2000)
            || (character >= 0x2C00 && character < 0xD800);
        name += isSafe ? Printable(ToUtf8(TextView(&character, 1))) : "_";
    }
    return name.empty() || name[0] == ' ' || name[0] == '-' ? "_" + name : name;
}

/// Keeps the names of documents distinct: appends "-2" and so on where another has the name.
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

/// "ruth" of "ruth-1.dat".
Text StudyName(TextView fileName)
{
    auto const dash = fileName.rfind(u'-');
    return Text(fileName.substr(0, dash));
}

AnsweredLesson LessonOf(LessonBlock const& block, Answers const& answers, bool withPublisher)
{
    auto const titles = Split(block.titleLine, u'/');
    AnsweredLesson lesson { Text(Trim(titles[0])) + u", Part " + block.partWord, {} };
    for (auto const& [page, answer] : answers) {
        AnsweredQuestion question { FromNumber(page), {}, answer, {} };
        auto const index = static_cast<std::size_t>(page - 1);
        if (page >= 1 && index < block.body.pages.size()) {
            question.question = Paragraphs(block.body.pages[index]);
            // If the publisher leaves the answer to the user, there is nothing to add.
            if (withPublisher && !Contains(block.body.answers[index], u"swers will vary"))
                question.publisher = Paragraphs(block.body.answers[index]);
        }
        lesson.questions.push_back(std::move(question));
    }
    return lesson;
}

AnsweredLesson LessonWithoutStudy(TextView key, Answers const& answers)
{
    AnsweredLesson lesson { Text(key), {} };
    for (auto const& [page, answer] : answers)
        lesson.questions.push_back({ FromNumber(page), {}, answer, {} });
    return lesson;
}

} // namespace

std::vector<AnswerDocument> BuildAnswerDocuments(
    UserWork const& work, FileSystem const& disc, bool withPublisher)
{
    struct Place {
        Text study;
        std::int64_t lesson;
        Text file;
        Text key;
        Answers answers;
    };
    std::vector<Place> places;
    for (auto& [key, answers] : AnswersOf(work)) {
        auto const parts = SplitStudyKey(key);
        places.push_back({ StudyName(parts.fileName), ToInteger(parts.lessonNumber).value_or(0),
            parts.fileName, key, answers });
    }
    std::sort(places.begin(), places.end(), [](Place const& a, Place const& b) {
        return std::tie(a.study, a.lesson, a.file) < std::tie(b.study, b.lesson, b.file);
    });
    std::vector<AnswerDocument> documents;
    AnswerDocument others { othersName, u"Answers without their study", {} };
    Names names;
    Text last;
    for (auto const& place : places) {
        Turns turns;
        auto const block = ParseLessonBlock(disc, place.key, turns);
        if (!block) {
            others.lessons.push_back(LessonWithoutStudy(place.key, place.answers));
            continue;
        }
        if (documents.empty() || place.study != last)
            documents.push_back({ names.Take(BareName(place.study)), block->study.studyTitle, {} });
        last = place.study;
        documents.back().lessons.push_back(LessonOf(*block, place.answers, withPublisher));
    }
    if (!others.lessons.empty())
        documents.push_back(std::move(others));
    return documents;
}

AnswerDocument BuildNotesDocument(UserWork const& work, FileSystem const& files)
{
    constexpr std::string_view ending = ".dat";
    AnswerDocument document { notesName, u"Notes on chapters of the Bible", {} };
    for (auto const& [name, bytes] : work.notes) {
        if (!name.ends_with(ending))
            continue;
        auto const note = ReadNote(files,
            u"C:\\Program Files\\Sparrowfield Interactive Software\\notes\\" + FromUtf8(name));
        if (!note || Trim(*note).empty())
            continue;
        // "John3" is John 3, "2 John" the whole of 2 John.
        auto chapter = FromUtf8(name.substr(0, name.size() - ending.size()));
        auto const digits = chapter.find_last_not_of(u"0123456789");
        if (digits != Text::npos && digits + 1 < chapter.size())
            chapter.insert(digits + 1, 1, u' ');
        document.lessons.push_back({ chapter, { { {}, {}, *note, {} } } });
    }
    return document;
}
