#pragma once
// What a JPEG file claims to be, found out before anything is decoded (ITU-T T.81: marker segments,
// B.1; frame header, B.2.2).

#include <optional>
#include <string_view>

struct JpegHead {
    int width, height; ///< pixels, above 0
    int components; ///< colours, 1 to 4
    /// passes over the picture: 1 for most baseline files, some ten for a progressive one
    int scans;
    bool isWhole; ///< the marker that closes the picture stands behind the last scan
};

/// Nothing unless the file begins as a JPEG, with an SOI marker, and has exactly one frame: a
/// Huffman-coded one of 8 bits a sample (baseline, extended or progressive). One pass over the
/// bytes.
std::optional<JpegHead> JpegHeadOf(std::string_view file);

/// True if decoding takes little enough memory and time: 16 million pixels, and 100 million over
/// all scans, of which a file of a megabyte can have thousands. A pixel of a scan takes 1 to 9 ns
/// (measured with libjpeg-turbo), so that is a second at most.
bool IsBearable(JpegHead const& head);
