#include "headless/picture_head.h"
#include "headless/text_measure.h"

#include <gtest/gtest.h>

TEST(FixedMeasures, WrapAtBlanksAndByCharacter)
{
    // At 10 points a character is 120 twips wide and a line 240 high; the lines below have room for 5 characters.
    struct {
        TextView text;
        int lines, widest;
    } const rows[] = {
        { u"", 1, 0 },
        { u"abcde", 1, 5 },
        { u"ab cd", 1, 5 },
        { u"ab cde", 2, 3 },
        { u"abcdefg", 2, 5 },
        { u"ab cdefghi j", 3, 5 },
        { u"ab   ", 1, 2 },
        { u"abcde     f", 2, 5 },
        { u"a\r\nb\r\n", 3, 1 },
        { u"\r\n", 2, 0 },
    };
    for (auto const& row : rows) {
        auto const size = MeasureFixed({ u"Arial", 10, false }, row.text, 5 * 120);
        EXPECT_EQ(size.height, static_cast<float>(row.lines) * 240) << ToUtf8(row.text);
        EXPECT_LE(size.width, 600) << ToUtf8(row.text);
    }
    EXPECT_EQ(MeasureFixed({ u"Arial", 10, false }, u"no wrapping at all", 0).width, 18 * 120);
}

TEST(PictureHead, ReadsTheSizeOfEachFormatAndRefusesTheRest)
{
    using namespace std::string_literals;
    struct {
        char const* about;
        std::string bytes;
        float width, height;
    } const rows[] = {
        { "PNG", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\1\0\0\0\0\x10"s, 256, 16 },
        { "GIF", "GIF87a\x02\x01\x03\x00"s, 258, 3 },
        { "BMP upside down", "BM"s + std::string(16, '\0') + "\x05\0\0\0\xFE\xFF\xFF\xFF"s, 5, 2 },
        { "JPEG behind a segment", "\xFF\xD8\xFF\xE0\0\4ab\xFF\xFF\xC2\0\x11\x08\0\x20\1\0\3\0"s, 256, 32 },
        { "JPEG cut off", "\xFF\xD8\xFF\xE0\0\4ab\xFF\xC2\0\x11"s, 0, 0 },
        { "JPEG with a segment of length 0", "\xFF\xD8\xFF\xE0\0\0ab\xFF\xC2\0\x11\x08\0\x20\1\0\3\0\0\0"s, 0, 0 },
        { "PNG without size", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\0\0\0\0\x10"s, 0, 0 },
        { "text", "map of the exodus"s, 0, 0 },
        { "empty", ""s, 0, 0 },
    };
    for (auto const& row : rows) {
        auto const size = PictureSizeOf(row.bytes);
        ASSERT_EQ(size.has_value(), row.width > 0) << row.about;
        if (size) {
            EXPECT_EQ(size->width, row.width) << row.about;
            EXPECT_EQ(size->height, row.height) << row.about;
        }
    }
}
