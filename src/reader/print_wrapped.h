#pragma once
// Text on a printer, wrapped at words.

#include "controls/printer.h"

#include <cstdint>

/// Prints a text from 100 twips below the top of the present page, each line from `leftMargin` to
/// `rightMargin` twips before the right edge. Characters of code 32 and below separate words:
/// blanks are printed, tabs move to stops every ten widths of "0" from the edge, line feeds end the
/// line, others are left out. A word wider than the column runs past its end.
void PrintWrapped(
    Printer& printer, TextView text, std::int32_t leftMargin, std::int32_t rightMargin);
