#pragma once
// The fixed measures of the headless host (docs/drive.md): at p points every character is 12 p
// twips wide, every line 24 p twips high.

#include "controls/host.h"

inline constexpr float characterWidthPerPoint = 12; // twips
inline constexpr float lineHeightPerPoint = 24; // twips

/// The size of a text, wrapped within `wrapWidth` twips if that is above 0: at blanks, a word
/// longer than the line by character. Every line end starts a line; a last, empty one counts.
Size MeasureFixed(Font const& font, TextView text, float wrapWidth);
