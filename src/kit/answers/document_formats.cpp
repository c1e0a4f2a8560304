// The formats of the exported documents: HTML (the WHATWG's living standard), Markdown (CommonMark
// 0.30), JSON (RFC 8259).

#include "kit/answers/answer_documents.h"

#include "base/lines.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

/// The text with line feeds as line ends. Control characters and lone surrogates, which documents
/// can't hold, become U+FFFD.
static std::string Clean(TextView text)
{
    Text clean;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t const character = text[i];
        bool const isHigh = character >= 0xD800 && character < 0xDC00,
                   isLow = character >= 0xDC00 && character < 0xE000;
        bool const isPair
            = isHigh && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        bool const isControl = (character < u' ' && character != u'\n' && character != u'\t')
            || (character >= 0x7F && character < 0xA0) || character == 0xFFFE
            || character == 0xFFFF;
        if (isPair) {
            clean += { character, text[++i] };
        } else if (character == u'\r') {
            if (i + 1 == text.size() || text[i + 1] != u'\n')
                clean += u'\n';
        } else {
            clean += isHigh || isLow || isControl ? u'\uFFFD' : character;
        }
    }
    return ToUtf8(clean);
}

/// The lines of a text, for formats in which a line end needs markup.
static std::vector<std::string> CleanLines(TextView text)
{
    auto const clean = Clean(text);
    auto const views = SplitLines(clean);
    std::vector<std::string> lines(views.begin(), views.end());
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

static std::string Html(TextView text)
{
    constexpr std::string_view special = "&<>\"";
    constexpr char const* entities[] = { "&amp;", "&lt;", "&gt;", "&quot;" };
    std::string escaped;
    for (char const character : Clean(text))
        if (auto const which = special.find(character); which != special.npos)
            escaped += entities[which];
        else
            escaped += character;
    return escaped;
}

static std::string HtmlParagraphs(std::vector<Text> const& paragraphs, char const* style)
{
    std::string html;
    for (auto const& paragraph : paragraphs)
        html += std::string("<p class=\"") + style + "\">" + Html(paragraph) + "</p>\n";
    return html;
}

/// The paragraphs of a page, with the label before the first.
static std::vector<Text> TextOf(DocumentPage const& page)
{
    auto paragraphs = page.text;
    if (!page.label.empty() && !paragraphs.empty())
        paragraphs[0] = page.label + u' ' + paragraphs[0];
    return paragraphs;
}

static std::string RenderHtml(Document const& document)
{
    std::string html
        = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>"
        + Html(document.title)
        + "</title>\n<style>\n"
          "body { font: 12pt/1.45 \"Times New Roman\", \"Liberation Serif\", serif; max-width: "
          "42em; margin: 2em auto; padding: 0 1em }\n"
          "h1, h2 { color: #022d7b } h2 { border-bottom: 1px solid #adc1dc; break-after: avoid }\n"
          ".question { font-weight: bold; break-after: avoid } .publisher { margin-left: 2em; "
          "font-style: italic }\n"
          ".publisher.label { font-weight: bold; break-after: avoid }\n"
          ".answer { white-space: pre-wrap; margin-left: 2em }\n"
          "@media print { body { margin: 0; max-width: none } }\n"
          "</style>\n</head>\n<body>\n<h1>"
        + Html(document.title) + "</h1>\n";
    for (auto const& section : document.sections) {
        html += "<h2>" + Html(section.title) + "</h2>\n";
        if (!section.subtitle.empty())
            html += "<p>" + Html(section.subtitle) + "</p>\n";
        for (auto const& page : section.pages) {
            if (page.text.empty() && !page.number.empty())
                html += "<p class=\"question\">Page " + Html(page.number) + "</p>\n";
            html += HtmlParagraphs(TextOf(page), page.label.empty() ? "closing" : "question");
            html += "<div class=\"answer\">" + Html(page.answer) + "</div>\n";
            if (!page.publisher.empty())
                html += "<p class=\"publisher label\">" + Html(publisherHeading) + "</p>\n"
                    + HtmlParagraphs(page.publisher, "publisher");
        }
    }
    return html + "</body>\n</html>\n";
}

/// One line of text that means itself.
static std::string MarkdownEscaped(std::string const& line)
{
    std::string escaped;
    for (std::size_t i = 0; i < line.size(); ++i) {
        char const character = line[i];
        bool const isAtStart = escaped.empty();
        if (isAtStart && (character == ' ' || character == '\t')) {
            escaped += "&nbsp;"; // Blanks at the start would make it code, or be dropped.
            continue;
        }
        bool const always
            = std::string_view("\\`*_[]<>&#|~!").find(character) != std::string_view::npos;
        bool const marksItem
            = (isAtStart && (character == '-' || character == '+' || character == '='))
            || ((character == '.' || character == ')') && !isAtStart
                && std::ranges::all_of(escaped, IsDigit));
        if (always || marksItem)
            escaped += '\\';
        escaped += character;
    }
    return escaped;
}

/// Each line end of the text is one in the document.
static std::string Markdown(TextView text, std::string const& before)
{
    std::string markdown;
    auto const lines = CleanLines(text);
    for (std::size_t i = 0; i < lines.size(); ++i)
        markdown += before + MarkdownEscaped(lines[i])
            + (i + 1 < lines.size() && !lines[i].empty() && !lines[i + 1].empty() ? "\\\n" : "\n");
    return markdown + "\n";
}

static std::string MarkdownHeading(char const* mark, TextView text)
{
    auto const lines = CleanLines(text);
    return std::string(mark) + " " + MarkdownEscaped(lines.empty() ? "" : lines[0]) + "\n\n";
}

static std::string RenderMarkdown(Document const& document)
{
    auto markdown = MarkdownHeading("#", document.title);
    for (auto const& section : document.sections) {
        markdown += MarkdownHeading("##", section.title);
        if (!section.subtitle.empty())
            markdown += Markdown(section.subtitle, "");
        for (auto const& page : section.pages) {
            if (page.text.empty() && !page.number.empty())
                markdown += "### Page " + Clean(page.number) + "\n\n";
            bool isHeading = !page.label.empty();
            for (Text const& paragraph : TextOf(page))
                markdown += std::exchange(isHeading, false) ? MarkdownHeading("###", paragraph)
                                                            : Markdown(paragraph, "");
            markdown += Markdown(page.answer, "");
            if (!page.publisher.empty())
                markdown += Markdown(publisherHeading, "> ");
            for (auto const& paragraph : page.publisher)
                markdown += Markdown(paragraph, "> ");
        }
    }
    return markdown;
}

static nlohmann::ordered_json Json(std::vector<Text> const& paragraphs)
{
    auto json = nlohmann::ordered_json::array();
    for (auto const& paragraph : paragraphs)
        json.push_back(Clean(paragraph));
    return json;
}

static std::string RenderJson(Document const& document)
{
    nlohmann::ordered_json json { { "title", Clean(document.title) },
        { "lessons", nlohmann::ordered_json::array() } };
    for (auto const& section : document.sections) {
        auto questions = nlohmann::ordered_json::array();
        for (auto const& page : section.pages) {
            nlohmann::ordered_json question { { "answer", Clean(page.answer) } };
            if (!page.number.empty())
                question["page"] = Clean(page.number);
            if (!page.label.empty())
                question["label"] = Clean(page.label);
            if (!page.text.empty())
                question["question"] = Json(page.text);
            if (!page.publisher.empty())
                question["publisher"] = Json(page.publisher);
            questions.push_back(std::move(question));
        }
        nlohmann::ordered_json lesson { { "title", Clean(section.title) } };
        if (!section.subtitle.empty())
            lesson["subtitle"] = Clean(section.subtitle);
        lesson["questions"] = std::move(questions);
        json["lessons"].push_back(std::move(lesson));
    }
    return json.dump(2) + "\n";
}

std::string Render(Document const& document, DocumentFormat format)
{
    return format == DocumentFormat::Html ? RenderHtml(document)
        : format == DocumentFormat::Json  ? RenderJson(document)
                                          : RenderMarkdown(document);
}
