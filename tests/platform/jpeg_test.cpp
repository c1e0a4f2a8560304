#include "platform/jpeg.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

static std::string Segment(char marker, std::string const& content)
{
    auto const length = content.size() + 2;
    return "\xFF"s + marker + static_cast<char>(length >> 8) + static_cast<char>(length) + content;
}

static std::string Frame(char marker, char bits, std::string const& heightAndWidth, char components)
{
    return Segment(marker, bits + heightAndWidth + components + std::string(9, '\0'));
}

static std::string const start = "\xFF\xD8", end = "\xFF\xD9",
                         frame = Frame('\xC2', 8, "\0\x20\1\0"s, 3),
                         scan = Segment('\xDA', "\1\1\0\0\x3F\0"s) + "ab\xFF\0c\xFF\xD0"s;

TEST(Jpeg, ReadsTheHeadAndRefusesTheRest)
{
    struct {
        char const* about;
        std::string bytes;
        int width, height, scans;
        bool isWhole;
    } const rows[] = {
        { "whole", start + frame + scan + end, 256, 32, 1, true },
        { "a segment and a fill byte before the frame",
            start + Segment('\xE0', "ab") + "\xFF" + frame + scan, 256, 32, 1, false },
        { "two scans", start + frame + scan + scan + end, 256, 32, 2, true },
        { "a second picture behind the end", start + frame + scan + end + start + frame + scan, 256,
            32, 1, true },
        { "a thumbnail",
            start + Segment('\xE1', start + Frame('\xC0', 8, "\0\1\0\1"s, 3) + scan + end) + frame
                + scan + end,
            256, 32, 1, true },
        { "cut off in the frame", start + frame.substr(0, 6), 0, 0, 0, false },
        { "a segment of length 0", start + "\xFF\xE0\0\0"s + frame, 0, 0, 0, false },
        { "two frames", start + frame + frame + scan + end, 0, 0, 0, false },
        { "arithmetic coding", start + Frame('\xC9', 8, "\0\x20\1\0"s, 3) + scan + end, 0, 0, 0,
            false },
        { "12 bits a sample", start + Frame('\xC1', 12, "\0\x20\1\0"s, 3) + scan + end, 0, 0, 0,
            false },
        { "no height", start + Frame('\xC0', 8, "\0\0\1\0"s, 3) + scan + end, 0, 0, 0, false },
        { "PNG", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\1\0\0\0\0\x10"s, 0, 0, 0, false },
        { "text", "map of the exodus", 0, 0, 0, false },
        { "empty", "", 0, 0, 0, false },
    };
    for (auto const& row : rows) {
        auto const head = JpegHeadOf(row.bytes);
        ASSERT_EQ(head.has_value(), row.width > 0) << row.about;
        if (head) {
            EXPECT_EQ(head->width, row.width) << row.about;
            EXPECT_EQ(head->height, row.height) << row.about;
            EXPECT_EQ(head->scans, row.scans) << row.about;
            EXPECT_EQ(head->isWhole, row.isWhole) << row.about;
        }
    }
}

TEST(Jpeg, BearsWhatAMapNeedsAndNoMore)
{
    struct {
        JpegHead head;
        bool isBearable;
    } const rows[] = {
        { { 2300, 2197, 3, 1, true }, true },
        { { 2300, 2197, 3, 10, true }, true },
        { { 65535, 65535, 3, 1, true }, false },
        { { 1000, 1000, 3, 4000, true }, false },
    };
    for (auto const& row : rows)
        EXPECT_EQ(IsBearable(row.head), row.isBearable) << row.head.width << ' ' << row.head.scans;
}
