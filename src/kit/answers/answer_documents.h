#pragma once
// A user's answers and notes as documents to be printed and kept: one for each study, one for the
// notes.

#include "kit/answers/user_work.h"
#include "platform/file_system.h"

struct AnsweredQuestion {
    Text number; ///< of the page
    std::vector<Text> question; ///< paragraphs; none if the study isn't there
    Text answer; ///< the user's own, with its line ends
    /// paragraphs of the publisher's answer; none if it wasn't asked for or there is none
    std::vector<Text> publisher;
};

struct AnsweredLesson {
    Text title; ///< of the lesson, with its part
    std::vector<AnsweredQuestion> questions;
};

struct AnswerDocument {
    /// of its file, without an ending; bare, and no two alike, even on a disk that ignores case
    std::string name;
    Text title;
    std::vector<AnsweredLesson> lessons;
};

/// The answers of each study; those to studies that `disc` lacks or that can't be read come last,
/// under their keys. Pages without an answer are left out, and so are lessons and studies without
/// any. `disc` finds study files by their bare names.
std::vector<AnswerDocument> BuildAnswerDocuments(
    UserWork const& work, FileSystem const& disc, bool withPublisher);

/// The notes that aren't empty, a "lesson" for each, by their chapters. `files` shows drive C: of
/// the user.
AnswerDocument BuildNotesDocument(UserWork const& work, FileSystem const& files);

enum class DocumentFormat { Html, Markdown, Json };

/// The whole document in UTF-8. Any text gives a valid one: what no text of that format can hold
/// becomes U+FFFD.
std::string Render(AnswerDocument const& document, DocumentFormat format);
