#pragma once
// The page of a reference by its plain definition: line after line, each step on a text of its own.

#include "base/code_page.h"
#include "bible/book_file.h"
#include "reader/chapter_page.h"

inline Text PlainLine(TextView line)
{
    Text clean(line);
    std::erase(clean, u'\r');
    return clean;
}

inline Text PlainText(Text const& line, std::size_t from)
{
    return line.size() > from ? FromCodePage(TrimBlanks(*ToCodePage(line.substr(from)))) + u" "
                              : u" ";
}

inline Text PlainHead(TextView folder)
{
    return u"<html><head><title>Bible Reader</title>\r\n<script language=\"JavaScript\">\r\n"
           u"<!--\r\n"
           u"document.oncontextmenu = function(){return false}\r\n//-->\r\n</script>\r\n</head>\r\n"
           u"<body background=\"file://"
        + Text(folder) + u"\\bg.jpg\">\r\n<font size=2 face=\"verdana\">\r\n";
}

inline Text PlainChapterPage(std::string_view bookFile, PageRequest const& request)
{
    Text const file = FromCodePage(bookFile);
    auto const lines = Split(file, u'\n');
    Text page = PlainHead(request.applicationFolder);
    int lastChapter = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        Text line = PlainLine(lines[i]);
        if (line.find(u'\xB6') != Text::npos)
            page += u"<p>";
        std::erase(line, u'\xB6');
        std::erase(line, u'*');
        if (line.empty() || line.front() == u' ')
            continue;
        auto const columns = *ToCodePage(line);
        auto const chapter = ColumnNumber(columns, 0), verse = ColumnNumber(columns, 4);
        if (!chapter || !verse || !VerseWanted(request.wanted, *chapter, *verse))
            continue;
        if (*chapter != lastChapter)
            page += u"<a name=chapter" + FromNumber(*chapter)
                + u"><p><b><font face=\"Arial\" color=darkblue>Chapter " + FromNumber(*chapter)
                + u"</font></b><p>\r\n";
        lastChapter = *chapter;
        page += u"<sup>" + FromNumber(*verse) + u"</sup>&nbsp;" + PlainText(line, 8);
        while (i + 1 < lines.size()) {
            auto const more = PlainText(PlainLine(lines[++i]), 0);
            page += more;
            if (more == u" ")
                break;
        }
        page += request.runsOn ? u" " : u"<p>\r\n";
    }
    return page + u"</body></html>";
}
