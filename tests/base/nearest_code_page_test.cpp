#include "base/nearest_code_page.h"

#include <gtest/gtest.h>

namespace {

TEST(NearestBytes, WritesWhatTheCodePageLacks)
{
    struct Row {
        char16_t const* text;
        char const* bytes;
        std::size_t replaced;
    };
    Row const rows[] = {
        { u"", "", 0 },
        { u"a\u201Cb\u201D \u20AC\u00E4",
            "a\x93"
            "b\x94 \x80\xE4",
            0 },
        { u"\u0141\u00F3d\u017A \u0100\u017F\u0132\u0133\u0131",
            "L\xF3"
            "dz AsIJiji",
            7 },
        { u"e\u0301\u200Bx", "ex", 2 },
        { u"1\u20102\u20153\u22124",
            "1-2\x97"
            "3-4",
            3 },
        { u"\u03B8\u03B5\u03CC\u03C2 \u0398", "theos Th", 5 },
        { u"\u05D0\u05B8\u05DC\u05EA", "'lt", 4 },
        { u"\u1F00\u03C1\u03C7\u1FC7 \u0390 \u1E25\u0219\u1EA1", "arche i hsa", 8 },
        { u"\uFB01n\u2026", "fin\x85", 1 },
        { u"\u4E2D\U0001F600\xD800", "\xA4\xA4\xA4", 3 },
    };
    for (auto const& row : rows) {
        auto const form = ToNearestCodePage(row.text);
        EXPECT_EQ(form.bytes, row.bytes) << ToUtf8(row.text);
        EXPECT_EQ(form.replaced, row.replaced) << ToUtf8(row.text);
    }
}

} // namespace
