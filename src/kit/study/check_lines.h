#pragma once
// The lines of a file of the disc that is checked, decoded as for the lesson screen, with a fault
// for each malformed line (docs/formats/study-files.md, "A line").

#include "base/text.h"
#include "base/turns.h"
#include "kit/common/faults.h"

#include <string>
#include <string_view>

class CheckLines {
public:
    /// The bytes and the faults outlive this object.
    CheckLines(std::string_view bytes, std::string file, Faults& faults);

    /// Goes to the next line; false at the end of the file.
    bool Next();
    /// The line decoded, valid until the next call.
    TextView Line() const { return m_line; }
    /// The line as it is in the file.
    std::string_view Raw() const { return m_raw; }
    /// Counted from 1; after the end, that of the last line.
    int Number() const { return m_number; }

    /// A fault in the present line.
    void Report(std::string message) { Report(m_number, std::move(message)); }
    void Report(int line, std::string message)
    {
        m_faults.push_back({ m_file, line, std::move(message) });
    }

private:
    void CheckRaw();

    std::string_view m_rest, m_raw;
    std::string m_file;
    Faults& m_faults;
    Turns m_turns;
    Text m_line;
    int m_number = 0;
};

/// The beginning of a line between quotation marks, for a message.
std::string Excerpt(TextView line);
