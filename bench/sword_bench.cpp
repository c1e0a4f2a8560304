// Two pages of the Bible reader beside another way to their text: the SWORD library, with the
// module from which the King James text is imported, renders the same verses to HTML in the same
// process.
//
//   sword_bench [DISC]    a folder with the King James text as packaging/make_disc.sh leaves it
//   (left out: build/disc)

#include "book_pages.h"
#include "ratios.h"

#include <markupfiltmgr.h>
#include <swbuf.h>
#include <swmgr.h>
#include <swmodule.h>
#include <versekey.h>

namespace {

constexpr double john3AtLeast = 10, psalmsAtLeast = 20; // times as fast

/// Where the library finds a passage: a chapter, or from its first verse to the end of the book.
struct Place {
    char const* firstVerse;
    bool isWholeBook;
};

/// The verses of a passage as the library renders them, its options as they are: the words, without
/// notes and numbers.
std::string Rendered(sword::SWModule& module, Place const& place)
{
    auto& key = dynamic_cast<sword::VerseKey&>(*module.getKey());
    key.setText(place.firstVerse);
    auto const book = key.getBook();
    auto const chapter = key.getChapter();
    std::string page;
    for (; !module.popError() && key.getBook() == book
         && (place.isWholeBook || key.getChapter() == chapter);
         module.increment())
        page += module.renderText().c_str();
    return page;
}

void Library(benchmark::State& state, sword::SWModule* module, Place const& place)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Rendered(*module, place).data());
}

/// Both ways must lead to the same text, or nothing is measured.
bool HasSame(Text const& page, std::string const& rendered, std::string const& first,
    std::string const& last)
{
    Text const firstWords(first.begin(), first.end()), lastWords(last.begin(), last.end());
    return page.find(firstWords) != Text::npos && page.find(lastWords) != Text::npos
        && rendered.find(first) != std::string::npos && rendered.find(last) != std::string::npos;
}

} // namespace

int main(int count, char** arguments)
{
    benchmark::Initialize(&count, arguments);
    Disc const disc(DiscFolder(count, arguments));
    sword::SWMgr library(new sword::MarkupFilterMgr(sword::FMT_XHTML));
    auto* const module = library.getModule("engKJV2006eb");
    if (!module) {
        std::puts("The module engKJV2006eb isn't installed (Debian package sword-text-kjv).");
        return 2;
    }
    Place const john { "John 3:1", false }, psalter { "Psalms 1:1", true };
    auto const chapter = Rendered(*module, john), book = Rendered(*module, psalter);
    if (!HasSame(disc.Page(john3), chapter, "a man of the Pharisees", "abideth on him")
        || !HasSame(disc.Page(psalms), book, "walketh not in the counsel",
            "every thing that hath breath")) {
        std::puts("The pages and the library's text are not the same verses.");
        return 1;
    }
    std::printf(
        "the library's text: %zu bytes for John 3, %zu for Psalms\n", chapter.size(), book.size());
    RegisterShort("John 3", Page, disc, john3);
    RegisterShort("John 3, library", Library, module, john);
    RegisterShort("Psalms", Page, disc, psalms);
    RegisterShort("Psalms, library", Library, module, psalter);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintGain("John 3", "John 3, library", john3AtLeast);
    reporter.PrintGain("Psalms", "Psalms, library", psalmsAtLeast);
}
