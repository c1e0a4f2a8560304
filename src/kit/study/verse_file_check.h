#pragma once

#include "kit/study/check_lines.h"

/// Reads all lines of a verse file (docs/formats/verse-files.md) and reports each that breaks its
/// grammar with what was expected.
void CheckVerseLines(CheckLines& lines);
