#pragma once
// A text file read forward line by line. A line ends at a line feed, one carriage return before it dropped; a lone
// carriage return stays in its line. The end of the file ends the last line; a file that ends in a line feed
// has no further, empty line. Lines may have any length.

#include "base/text.h"
#include "platform/file_system.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

class TextLines {
public:
    /// Takes the file over; it is read in blocks and closed with this object. `name` stands in failures.
    TextLines(std::unique_ptr<InputFile> file, TextView name);

    /// Opens a file.
    static Outcome<TextLines> Open(FileSystem const& files, TextView name);

    /// True if nothing is left to read: a further Next would fail.
    bool AtEnd();

    /// The next line as its bytes in code page 1252, valid until the next call. Fails at the end of the file
    /// and where the file can't be read.
    Outcome<std::string_view> NextBytes();

    /// The next line as text, valid until the next call.
    Outcome<TextView> Next();

    /// The number of the line last read, counted from 1; 0 before the first.
    int LineNumber() const { return m_lineNumber; }

private:
    bool Fill();
    Failure Fail(TextView reason) const;

    std::unique_ptr<InputFile> m_file;
    Text m_name;
    std::string m_buffer; // bytes read and not yet taken lie from m_start to m_end
    std::size_t m_start = 0;
    std::size_t m_end = 0;
    bool m_finished = false;
    Text m_readFailure;
    Text m_line;
    int m_lineNumber = 0;
};
