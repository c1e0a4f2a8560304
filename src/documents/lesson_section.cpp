#include "documents/lesson_section.h"

#include "study/model_answer.h"
#include "study/page_view.h"

#include <algorithm>

/// The lines of a text that aren't empty.
static std::vector<Text> Paragraphs(TextView text, char16_t separator)
{
    std::vector<Text> paragraphs;
    for (TextView line : Split(text, separator)) {
        if (line.ends_with(u'\r'))
            line.remove_suffix(1);
        if (!Trim(line).empty())
            paragraphs.emplace_back(Trim(line));
    }
    return paragraphs;
}

/// The label of a question. The screen has no room for one of several words, which is the beginning
/// of a sentence.
static Text QuestionLabel(TextView page)
{
    TextView const label = PageLabel(page);
    return Contains(label, u' ') ? Text() : Text(label);
}

DocumentSection BuildLessonSection(LessonHeading const& heading, std::vector<Text> const& pages,
    std::vector<Text> const& publisher, OwnAnswers const& own, DocumentChoice choice)
{
    DocumentSection section { u"Lesson " + heading.number + u", Part " + heading.partWord + u": "
            + heading.title,
        heading.secondTitle.value_or(Text()), {} };
    auto const add = [&](std::int64_t number, Text const& answer) {
        DocumentPage page { FromNumber(number), {}, {}, answer, {}, Trim(answer).empty() };
        auto const index = static_cast<std::size_t>(number - 1);
        if (number >= 1 && index < pages.size()) {
            page.label = QuestionLabel(pages[index]);
            page.text = Paragraphs(PageText(pages[index]), u'\n');
            if (choice.withPublisher && !LeavesAnswerToUser(publisher[index]))
                page.publisher = Paragraphs(publisher[index], u'/');
            if (page.isOpen && page.label.empty() && index + 1 == pages.size())
                return;
        }
        section.pages.push_back(std::move(page));
    };
    auto const count = std::ssize(pages);
    if (choice.withOpenQuestions)
        for (std::int64_t number = 1; number <= count; ++number)
            if (auto const found = own.find(number);
                found == own.end() || Trim(found->second).empty())
                add(number, {});
    for (auto const& [number, answer] : own)
        if (!Trim(answer).empty())
            add(number, answer);
    std::ranges::stable_sort(section.pages, {},
        [](DocumentPage const& page) { return ToInteger(page.number).value_or(0); });
    return section;
}
