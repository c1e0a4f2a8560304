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
        auto const bytes = *ToCodePage(line);
        auto const verse = ParseVerseLine(bytes);
        if (!verse || !VerseWanted(request.wanted, verse->chapter, verse->verse))
            continue;
        Text const chapter = FromNumber(verse->chapter);
        if (verse->chapter != lastChapter)
            page += u"<a name=chapter" + chapter
                + u"><p><b><font face=\"Arial\" color=darkblue>Chapter " + chapter
                + u"</font></b><p>\r\n";
        lastChapter = verse->chapter;
        page += u"<sup>" + FromNumber(verse->verse) + u"</sup>&nbsp;" + PlainText(line, 8);
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
