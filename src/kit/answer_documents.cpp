#include "kit/answer_documents.h"

#include "bible/note_file.h"
#include "study/lesson_file.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace {

using Answers = std::map<std::int64_t, Text>; // by page

/// The paragraphs of a page or of the publisher's answer, which stand between slashes; brackets
/// round the answer go.
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
            // Where the publisher leaves the answer to the user there is nothing to add.
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
    AnswerDocument others { "answers-without-their-study", u"Answers without their study", {} };
    Text last;
    for (auto const& place : places) {
        Turns turns;
        auto const block = ParseLessonBlock(disc, place.key, turns);
        if (!block) {
            others.lessons.push_back(LessonWithoutStudy(place.key, place.answers));
            continue;
        }
        if (documents.empty() || place.study != last)
            documents.push_back({ ToUtf8(place.study), block->study.studyTitle, {} });
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
    AnswerDocument document { "chapter-notes", u"Notes on chapters of the Bible", {} };
    for (auto const& [name, bytes] : work.notes) {
        if (!name.ends_with(ending))
            continue;
        auto const note = ReadNote(
            files, u"C:\\Program Files\\Sparrowfield Interactive Software\\notes\\" + FromUtf8(name));
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
