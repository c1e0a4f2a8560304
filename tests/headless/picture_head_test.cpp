#include "headless/picture_head.h"

#include <gtest/gtest.h>

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
