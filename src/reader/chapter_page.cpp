// Builds the page in one pass over the book file. Each line outside a verse is parsed as a verse
// line. If its verse is wanted, its text is appended, and so are the lines after it, up to and
// including an empty one. Lines after an unwanted verse line fail to parse, as they begin with a
// blank. For "Jude 2":
//
//     Jude                                 the first line: skipped
//     ¶001 001 Jude, the servant of        <p> for the mark, but the verse isn't wanted
//      Jesus Christ                        not a verse line
//                                          not a verse line
//     001 002 Mercy unto you, and peace,   heading "Chapter 1", <sup>2</sup>, the text
//      and love, be multiplied.            the text
//                                          the end of the verse

#include "reader/chapter_page.h"

#include "base/code_page.h"
#include "bible/book_file.h"
#include "bible/book_lines.h"
#include "controls/string_builder.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// A rough upper bound for the page of a whole book, in bytes: two for each character, and the
/// tags. Memory that isn't needed is never touched.
std::int32_t WholeBookCapacity(std::string_view bookFile)
{
    constexpr std::size_t most = std::numeric_limits<std::int32_t>::max() / 2;
    return static_cast<std::int32_t>(std::min(bookFile.size() * 3, most));
}

class PageBuilder {
public:
    PageBuilder(PageRequest const& request, PageListener const& listener)
        : m_request(request)
        , m_listener(listener)
    {
    }

    std::optional<Text> Build(std::string_view bookFile)
    {
        if (m_request.wanted.chapter.empty())
            m_page.EnsureCapacity(WholeBookCapacity(bookFile));
        AppendHead();
        BookLines lines(bookFile);
        if (m_listener.begin)
            m_listener.begin(lines.Last());
        lines.Next(); // The first line isn't part of a verse.
        while (lines.HasNext()) {
            auto const line = lines.Next();
            if (m_listener.line)
                m_listener.line(lines.Index());
            if (!TakeLine(lines, line))
                return std::nullopt;
        }
        m_page.Append(u"</body></html>");
        return std::move(m_page).ToString();
    }

private:
    void AppendHead()
    {
        m_page.Append(u"<html><head><title>Bible Reader</title>\r\n")
            .Append(u"<script language=\"JavaScript\">\r\n")
            .Append(u"<!--\r\n")
            .Append(u"document.oncontextmenu = function(){return false}\r\n")
            .Append(u"//-->\r\n")
            .Append(u"</script>\r\n")
            .Append(u"</head>\r\n")
            .Append(u"<body background=\"file://")
            .Append(m_request.applicationFolder)
            .Append(u"\\bg.jpg\">\r\n")
            .Append(u"<font size=2 face=\"verdana\">\r\n");
    }

    void AppendHeading(int chapter)
    {
        Text const number = FromNumber(chapter);
        m_page.Append(u"<a name=chapter")
            .Append(number)
            .Append(u"><p><b><font face=\"Arial\" color=darkblue>Chapter ")
            .Append(number)
            .Append(u"</font></b><p>\r\n");
    }

    /// Appends the text of a line, trimmed, and a blank.
    void AppendText(std::string_view bytes)
    {
        auto const text = TrimBlanks(bytes);
        if (m_piece.size() <= text.size())
            m_piece.resize(text.size() + 1);
        ConvertFromCodePage(text, m_piece.data());
        m_piece[text.size()] = u' ';
        m_page.Append({ m_piece.data(), text.size() + 1 });
    }

    /// False if the listener ended the building.
    bool TakeLine(BookLines& lines, std::string_view line)
    {
        auto const [unmarked, startsParagraph] = lines.WithoutMarks(line);
        if (startsParagraph)
            m_page.Append(u"<p>");
        auto const verse = ParseVerseLine(unmarked);
        if (!verse || !VerseWanted(m_request.wanted, verse->chapter, verse->verse))
            return true;
        if (verse->chapter != m_lastChapter)
            AppendHeading(verse->chapter);
        m_lastChapter = verse->chapter;
        m_page.Append(u"<sup>").Append(FromNumber(verse->verse)).Append(u"</sup>&nbsp;");
        AppendText(verse->text);
        return TakeFurtherLines(lines);
    }

    bool TakeFurtherLines(BookLines& lines)
    {
        while (lines.HasNext()) {
            if (m_listener.turn && !m_listener.turn())
                return false;
            auto const text = TrimBlanks(lines.Next());
            AppendText(text);
            if (text.empty())
                break;
        }
        m_page.Append(m_request.runsOn ? u" " : u"<p>\r\n");
        return true;
    }

    PageRequest const& m_request;
    PageListener const& m_listener;
    CStringBuilder m_page;
    // The text of a line, overwritten each time: clearing it takes longer than filling it.
    Text m_piece;
    int m_lastChapter = 0;
};

} // namespace

std::optional<Text> BuildChapterPage(
    std::string_view bookFile, PageRequest const& request, PageListener const& listener)
{
    return PageBuilder(request, listener).Build(bookFile);
}

Text EmptyPage(TextView applicationFolder)
{
    return u"<html><head><title>Bible Reader</title></head>\r\n<body background=\"file://"
        + Text(applicationFolder) + u"\\bg.jpg\">\r\n</body></html>\r\n";
}
