// Pages of the Bible reader, from the book file to the page's text, beside the reading of that
// file, each byte touched once, and the writing of as many bytes as the page has; the copy of a
// page for the browser control, beside the conversion of each of its bytes; the text buffer that
// gathers a page beside a plain string.
//
//   bible_bench [DISC]    a folder with the King James text as packaging/make_disc.sh leaves it
//   (left out: build/disc)

#include "book_pages.h"
#include "controls/page_filter.h"
#include "controls/string_builder.h"
#include "ratios.h"

#include <cstring>
#include <memory>

namespace {

constexpr double pageAtMost = 6; // times its floor
constexpr double filterAtMost = 2; // times its floor
constexpr double builderAtMost = 2; // times a plain string
constexpr double john3AtMost = 0.4, psalmsAtMost = 5, john3FilterAtMost = 0.02; // milliseconds

void PageFloor(benchmark::State& state, Disc const& disc, Passage const& passage)
{
    auto const pageSize = disc.Page(passage).size() * sizeof(char16_t);
    for (auto _ : state) {
        auto const bytes = disc.ReadBook(passage);
        unsigned sum = 0;
        for (char const byte : bytes)
            sum += static_cast<unsigned char>(byte);
        benchmark::DoNotOptimize(sum);
        auto const page = std::make_unique_for_overwrite<char[]>(pageSize);
        std::memset(page.get(), ' ', pageSize);
        benchmark::ClobberMemory();
    }
}

void Filter(benchmark::State& state, Disc const& disc, Passage const& passage)
{
    auto const page = *ToCodePage(disc.Page(passage));
    auto const background = *ToCodePage(u"file://" + disc.Folder() + u"\\bg.jpg");
    for (auto _ : state)
        benchmark::DoNotOptimize(FilterPage(page, background).data());
}

void FilterFloor(benchmark::State& state, Disc const& disc, Passage const& passage)
{
    auto const page = *ToCodePage(disc.Page(passage));
    for (auto _ : state) {
        Text copy(page.size(), u'\0');
        ConvertEach(page, copy.data());
        benchmark::DoNotOptimize(copy.data());
    }
}

/// Pieces of the lengths that a page has.
constexpr TextView pieces[] = { u"<sup>", u"16", u"</sup>&nbsp;",
    u"For God so loved the world, that he gave his only begotten ",
    u"Son, that whosoever believeth in him should not perish, but have ", u"everlasting life. ",
    u"", u" ", u"<p>\r\n" };
constexpr int rounds = 2000;

void Builder(benchmark::State& state)
{
    for (auto _ : state) {
        CStringBuilder builder;
        for (int round = 0; round < rounds; ++round)
            for (TextView const piece : pieces)
                builder.Append(piece);
        benchmark::DoNotOptimize(builder.ToString().data());
    }
}

void PlainString(benchmark::State& state)
{
    for (auto _ : state) {
        Text text;
        for (int round = 0; round < rounds; ++round)
            for (TextView const piece : pieces)
                text.append(piece);
        benchmark::DoNotOptimize(Text(text).data());
    }
}

} // namespace

int main(int count, char** arguments)
{
    benchmark::Initialize(&count, arguments);
    Disc const disc(DiscFolder(count, arguments));
    for (Passage const& passage : { john3, psalms }) {
        std::string const name = passage.name;
        RegisterShort(name, Page, disc, passage);
        RegisterShort(name + ", floor", PageFloor, disc, passage);
        RegisterShort(name + ", filter", Filter, disc, passage);
        RegisterShort(name + ", filter's floor", FilterFloor, disc, passage);
    }
    RegisterShort("CStringBuilder", Builder);
    RegisterShort("std::u16string", PlainString);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintTime(john3.name, john3AtMost);
    reporter.PrintTime(psalms.name, psalmsAtMost);
    reporter.PrintRatio("John 3", "John 3, floor", pageAtMost);
    reporter.PrintRatio("Psalms", "Psalms, floor", pageAtMost);
    reporter.PrintTime("John 3, filter", john3FilterAtMost);
    reporter.PrintRatio("Psalms, filter", "Psalms, filter's floor", filterAtMost);
    reporter.PrintRatio("CStringBuilder", "std::u16string", builderAtMost);
}
