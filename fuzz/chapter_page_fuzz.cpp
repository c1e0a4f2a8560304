// Any book file and any reference: the page is the one of the plain definition, whoever listens;
// every line of the file is reported once, and a listener who ends the building gets no page.

#include "base/code_page.h"
#include "bible/book_file.h"
#include "check.h"
#include "plain_chapter_page.h"
#include "reader/chapter_page.h"

#include <algorithm>
#include <string>

/// What a listener heard; it ends the building at a turn.
struct Heard {
    int lastLine = -1, lines = 0, line = 0, turns = 0;
    bool ended = false;
};

static PageListener Listener(Heard& heard, int turnsLeft)
{
    return { [&](int lastLine) {
                CHECK(heard.lastLine == -1);
                heard.lastLine = lastLine;
            },
        [&](int line) {
            CHECK(line > heard.line && line <= heard.lastLine && !heard.ended);
            heard.line = line;
            ++heard.lines;
        },
        [&heard, turnsLeft] {
            CHECK(!heard.ended);
            heard.ended = ++heard.turns == turnsLeft;
            return !heard.ended;
        } };
}

static void CheckRecords(std::string_view file)
{
    for (auto const& record : ReadVerseRecords(file)) {
        CHECK(record.chapter > -100 && record.chapter < 1000 && record.verse > -100
            && record.verse < 1000);
        CHECK(record.text.find('\n') == std::string::npos
            && record.text.find('\r') == std::string::npos);
    }
}

/// The first byte says whether verses run on, the second at which turn the building ends, the first
/// line behind them is the reference and the rest the file.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    if (size < 2)
        return 0;
    std::string_view file(reinterpret_cast<char const*>(data) + 2, size - 2);
    auto const reference = file.substr(0, file.find('\n'));
    file.remove_prefix(std::min(reference.size() + 1, file.size()));
    PageRequest const request { u"/disc", data[0] % 2 == 1,
        ReadWantedVerses(FromCodePage(reference)) };

    auto const page = BuildChapterPage(file, request);
    CHECK(page && *page == PlainChapterPage(file, request));
    CHECK(page->starts_with(u"<html>") && page->ends_with(u"</body></html>"));

    Heard heard;
    auto const followed = BuildChapterPage(file, request, Listener(heard, data[1]));
    CHECK(heard.lastLine == std::count(file.begin(), file.end(), '\n'));
    CHECK(heard.ended == !followed);
    CHECK(!followed || (*followed == *page && heard.lines + heard.turns == heard.lastLine));
    CheckRecords(file);
    return 0;
}
