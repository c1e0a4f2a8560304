// Any bytes as a page: its copy for the browser control holds only tags and attributes that are
// known to be harmless, in bounded depth and length, all text that needn't go, and is the same when
// it is filtered again.

#include "base/code_page.h"
#include "check.h"
#include "controls/page_filter.h"
#include "support/filtered_page.h"

#include <algorithm>
#include <string>

static std::ptrdiff_t Count(std::string_view text, char character)
{
    return std::count(text.begin(), text.end(), character);
}

/// The first line is the address of the page's background, the rest the page.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    std::string_view const input(reinterpret_cast<char const*>(data), size);
    auto const address = input.substr(0, input.find('\n'));
    auto const page = input.substr(std::min(address.size() + 1, input.size()));

    auto const shown = FilterPage(page, address);
    auto const fault = FaultOf(shown);
    if (!fault.empty())
        std::fprintf(stderr, "%s\n", fault.c_str());
    CHECK(fault.empty());
    CHECK(shown.size() <= page.size() * 5 + 100);
    auto const bytes = ToCodePage(shown);
    CHECK(bytes);
    CHECK(FilterPage(*bytes, pageBackground) == shown);
    // Without tags nothing of the text is lost.
    if (Count(page, '>') == 0)
        for (char const character : { 'a', 'M', ' ', '\0', '\xB6' })
            CHECK(Count(*bytes, character) >= Count(page, character));
    return 0;
}
