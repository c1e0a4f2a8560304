#include "reader/chapter_page.h"

#include "base/code_page.h"
#include "bible/book_file.h"
#include "bible/book_lines.h"
#include "controls/string_builder.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// The text from the ninth column on; empty where the line is shorter.
constexpr std::size_t textColumn = 8;

/// In bytes, a rough bound for the page of a whole book: its tags take more than the columns and
/// line ends of the file, and each character takes two bytes. What isn't needed of it is never
/// touched.
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
        lines.Next(); // the first line is no verse's
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

    /// A line's text without blanks at its ends, and a blank.
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
        if (line.find(paragraphMark) != line.npos) {
            m_page.Append(u"<p>");
            line = lines.Without(paragraphMark, line);
        }
        if (lines.HaveAsterisks())
            line = lines.Without('*', line);
        if (line.empty() || line.front() == ' ')
            return true;
        auto const chapter = ColumnNumber(line, 0), verse = ColumnNumber(line, 4);
        if (!chapter || !verse || !VerseWanted(m_request.wanted, *chapter, *verse))
            return true;
        if (*chapter != m_lastChapter)
            AppendHeading(*chapter);
        m_lastChapter = *chapter;
        m_page.Append(u"<sup>").Append(FromNumber(*verse)).Append(u"</sup>&nbsp;");
        AppendText(line.size() > textColumn ? line.substr(textColumn) : std::string_view());
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
    // overwritten from its start: clearing it for each line would take longer than filling it
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
