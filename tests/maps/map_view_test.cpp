#include "maps/map_view.h"

#include <gtest/gtest.h>

using Length = std::optional<float>;
using Range = std::optional<std::int16_t>;

static MapBar NoBar(std::int16_t largeChange)
{
    return { false, largeChange, {}, {} };
}

static MapBar Bar(std::int16_t largeChange, Length length, Range max)
{
    return { true, largeChange, length, max };
}

static void ExpectBar(MapBar const& bar, MapBar const& expected)
{
    EXPECT_EQ(bar.isVisible, expected.isVisible);
    EXPECT_EQ(bar.largeChange, expected.largeChange);
    EXPECT_EQ(bar.length, expected.length);
    EXPECT_EQ(bar.max, expected.max);
}

TEST(MapView, EachCaseAndItsEdges)
{
    struct {
        char const* about;
        Size client, map;
        MapBar horizontal, vertical;
        Size viewport;
        float left, top;
        bool corner;
    } const rows[] = {
        { "both bars", { 1000, 600 }, { 2600, 1800 }, Bar(980, 986, 1616), Bar(580, 584, 1216),
            { 985, 585 }, 0, 0, true },
        { "a pixel more than fits each way", { 1000, 600 }, { 985, 585 }, Bar(980, 986, 1),
            Bar(580, 584, 1), { 985, 585 }, 0, 0, true },
        { "fits beside both bars", { 1000, 600 }, { 984, 584 }, NoBar(980), NoBar(580),
            { 1001, 601 }, 8, 8, false },
        { "wide alone", { 1000, 600 }, { 1400, 500 }, Bar(980, 999, 400), NoBar(580), { 1001, 585 },
            0, 42, false },
        { "high alone", { 1000, 600 }, { 600, 900 }, NoBar(980), Bar(580, 599, 300), { 985, 601 },
            192, 0, false },
        { "odd remainders are halved plainly", { 1000, 600 }, { 601, 900 }, NoBar(980),
            Bar(580, 599, 300), { 985, 601 }, 191.5F, 0, false },
        { "as wide as the window", { 1000, 600 }, { 1000, 500 }, Bar(980, 999, 0), NoBar(580),
            { 1001, 585 }, 0, 42, false },
        { "narrower than the window by less than a bar", { 1000, 600 }, { 985, 584 },
            Bar(980, 999, -15), NoBar(580), { 1001, 585 }, 0, 0, false },
        { "lower than the window by less than a bar", { 1000, 600 }, { 984, 590 }, NoBar(980),
            Bar(580, 599, -10), { 985, 601 }, 0, 0, false },
        { "small", { 1000, 600 }, { 1, 1 }, NoBar(980), NoBar(580), { 1001, 601 }, 499.5F, 299.5F,
            false },
        { "none", { 1000, 600 }, { 0, 0 }, NoBar(980), NoBar(580), { 1001, 601 }, 500, 300, false },
        { "squeezed to the bar's height", { 1000, 16 }, { 2600, 1800 }, Bar(980, {}, {}),
            Bar(1, {}, {}), { 1001, 17 }, -800, -892, false },
        { "a pixel higher than that", { 1000, 17 }, { 2600, 1800 }, Bar(980, 986, 1616),
            Bar(1, 1, 1799), { 985, 2 }, 0, 0, true },
        { "the step's floor is of the height alone", { 15, 20 }, { 300, 300 }, Bar(-5, 1, 301),
            Bar(1, 4, 296), { 0, 5 }, 0, 0, true },
        { "beyond what a bar can express", { 1000, 600 }, { 40000, 33352 }, Bar(980, 986, 32767),
            Bar(580, 584, 32767), { 985, 585 }, 0, 0, true },
        { "halves of a pixel go to the even range", { 1000.5F, 600.5F }, { 2600, 1800 },
            Bar(980, 986.5F, 1616), Bar(580, 584.5F, 1216), { 985.5F, 585.5F }, 0, 0, true },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.about);
        auto const view = ArrangeMap(row.client, row.map);
        ExpectBar(view.horizontal, row.horizontal);
        ExpectBar(view.vertical, row.vertical);
        EXPECT_EQ(view.viewport.width, row.viewport.width);
        EXPECT_EQ(view.viewport.height, row.viewport.height);
        EXPECT_EQ(view.mapLeft, row.left);
        EXPECT_EQ(view.mapTop, row.top);
        EXPECT_EQ(view.hasCorner, row.corner);
    }
}
