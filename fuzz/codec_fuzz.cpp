// Any line: the fast decoding and the fast expansion of book names give what their plain
// definitions give.

#include "base/code_page.h"
#include "check.h"
#include "study/codec.h"
#include "study/plain_book_names.h"

#include <algorithm>

static Text PlainlyDescrambled(std::string_view raw)
{
    if (!raw.starts_with('!'))
        return FromCodePage(raw);
    if (raw.size() < 3)
        return {};
    auto const key = static_cast<unsigned char>(raw.back());
    Text text = FromCodePage(raw.substr(1, raw.size() - 2));
    for (char16_t& character : text)
        if (IsLowerLetter(character))
            character = static_cast<char16_t>(97 + ((character - 97) - (key - 97) + 26) % 26);
    return text;
}

static void ReplaceUntilGone(Text& text, TextView from, TextView to)
{
    while (Contains(text, from))
        ReplaceAll(text, from, to);
}

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    std::string_view const raw(reinterpret_cast<char const*>(data), size);
    Text catalogue = PlainlyDescrambled(raw);
    ReplaceUntilGone(catalogue, u"//", u"/");
    ReplaceUntilGone(catalogue, u"\r\n\r\n", u"\r\n");
    ReplaceUntilGone(catalogue, u"\t", u" ");
    CHECK(DecodeCatalogueLine(raw) == catalogue);

    Text lesson = catalogue;
    ReplaceUntilGone(lesson, u"  ", u" ");
    Turns* armed = nullptr;
    Turns turns([&] { armed->Arm(3); });
    armed = &turns;
    turns.Arm(2);
    auto const decoded = DecodeLine(raw, turns);
    CHECK(decoded == Trim(lesson));
    CHECK(turns.Given() == 1 + (raw.starts_with('!') ? std::max<std::size_t>(size, 2) - 2 : 0));

    for (Text text : { decoded, FromCodePage(raw) }) {
        auto const plain = PlainlyExpanded(text);
        ExpandBookNames(text);
        CHECK(text == plain);
    }
    return 0;
}
