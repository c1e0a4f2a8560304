#pragma once
// A document on a printer.

#include "controls/printer.h"
#include "documents/document.h"

/// Prints a document as one job, with a page number at the foot of each page. A heading or a
/// question is never at the foot of a page without the beginning of what follows. Below a question
/// that is open there are lines to write on.
void PrintDocument(Printer& printer, Document const& document);
