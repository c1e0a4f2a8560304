// The heads of the formats: PNG, ISO/IEC 15948, IHDR; GIF89a, logical screen descriptor; BMP, BITMAPINFOHEADER;
// JPEG, ITU-T T.81, the frame header (SOF) among the marker segments.

#include "headless/picture_head.h"

#include <cstdint>

using namespace std::string_view_literals;

static unsigned Byte(std::string_view file, std::size_t at)
{
    return static_cast<unsigned char>(file[at]);
}

static unsigned BigEndian16(std::string_view file, std::size_t at)
{
    return Byte(file, at) << 8 | Byte(file, at + 1);
}

static unsigned LittleEndian16(std::string_view file, std::size_t at)
{
    return Byte(file, at) | Byte(file, at + 1) << 8;
}

static std::optional<Size> Sized(std::int64_t width, std::int64_t height)
{
    if (width <= 0 || height <= 0)
        return std::nullopt;
    return Size { static_cast<float>(width), static_cast<float>(height) };
}

static std::optional<Size> JpegSize(std::string_view file)
{
    for (std::size_t at = 2; at + 9 < file.size();) {
        if (Byte(file, at) != 0xFF)
            return std::nullopt;
        unsigned const marker = Byte(file, at + 1);
        if (marker == 0xFF) {
            ++at; // A fill byte.
            continue;
        }
        bool const isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame)
            return Sized(BigEndian16(file, at + 7), BigEndian16(file, at + 5));
        bool const standsAlone = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
        at += standsAlone ? 2 : 2 + BigEndian16(file, at + 2);
    }
    return std::nullopt;
}

std::optional<Size> PictureSizeOf(std::string_view file)
{
    if (file.starts_with("\x89PNG\r\n\x1A\n"sv) && file.size() >= 24)
        return Sized(static_cast<std::int32_t>(BigEndian16(file, 16) << 16 | BigEndian16(file, 18)),
            static_cast<std::int32_t>(BigEndian16(file, 20) << 16 | BigEndian16(file, 22)));
    if ((file.starts_with("GIF87a") || file.starts_with("GIF89a")) && file.size() >= 10)
        return Sized(LittleEndian16(file, 6), LittleEndian16(file, 8));
    if (file.starts_with("BM") && file.size() >= 26) {
        auto const height = static_cast<std::int32_t>(LittleEndian16(file, 22) | LittleEndian16(file, 24) << 16);
        return Sized(static_cast<std::int32_t>(LittleEndian16(file, 18) | LittleEndian16(file, 20) << 16),
            height < 0 ? -static_cast<std::int64_t>(height) : height);
    }
    if (file.starts_with("\xFF\xD8"sv))
        return JpegSize(file);
    return std::nullopt;
}
