#pragma once
// A user's answers and notes as documents to be printed and kept: one for each study, one for the
// notes.

#include "documents/document.h"
#include "kit/answers/user_work.h"
#include "platform/file_system.h"

/// The answers of each study; those to studies that `disc` lacks or that can't be read come last,
/// under their keys. Pages without an answer are left out, and so are lessons and studies without
/// any. `disc` finds study files by their bare names.
std::vector<Document> BuildAnswerDocuments(
    UserWork const& work, FileSystem const& disc, bool withPublisher);

/// The notes that aren't empty, a section for each, by their chapters. `files` shows drive C: of
/// the user.
Document BuildNotesDocument(UserWork const& work, FileSystem const& files);

enum class DocumentFormat { Html, Markdown, Json };

/// The whole document in UTF-8. Any text gives a valid one: what no text of that format can hold
/// becomes U+FFFD.
std::string Render(Document const& document, DocumentFormat format);
