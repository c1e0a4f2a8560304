#include "platform/jpeg.h"

#include <cstdint>

namespace {

constexpr std::int64_t mostPixels = 16'000'000;
constexpr std::int64_t mostPixelsOfAllScans = 100'000'000;

enum Marker : unsigned {
    startOfBaseline = 0xC0,
    startOfProgressive = 0xC2,
    huffmanTables = 0xC4,
    extension = 0xC8,
    arithmeticConditions = 0xCC,
    lastStartOfFrame = 0xCF,
    firstRestart = 0xD0,
    startOfImage = 0xD8,
    endOfImage = 0xD9,
    startOfScan = 0xDA,
    temporary = 0x01,
};

bool IsFrame(unsigned marker)
{
    return marker >= startOfBaseline && marker <= lastStartOfFrame && marker != huffmanTables
        && marker != extension && marker != arithmeticConditions;
}

bool StandsAlone(unsigned marker)
{
    return marker == temporary || (marker >= firstRestart && marker <= startOfImage);
}

/// The marker segments of a file, one after the other, picture data left out.
class Segments {
public:
    explicit Segments(std::string_view file)
        : m_rest(file)
    {
    }

    /// Goes to the next marker; false where there is none.
    bool Next()
    {
        do {
            auto const at = m_rest.find('\xFF');
            if (at == m_rest.npos || at + 1 >= m_rest.size())
                return false;
            m_rest.remove_prefix(at + 1);
            m_marker = static_cast<unsigned char>(m_rest.front());
            // Behind a fill byte the marker is still to come; 0 stands behind a byte of picture
            // data.
            if (m_marker != 0xFF)
                m_rest.remove_prefix(1);
        } while (m_marker == 0xFF || m_marker == 0);
        m_content = {};
        if (StandsAlone(m_marker) || m_marker == endOfImage)
            return true;
        if (m_rest.size() < 2)
            return false;
        std::size_t const length = At(m_rest, 0) << 8 | At(m_rest, 1); // which counts itself
        if (length < 2 || length > m_rest.size())
            return false;
        m_content = m_rest.substr(2, length - 2);
        m_rest.remove_prefix(length);
        return true;
    }

    unsigned Marker() const { return m_marker; }
    std::size_t Size() const { return m_content.size(); }
    /// A byte of the segment, behind its length.
    int Byte(std::size_t at) const { return static_cast<int>(At(m_content, at)); }

private:
    static unsigned At(std::string_view bytes, std::size_t at)
    {
        return static_cast<unsigned char>(bytes[at]);
    }

    std::string_view m_rest, m_content;
    unsigned m_marker = 0;
};

} // namespace

std::optional<JpegHead> JpegHeadOf(std::string_view file)
{
    if (!file.starts_with("\xFF\xD8\xFF"))
        return std::nullopt;
    JpegHead head {};
    for (Segments segments(file); !head.isWhole && segments.Next();) {
        if (IsFrame(segments.Marker())) {
            bool const isKnown = segments.Marker() <= startOfProgressive && segments.Size() >= 6
                && segments.Byte(0) == 8;
            if (!isKnown || head.components != 0)
                return std::nullopt;
            head.height = segments.Byte(1) << 8 | segments.Byte(2);
            head.width = segments.Byte(3) << 8 | segments.Byte(4);
            head.components = segments.Byte(5);
        } else if (segments.Marker() == startOfScan) {
            ++head.scans;
        } else if (segments.Marker() == endOfImage) {
            // What stands behind it, such as a second picture, is never decoded.
            head.isWhole = true;
        }
    }
    if (head.width == 0 || head.height == 0 || head.components < 1 || head.components > 4)
        return std::nullopt;
    return head;
}

bool IsBearable(JpegHead const& head)
{
    auto const pixels = std::int64_t { head.width } * head.height;
    return pixels <= mostPixels && pixels * head.scans <= mostPixelsOfAllScans;
}
