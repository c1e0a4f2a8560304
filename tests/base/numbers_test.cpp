#include "base/rounding.h"
#include "base/turns.h"

#include <gmock/gmock.h>

#include <cmath>

TEST(Rounding, HalvesGoToTheEvenNeighbour)
{
    struct {
        double value;
        int rounded;
    } const rows[] = { { 0.5, 0 }, { 1.5, 2 }, { 2.5, 2 }, { -0.5, 0 }, { -1.5, -2 }, { -2.5, -2 },
        { 2.4999, 2 }, { 2.5001, 3 }, { 32766.5, 32766 } };
    for (auto const& row : rows) {
        EXPECT_EQ(RoundToEven(row.value), row.rounded) << row.value;
        EXPECT_EQ(RoundToInt16(row.value), row.rounded) << row.value;
    }
}

TEST(Rounding, SixteenBitsHoldWhatLiesOutside)
{
    struct {
        double value;
        int held;
    } const rows[] = { { 32767.4, 32767 }, { 32768, 32767 }, { 1e300, 32767 }, { HUGE_VAL, 32767 },
        { -32768.4, -32768 }, { -1e300, -32768 }, { -HUGE_VAL, -32768 }, { std::nan(""), 0 } };
    for (auto const& row : rows)
        EXPECT_EQ(RoundToInt16(row.value), row.held) << row.value;
}

TEST(Turns, TheHostIsCalledInTheTurnItAskedFor)
{
    int calls = 0;
    Turns turns([&] { ++calls; });
    turns.Give();
    turns.Arm(3);
    EXPECT_EQ(turns.UntilDue(), 3U);
    turns.GiveMany(2);
    EXPECT_EQ(calls, 0);
    turns.Give();
    EXPECT_EQ(calls, 1);
    turns.GiveMany(1000);
    EXPECT_EQ(calls, 1) << "not armed again";
    turns.Arm(5);
    turns.Give();
    turns.Arm(1); // in place of the former
    turns.Give();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(turns.Given(), 1U + 3 + 1000 + 1 + 1);
}

TEST(Turns, TheHostMayArmAndGiveTurnsWithinATurn)
{
    std::vector<Turns::Count> given;
    Turns* all = nullptr;
    Turns turns([&] {
        given.push_back(all->Given());
        if (given.size() < 3)
            all->Arm(2);
        all->Give(); // as work does that the host lets in
    });
    all = &turns;
    turns.Arm(1);
    for (int i = 0; i < 4; ++i)
        turns.Give();
    EXPECT_THAT(given, testing::ElementsAre(1U, 3U, 5U));
    EXPECT_EQ(turns.Given(), 7U);
}
