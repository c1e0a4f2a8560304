#pragma once
// The 66 books in the order of their numbers, as the Bible files count them, with the chapters and
// verses of the King James Version (1,189 and 31,102, counted in the Debian package
// sword-text-kjv). Other translations are held against the same numbers.

#include "base/text.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

struct CanonBook {
    Text name; ///< as the program spells it, with Arabic figures
    std::string exportName; ///< as SWORD exports spell it
    std::vector<int> verseCounts; ///< of each chapter
};

constexpr std::size_t bookCount = 66;

std::span<CanonBook const, bookCount> Canon();

/// True for deuterocanonical and apocryphal books that exports hold besides the 66, by their names
/// in exports.
bool IsFurtherBook(std::string_view exportName);

/// True for the verses that are in the King James Version but not in the oldest manuscripts, and
/// that newer translations leave out; `book` as the program spells it.
bool IsOftenAbsent(TextView book, int chapter, int verse);
