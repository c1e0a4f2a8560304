#pragma once
// References to passages, as an author writes them: "Ruth 1", "Ruth 1:1,16-18", "Isaiah
// 52:13-53:12", "Jude" (docs/formats/study-source.md).

#include "base/text.h"
#include "kit/bible/bible_texts.h"
#include "kit/common/faults.h"

#include <vector>

/// Verses of one chapter under a heading of their own.
struct Passage {
    Text heading; ///< the full reference; ends in a digit
    int line = 0; ///< of the source, where it is asked for
    std::vector<Verse> verses; ///< at least one
};

/// The passages of a reference, one for each chapter that it touches, in their order. A
/// reference to no verse, to an unknown book, or to one of several books, is a fault at the line;
/// then the result is empty.
std::vector<Passage> FindPassages(
    TextView reference, BibleTexts& bible, std::string const& file, int line, Faults& faults);
