#pragma once
// Builds the page of HTML that the reader shows for a reference (a book, a chapter or verses) from
// the text file of the book (docs/formats/bible-files.md). The text of a verse goes into the page
// as it is.

#include "bible/reference.h"

#include <functional>
#include <optional>
#include <string_view>

struct PageRequest {
    Text applicationFolder; ///< has the background picture, bg.jpg
    bool runsOn = false; ///< verses follow each other as continuous text; else each is a paragraph
    WantedVerses wanted;
};

/// Follows the building of a page. Each function may be empty.
struct PageListener {
    std::function<void(int lastLine)> begin; ///< the index of the file's last line, from 0
    /// each line, except those that follow the verse line of a verse that is shown
    std::function<void(int line)> line;
    /// each line that follows the verse line of a verse that is shown; false ends the building
    std::function<bool()> turn;
};

/// The whole page, from the bytes of the book file; nothing if the listener ended the building. A
/// verse line without numbers in its columns is skipped.
std::optional<Text> BuildChapterPage(
    std::string_view bookFile, PageRequest const& request, PageListener const& listener = {});

/// The page before the first lookup.
Text EmptyPage(TextView applicationFolder);
