#pragma once
// The lines of a book file, one after the other. What a line means is book_file.h's work and
// chapter_page.h's.

#include <string>
#include <string_view>

/// The lines, split at every line feed, without their carriage returns. The bytes outlive this
/// object.
class BookLines {
public:
    explicit BookLines(std::string_view bytes);

    /// The index of the last line, from 0.
    int Last() const { return m_survey.lineFeeds; }
    /// Of the line that Next gave last.
    int Index() const { return m_index; }
    bool HasNext() const { return m_index < Last(); }
    /// False if there is no asterisk in any line.
    bool HaveAsterisks() const { return m_survey.hasAsterisks; }

    /// Valid until the next call of Next or Without.
    std::string_view Next();

    /// The line without this character, valid until the next call.
    std::string_view Without(char character, std::string_view line);

private:
    /// What a file holds, found out in one pass, so that no line is searched for what the whole
    /// file lacks.
    struct Survey {
        int lineFeeds = 0;
        bool hasLoneReturns = false; // carriage returns that no line feed follows
        bool hasAsterisks = false;
    };

    static Survey SurveyOf(std::string_view bytes);
    static void AddBlock(Survey& survey, char const* block);

    std::string_view m_rest;
    std::string m_remainder; // what Without left of a line
    Survey m_survey;
    int m_index = -1;
};
