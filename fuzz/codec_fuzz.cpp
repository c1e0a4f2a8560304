// Any line: the fast decoding and the fast expansion of book names give what their plain
// definitions give.

#include "check.h"
#include "study/codec.h"
#include "study/plain_codec.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    std::string_view const raw(reinterpret_cast<char const*>(data), size);
    CHECK(DecodedForTheCatalogue(raw) == PlainlyDecodedForTheCatalogue(raw));
    Turns* armed = nullptr;
    Turns turns([&] { armed->Arm(3); });
    armed = &turns;
    turns.Arm(2);
    auto const decoded = Decoded(raw, turns);
    CHECK(decoded == PlainlyDecoded(raw));
    CHECK(turns.Given() == 1 + (raw.starts_with('!') ? std::max<std::size_t>(size, 2) - 2 : 0));

    for (Text text : { decoded, FromCodePage(raw) }) {
        auto const plain = PlainlyExpanded(text);
        ExpandBookNames(text);
        CHECK(text == plain);
    }
    return 0;
}
