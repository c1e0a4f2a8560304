#include "bible/book_index.h"

#include <gtest/gtest.h>

namespace {

/// "number name|chapters" of the book that is found; "0" if none is.
std::string Find(TextView beginning, std::vector<TextView> const& index)
{
    BookSearch search(beginning);
    for (auto const line : index)
        search.Take(line);
    auto const text = std::to_string(search.Number());
    return search.Number() == 0
        ? text
        : text + ' ' + ToUtf8(search.Found().name) + '|' + ToUtf8(search.Found().chapterCount);
}

TEST(BookSearch, FindsTheFirstBookThatBeginsWithTheText)
{
    std::vector<TextView> const index { u"Joshua|24", u"Job|42", u"Joel|3", u"John|21", u"1 John|5",
        u"\u00C9zra|10", u"JOHN MARK|7" };
    struct Row {
        TextView beginning;
        char const* found;
    };
    Row const rows[] = {
        { u"jo", "1 Joshua|24" },
        { u"JOB", "2 Job|42" },
        { u"joe", "3 Joel|3" },
        { u"ohn", "0" }, // from the beginning alone
        { u"1 j", "5 1 John|5" },
        { u"\u00E9", "6 \u00C9zra|10" },
        { u"John", "7 JOHN MARK|7" }, // a later name that begins with the whole of the one found
        { u"Joh", "7 JOHN MARK|7" },
        { u"john m", "7 JOHN MARK|7" },
        { u"Johnny", "0" },
        { u"", "1 Joshua|24" },
        { u"joshua|", "0" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Find(row.beginning, index), row.found) << ToUtf8(row.beginning);
}

TEST(BookSearch, PassesOverMalformedLinesButCountsThem)
{
    struct Row {
        TextView line;
        char const* found;
    };
    Row const rows[] = { { u"Job|42", "1 Job|42" }, { u"Job|0", "1 Job|0" },
        { u"Job|32767", "1 Job|32767" }, { u"Job", "2 Joel|9" }, { u"", "2 Joel|9" },
        { u"Job|", "2 Joel|9" }, { u"Job|x", "2 Joel|9" }, { u"Job|-1", "2 Joel|9" },
        { u"Job|32768", "1 Job|32768" }, { u"Job|99999999999999999999", "2 Joel|9" },
        { u"Job|42|7", "2 Joel|9" }, { u"|42", "2 Joel|9" } };
    for (auto const& row : rows)
        EXPECT_EQ(Find(u"jo", { row.line, u"Joel|9", u"Other|1" }), row.found) << ToUtf8(row.line);
}

} // namespace
