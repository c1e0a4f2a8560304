#pragma once
// Builds the HTML page for a reference (a book, a chapter or verses) from the text file of the book
// (docs/formats/bible-files.md). Verse text is copied unescaped.

#include "bible/reference.h"

#include <functional>
#include <optional>
#include <string_view>

struct PageRequest {
    Text applicationFolder; ///< has the background picture, bg.jpg
    bool runsOn = false; ///< verses follow each other as continuous text; else each is a paragraph
    WantedVerses wanted;
};

/// Callbacks, each of which may be empty.
struct PageListener {
    std::function<void(int lastLine)> begin; ///< the index of the file's last line, from 0
    std::function<void(int line)> line; ///< each line but those for `turn`
    std::function<bool()> turn; ///< each line after a shown verse's first; false aborts
};

/// The whole page; nothing if the listener aborted. A verse line without numbers is skipped.
std::optional<Text> BuildChapterPage(
    std::string_view bookFile, PageRequest const& request, PageListener const& listener = {});

/// The page before the first lookup.
Text EmptyPage(TextView applicationFolder);
