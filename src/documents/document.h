#pragma once
// A user's answers or notes as a document, to be printed or exported. Its texts are as the screen
// shows them, without the syntax of the files that they come from.

#include "base/text.h"

#include <string>
#include <vector>

/// A page of a lesson with its answers, or a note.
struct DocumentPage {
    Text number; ///< of the page, counted from 1; empty for a note
    Text label; ///< of a question, as "3."; empty for a page that asks nothing, and for a note
    std::vector<Text> text; ///< paragraphs; none for a note, or if the study isn't there
    Text answer; ///< the user's own, or the note, with its line ends
    std::vector<Text> publisher; ///< paragraphs of the publisher's answer; none if not asked for
    bool isOpen = false; ///< there is no answer, and room for one is wanted
};

/// One part of a lesson, or the note on a chapter.
struct DocumentSection {
    Text title;
    Text subtitle; ///< empty for none
    std::vector<DocumentPage> pages;
};

struct Document {
    /// of its file, without an ending; bare, and no two alike, even on a disk that ignores case
    std::string name;
    Text title;
    std::vector<DocumentSection> sections;
};

/// Stands above the publisher's answer.
inline constexpr TextView publisherHeading = u"Answer from Sparrowfield:";
