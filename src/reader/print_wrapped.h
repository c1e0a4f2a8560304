#pragma once
// Text on a printer, wrapped at words.

#include "controls/printer.h"

#include <cstdint>

/// Prints a text from 100 twips below the top of the page, between the margins, in twips.
/// Characters up to code 32 separate words: blanks are printed, tabs move to stops every ten widths
/// of "0" from the edge, line feeds end the line, others are dropped. A word wider than the column
/// overflows it.
void PrintWrapped(
    Printer& printer, TextView text, std::int32_t leftMargin, std::int32_t rightMargin);
