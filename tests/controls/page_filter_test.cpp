#include "controls/page_filter.h"

#include "base/code_page.h"
#include "controls/page_words.h"
#include "support/filtered_page.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace std::string_literals;

static constexpr std::string_view address = "file:///the/disc\\bg.jpg";

/// What stands between the tags that a filtered page has around it.
static std::string Filtered(std::string_view page)
{
    std::string const shown = *ToCodePage(FilterPage(page, address));
    constexpr std::string_view begin = "<html><body>", end = "</body></html>";
    EXPECT_TRUE(shown.starts_with(begin) && shown.ends_with(end)) << shown;
    return shown.substr(begin.size(), shown.size() - begin.size() - end.size());
}

TEST(PageFilter, KeepsWhatIsKnownToBeHarmless)
{
    struct Row {
        std::string page, shown;
    };
    Row const rows[] = {
        // What the reader itself writes stays as it is.
        { "<font size=2 face=\"verdana\">\r\n<p><b><font face=\"Arial\" color=darkblue>Chapter "
          "1</font></b><p>\r\n"
          "<sup>1</sup>&nbsp;caf\xE9 &amp; more <p>\r\n",
            "<font size=2 face=\"verdana\">\r\n<p><b><font face=\"Arial\" color=darkblue>Chapter "
            "1</font></b><p>\r\n"
            "<sup>1</sup>&nbsp;caf\xE9 &amp; more <p>\r\n" },
        { "<a name=chapter1><p>x", "<a name=chapter1></a><p>x" },
        // Names in capital letters, blanks and slashes.
        { "<P>a<BR>b<br/>c<p/>d<EM >e</Em\n>", "<p>a<br>b<br>c<p>d<em>e</em>" },
        { "<strong><u><sub><span><i>x</i></span></sub></u></strong>",
            "<strong><u><sub><span><i>x</i></span></sub></u></strong>" },
        // Attributes.
        { "<b style='list-style-image:url(/dev/zero)' onclick=x>x</b>", "<b>x</b>" },
        { "<p title=\"a > b\" align='>'>x", "<p>x" },
        { "<p don't>x", "<p>x" },
        { "<b title=\"never closed>x", "<b>x" },
        { "<font SIZE = '7' color=\"#00fF0a\" FACE=VERDANA class=x>x</font>",
            "<font size=7 face=\"verdana\" color=#00fF0a>x</font>" },
        { "<font size=8><font size=+7><font size=22><font color=#12><font color='url(x)'><font "
          "face=Symbol>",
            "<font><font><font><font><font><font>" },
        { "<font size=1 size=7 style=\"background:url(x)\">", "<font size=1>" },
        { "<a href=\"file:///x\">x</a> <a name=\"a b\">y <a name='b\"c'>z", "x y z" },
        { "<body text=#ffffff background=\"/dev/zero\">x<body background='bg.jpg'>", "x" },
        // What goes, with or without its content.
        { "a<img src=\"/dev/zero\">b<IMG\nSRC=x>c", "abc" },
        { "<table background=\"/dev/zero\"><tr><td bgcolor=x>x</td></tr></table>", "x" },
        { "<ul style='x'><li>x</ul><h1>y</h1><pre>z</pre><object data=x>o</object><iframe "
          "src=x></iframe>",
            "xyzo" },
        { "a<script>alert(1<2)</script>b<STYLE>p{background:url(x)}</Style >c<title>d</TITLE\n>e",
            "abce" },
        { "a<script>b</scriptx>c", "abc" },
        { "a<style>b", "ab" },
        { "a</script>b", "ab" },
        { "<!DOCTYPE html><meta name=\"qrichtext\" content=\"1\" /><?xml x?><base href=x><link "
          "rel=stylesheet href=x>x",
            "x" },
        { "a<!-- <img src=x> -->b<!-- c", "ab&lt;!-- c" },
        { "a<![CDATA[b]]>c", "ac" },
        { "<!-->a-->b", "b" },
        // What opens no tag.
        { "1 < 2 <3 <", "1 &lt; 2 &lt;3 &lt;" },
        { "a</>b</ c>d", "a&lt;/>b&lt;/ c>d" },
        { "a<b", "a&lt;b" },
        { "a<img src=x", "a&lt;img src=x" },
        { "x <y and <b>z</b>", "x &lt;y and <b>z</b>" },
        { "< img src=x>", "&lt; img src=x>" },
        { "<scr<script>ipt></script>", "&lt;scr" },
        { "<scr<script>ipt>", "&lt;script>" },
        { "<<b>img src=x>", "&lt;<b>img src=x>" },
        { "<img alt=\"<b>\" src=x>", "&lt;img alt=\"<b>\" src=x>" },
        { "<im\0g src=x>a\0b<b\0>"s, "a\0b"s },
        { "&lt;img src=x&gt; &#60; &x; &", "&lt;img src=x&gt; &#60; &x; &" },
        // Closing tags of what isn't open, and of what a paragraph has ended.
        { "</b>a</p></font></html></body>", "a" },
        { "<p><b>a<p>b</b>c</p>d</p>", "<p><b>a<p>bc</p>d" },
        { "<b><i>a</b>b</i>", "<b><i>a</b>b" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Filtered(row.page), row.shown) << row.page;
}

TEST(PageFilter, HasTheBackgroundOfThePagesOwnHeadAlone)
{
    auto const page = [](std::string_view body) {
        return *ToCodePage(
            FilterPage("<html><head><title>t</title></head>" + std::string(body), address));
    };
    std::string const own = "<body background=\"" + std::string(address) + "\">";
    EXPECT_EQ(page(own + "x" + own), "<html><body background=\"bg.jpg\">x</body></html>");
    EXPECT_EQ(page("<body background=\"/dev/zero\">x" + own), "<html><body>x</body></html>");
    std::string const odd = "file:///a\">b'<img src=x>\\bg.jpg"; // a folder may have any name
    EXPECT_EQ(*ToCodePage(FilterPage("<body background=\"" + odd + "\">x", odd)),
        "<html><body background=\"bg.jpg\">x</body></html>");
}

/// Pages that would take the control, or a careless filter, long.
static std::vector<std::string> LongPages(std::size_t size)
{
    std::vector<std::string> pages;
    for (std::string_view const part : { "<", "<a", "<a =\"", "<a=\"\" x=\"", "<b>", "<p><b><i>",
             "<font size=7>", "<table><tr><td>", "<script>", "</script", "<script></", "<!--",
             "<!--<", "<![CDATA[", "<?", "&", "&#", "x", "<b>x</b>y", "&nbsp;", "<i x='", " =' ",
             "</p>", "<a name=n>", "<p x=>'", "<html><body>" }) {
        auto& page = pages.emplace_back();
        while (page.size() < size)
            page += part;
    }
    return pages;
}

TEST(PageFilter, BoundsDepthAndWords)
{
    for (auto const& page : LongPages(8000)) {
        SCOPED_TRACE(page.substr(0, 20));
        auto const shown = FilterPage(page, address);
        EXPECT_EQ(FaultOf(shown), "");
        EXPECT_LE(shown.size(), page.size() * 5 + 100);
        EXPECT_EQ(FilterPage(*ToCodePage(shown), pageBackground), shown);
    }
}

TEST(PageFilter, TakesTimeInProportionToTheLength)
{
    for (auto const& page : LongPages(std::size_t { 1 } << 18)) {
        auto const start = std::clock(); // of this process, whatever else the machine does
        FilterPage(page, address);
        // It takes a tenth of this; with the square of the length it would be minutes.
        EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC) << page.substr(0, 20);
    }
}

TEST(PageFilter, BreaksALongWordWhereItIsNotSeen)
{
    std::string const word(longestWord, 'x');
    EXPECT_EQ(Filtered(word + " " + word), word + " " + word);
    EXPECT_EQ(Filtered(word + "y"), word + "&#8203;y");
    EXPECT_EQ(Filtered("<b>" + word + "</b>&amp;y"), "<b>" + word + "</b>&#8203;&amp;y");
    auto const joined = word.substr(1) + "&nbsp;";
    EXPECT_EQ(Filtered(joined + "y z"), joined + "&#8203;y z");
}
