#include "bible/chapter_page.h"

#include "base/code_page.h"
#include "bible/book_file.h"
#include "controls/string_builder.h"

#include <algorithm>

namespace {

/// The text from the ninth column on; empty where the line is shorter.
constexpr std::size_t textColumn = 8;

/// A search for each is several times as fast as a look at each byte, with lines of some length.
int CountLineFeeds(std::string_view bytes)
{
    int count = 0;
    for (auto at = bytes.find('\n'); at != bytes.npos; at = bytes.find('\n', at + 1))
        ++count;
    return count;
}

/// The lines of a file, split at every line feed, without their carriage returns.
class Lines {
public:
    explicit Lines(std::string_view bytes)
        : m_rest(bytes)
        , m_last(CountLineFeeds(bytes))
    {
    }

    int Last() const { return m_last; }
    int Index() const { return m_index; }
    bool HasNext() const { return m_index < m_last; }

    /// Valid until the next call.
    std::string_view Next()
    {
        auto const end = std::min(m_rest.find('\n'), m_rest.size());
        auto line = m_rest.substr(0, end);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        ++m_index;
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return line.find('\r') == line.npos ? line : Without("\r", line);
    }

    /// The line without these characters, valid until the next call.
    std::string_view Without(std::string_view characters, std::string_view line)
    {
        std::string kept;
        std::copy_if(line.begin(), line.end(), std::back_inserter(kept),
            [&](char character) { return characters.find(character) == characters.npos; });
        m_kept = std::move(kept);
        return m_kept;
    }

private:
    std::string_view m_rest;
    std::string m_kept;
    int m_last;
    int m_index = -1; // of the line that Next gave last
};

class PageBuilder {
public:
    PageBuilder(PageRequest const& request, PageListener const& listener)
        : m_request(request)
        , m_listener(listener)
    {
    }

    std::optional<Text> Build(std::string_view bookFile)
    {
        AppendHead();
        Lines lines(bookFile);
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
        return m_page.ToString();
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
        m_piece.clear();
        AppendFromCodePage(m_piece, TrimBlanks(bytes));
        m_piece += u' ';
        m_page.Append(m_piece);
    }

    /// False if the listener ended the building.
    bool TakeLine(Lines& lines, std::string_view line)
    {
        if (line.find(paragraphMark) != line.npos) {
            m_page.Append(u"<p>");
            line = lines.Without("\xB6*", line);
        } else if (!line.starts_with(' ') && line.find('*') != line.npos) {
            line = lines.Without("*", line);
        }
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

    bool TakeFurtherLines(Lines& lines)
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
    Text m_piece;
    int m_lastChapter = 0;
};

}

std::optional<Text> BuildChapterPage(
    std::string_view bookFile, PageRequest const& request, PageListener const& listener)
{
    return PageBuilder(request, listener).Build(bookFile);
}

Text EmptyPage(TextView applicationFolder)
{
    return u"<html><head><title>Bible Reader</title></head>\r\n<body background=\"file://" + Text(applicationFolder)
        + u"\\bg.jpg\">\r\n</body></html>\r\n";
}
