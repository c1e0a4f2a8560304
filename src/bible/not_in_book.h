#pragma once
// What the reader says of a chapter or verse that a book doesn't have: nothing of it is on the
// page.

#include "bible/book_index.h"
#include "bible/reference.h"

#include <string_view>

/// "John has 21 chapters", or "John 3 has 36 verses" with the number of the chapter's last verse.
/// For a book of one chapter and a number beyond it, which may be meant for a verse, "Jude has 1
/// chapter. For the verse type Jude 1:5". Empty if the book has all that is wanted, or if its index
/// line or its file, given as its bytes, doesn't tell.
Text NotInBook(BookEntry const& book, WantedVerses const& wanted, std::string_view bookFile);
