#include "setup/size_text.h"

Text SizeText(std::uint64_t bytes)
{
    static constexpr TextView units[] = { u" KB", u" MB", u" GB", u" TB", u" PB" };
    auto const* unit = units;
    std::uint64_t tenths = bytes / 100; // of the unit
    for (; tenths >= 10'000 && unit != std::end(units) - 1; ++unit)
        tenths /= 1000;
    auto const number
        = [](std::uint64_t value) { return FromNumber(static_cast<std::int64_t>(value)); };
    Text text = number(tenths / 10);
    if (tenths < 100 && tenths % 10 != 0)
        text += u'.' + number(tenths % 10);
    return text + Text(*unit);
}
