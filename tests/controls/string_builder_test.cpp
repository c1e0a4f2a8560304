#include "controls/string_builder.h"

#include <gtest/gtest.h>

TEST(StringBuilder, GrowsInUnitsOfTheCapacityItStartsFrom)
{
    CStringBuilder builder;
    EXPECT_EQ(&builder.Append(Text(4096, u'x')), &builder);
    EXPECT_EQ(builder.Capacity(), 8192);
    builder.Append(u"x");
    EXPECT_EQ(builder.Capacity(), 10240);
    EXPECT_EQ(builder.BufferBump(), 2560);
    builder.Append(Text(2000, u'y')); // 12,194 bytes in units of 2,560
    EXPECT_EQ(builder.Capacity(), 12800);
    EXPECT_EQ(builder.ToString(), Text(4097, u'x') + Text(2000, u'y'));
}

TEST(StringBuilder, SetsTheCapacityInWholeUnits)
{
    struct {
        std::int32_t set, expected, length;
    } const rows[] = { { 1, 2048, 1024 }, { 2048, 2048, 1024 }, { 2049, 4096, 2048 },
        { 9000, 10240, 3000 }, { 0, 8192, 3000 }, { -5, 8192, 3000 } };
    for (auto const& row : rows) {
        CStringBuilder builder;
        builder.Append(Text(3000, u'a'));
        builder.SetCapacity(row.set);
        EXPECT_EQ(builder.Capacity(), row.expected) << row.set;
        EXPECT_EQ(builder.Length(), row.length) << row.set;
        EXPECT_EQ(builder.ToString(), Text(static_cast<std::size_t>(row.length), u'a')) << row.set;
        EXPECT_EQ(builder.EnsureCapacity(row.expected), row.expected);
    }
}

TEST(StringBuilder, GrowsInWholeCharactersFromASmallCapacity)
{
    CStringBuilder builder;
    builder.SetSizingMethod(0);
    builder.SetBufferBump(2);
    builder.SetCapacity(2);
    builder.SetSizingMethod(1);
    builder.SetSizingPercent(1);
    EXPECT_EQ(builder.BufferBump(), 0);
    builder.Append(u"abc");
    EXPECT_EQ(builder.Capacity(), 6);
    EXPECT_EQ(builder.ToString(), u"abc");
}

TEST(StringBuilder, IgnoresBadValues)
{
    CStringBuilder builder;
    builder.SetBufferBump(1001);
    EXPECT_EQ(builder.BufferBump(), 2048) << "the unit is a percentage now";
    builder.SetSizingMethod(2);
    builder.SetSizingMethod(-1);
    EXPECT_EQ(builder.SizingMethod(), 1);
    builder.SetSizingPercent(0);
    builder.SetSizingPercent(101);
    EXPECT_EQ(builder.SizingPercent(), 25);
    builder.SetSizingMethod(0);
    builder.SetBufferBump(1001);
    EXPECT_EQ(builder.BufferBump(), 1002);
    builder.SetBufferBump(0);
    EXPECT_EQ(builder.BufferBump(), 1002);
    builder.Append(u"text").SetLength(-1);
    EXPECT_EQ(builder.ToString(), u"text");
}

TEST(StringBuilder, InsertsAndRemoves)
{
    struct {
        std::int32_t at;
        TextView inserted;
        std::int32_t from, count;
        TextView expected;
    } const rows[] = { { 0, u"ab", 0, 0, u"abwork" }, { 4, u"ab", 0, 0, u"workab" },
        { 2, u"", 0, 4, u"" }, { 2, u"", 1, 2, u"wk" }, { 1, u"x", 4, 1, u"wxor" } };
    for (auto const& row : rows) {
        CStringBuilder builder;
        builder.Append(u"work").Insert(row.at, row.inserted).Remove(row.from, row.count);
        EXPECT_EQ(builder.ToString(), row.expected);
    }
    CStringBuilder builder;
    builder.Insert(0, u"first").Insert(5, Text(5000, u'z')).Insert(0, u">");
    EXPECT_EQ(builder.ToString(), u">first" + Text(5000, u'z'));
}

TEST(StringBuilder, LengthCutsAndLengthens)
{
    CStringBuilder builder;
    builder.Append(u"abcdef").SetLength(2);
    EXPECT_EQ(builder.ToString(), u"ab");
    builder.SetLength(6);
    EXPECT_EQ(builder.ToString(), u"abcdef") << "what the buffer held";
    builder.SetLength(5000);
    EXPECT_EQ(builder.Length(), 5000);
    EXPECT_EQ(builder.Capacity(), 10240);
    builder.SetLength(0);
    EXPECT_EQ(builder.Capacity(), 10240);
}

/// What an operation raises: the source and the message.
template <class Operation> static std::string Raised(CStringBuilder& builder, Operation operation)
{
    try {
        operation(builder);
    } catch (StringBuilderError const& error) {
        return error.source + ": " + error.what();
    }
    return "nothing";
}

TEST(StringBuilder, RaisesErrorsAndStaysAsItWas)
{
    constexpr auto reading = "Chars: Tried reading character past end of buffer.",
                   assigning = "Chars: Tried assigning character past end of buffer.",
                   insert = "Insert: Argument(s) out of range.",
                   remove = "Remove: Argument(s) out of range.";
    constexpr std::int32_t most = 0x7FFFFFFF;
    struct {
        void (*operation)(CStringBuilder&);
        std::string expected;
    } const rows[] = {
        { [](auto& b) { b.Chars(4); }, reading },
        { [](auto& b) { b.Chars(-1); }, reading },
        { [](auto& b) { b.SetChars(4, u"x"); }, assigning },
        { [](auto& b) { b.Insert(5, u"x"); }, insert },
        { [](auto& b) { b.Insert(-1, u""); }, insert },
        { [](auto& b) { b.Insert(most, u"x"); }, insert },
        { [](auto& b) { b.Remove(2, 3); }, remove },
        { [](auto& b) { b.Remove(0, -1); }, remove },
        { [](auto& b) { b.Remove(most, most); }, remove },
    };
    for (auto const& row : rows) {
        CStringBuilder builder;
        builder.Append(u"work");
        EXPECT_EQ(Raised(builder, row.operation), "CStringBuilder." + row.expected);
        EXPECT_EQ(builder.ToString(), u"work");
    }
    EXPECT_EQ(StringBuilderError::number, static_cast<std::int32_t>(0x80040200));
}
