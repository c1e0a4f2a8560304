#pragma once
// The lines of a book file, one after the other. What a line means is book_file.h's work.

#include "bible/book_file.h"

#include <string>
#include <string_view>

/// The lines, split at every line feed, without any carriage returns. Bytes that end in a line feed
/// have one more, empty line. The bytes outlive this object.
class BookLines {
public:
    explicit BookLines(std::string_view bytes);

    /// The index of the last line, from 0.
    int Last() const { return m_survey.lineFeeds; }
    /// The index of the line that Next gave last; -1 before the first.
    int Index() const { return m_index; }
    bool HasNext() const { return m_index < Last(); }
    /// Valid until the next call of Next or WithoutMarks.
    std::string_view Next();

    struct Unmarked {
        std::string_view line; ///< valid until the next call of Next or WithoutMarks
        bool startsParagraph = false; ///< the line had a paragraph mark
    };
    /// The line that Next gave, without the marks that a verse line may have (book_file.h).
    Unmarked WithoutMarks(std::string_view line)
    {
        bool const startsParagraph = line.find(paragraphMark) != line.npos;
        if (startsParagraph)
            line = Without(paragraphMark, line);
        if (m_survey.hasDroppedMarks)
            line = Without(droppedMark, line);
        return { line, startsParagraph };
    }

private:
    std::string_view Without(char character, std::string_view line);

    /// What a file holds, found in one pass, so that no line is searched for what the whole file
    /// lacks.
    struct Survey {
        int lineFeeds = 0;
        bool hasLoneReturns = false; // carriage returns that no line feed follows
        bool hasDroppedMarks = false;
    };

    static Survey SurveyOf(std::string_view bytes);
    static void AddBlock(Survey& survey, char const* block);

    std::string_view m_rest;
    std::string m_remainder; // what Without left of a line
    Survey m_survey;
    int m_index = -1;
};
