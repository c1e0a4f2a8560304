#include "base/rounding.h"

#include <cmath>

std::int64_t RoundToEven(double value)
{
    return std::llrint(value); // The default rounding mode, which nothing changes: halves to even.
}

std::int16_t RoundToInt16(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= INT16_MIN)
        return INT16_MIN;
    if (value >= INT16_MAX)
        return INT16_MAX;
    return static_cast<std::int16_t>(std::llrint(value));
}
