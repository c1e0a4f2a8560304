#include "base/printable.h"

#include <gtest/gtest.h>

TEST(Printable, LeavesNothingThatSteersATerminal)
{
    struct {
        std::string text, printable;
    } const rows[] = {
        { "Ruth, \u00E9t\u00FCde, \u05E8\u05D5\u05EA, \U0001D11E",
            "Ruth, \u00E9t\u00FCde, \u05E8\u05D5\u05EA, \U0001D11E" },
        { "a\tb", "a b" },
        { "\x1B[2J\r\n\x07\x7F", "\uFFFD[2J\uFFFD\uFFFD\uFFFD\uFFFD" },
        { std::string("a\0b", 3), "a\uFFFDb" },
        { "\u009B31m\u0085", "\uFFFD31m\uFFFD" },
        { "\x9B"
          "31m",
            "\uFFFD31m" },
        { "\u202Etxt.exe\u2066\u2069\u200F\u061C", "\uFFFDtxt.exe\uFFFD\uFFFD\uFFFD\uFFFD" },
        { "\u2028\uFEFF\uFFFE\U000E0041", "\uFFFD\uFFFD\uFFFD\uFFFD" },
        { "\xED\xA0\x80", "\uFFFD" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Printable(row.text), row.printable) << row.text;
}
