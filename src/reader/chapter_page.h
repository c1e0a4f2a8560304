#pragma once
// The page of HTML that the reader shows for a reference: a book, a chapter or verses of one, built
// from the text file of the book. The form of that file stands in docs/formats/bible-files.md; what
// stands in a verse goes into the page as it is.

#include "bible/reference.h"

#include <functional>
#include <optional>
#include <string_view>

struct PageRequest {
    Text applicationFolder; ///< where the background picture bg.jpg lies
    bool runsOn = false; ///< verses follow each other as continuous text; else each is a paragraph
    WantedVerses wanted;
};

/// Who wants to follow the building. Each may be empty.
struct PageListener {
    std::function<void(int lastLine)> begin; ///< the index of the file's last line, from 0
    /// a line is looked at: each but those behind a verse that is shown
    std::function<void(int line)> line;
    /// once for each line behind a verse that is shown; false ends the building
    std::function<bool()> turn;
};

/// The whole page, from the bytes of the book file; nothing if the listener ended the building. A
/// verse line whose columns are no numbers is passed over; a last line that is a verse line is
/// shown.
std::optional<Text> BuildChapterPage(
    std::string_view bookFile, PageRequest const& request, PageListener const& listener = {});

/// The page before the first lookup.
Text EmptyPage(TextView applicationFolder);
