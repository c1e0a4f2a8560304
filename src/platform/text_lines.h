#pragma once
// A text file read forward line by line. A line ends at a line feed, one carriage return before it
// dropped; a lone carriage return stays in its line. The end of the file ends the last line; a file
// that ends in a line feed has no further, empty line. Lines may hold any byte. One of
// more than 16 MB is a fault of the file, which can't be read any further. The memory in use grows
// with the longest line, not with the file.

#include "base/text.h"
#include "platform/file_system.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

class TextLines {
public:
    /// bytes, without the line end
    static constexpr std::size_t longestLine = std::size_t { 16 } << 20;

    /// Takes the file over; it is read in blocks and closed with this object. `name` stands in
    /// failures.
    TextLines(std::unique_ptr<InputFile> file, TextView name);

    /// Opens a file.
    static Outcome<TextLines> Open(FileSystem const& files, TextView name);

    /// True if nothing is left to read. False as well where the file can't be read any further: the
    /// next line then fails with the reason.
    bool AtEnd();

    /// The next line as its bytes in code page 1252, valid until the next call. Fails at the end of
    /// the file and, once the whole lines before it have been taken, where the file can't be read.
    Outcome<std::string_view> NextBytes();

    /// The next line as text, valid until the next call.
    Outcome<TextView> Next();

    /// The number of the line last read, counted from 1; 0 before the first.
    int LineNumber() const { return m_lineNumber; }

private:
    void Fill();
    void MakeRoom();
    std::string_view Take(std::size_t length, std::size_t withLineEnd);
    Failure GiveUp();
    Failure Fail(TextView reason) const;

    std::unique_ptr<InputFile> m_file;
    Text m_name;
    std::vector<char> m_buffer; // bytes read and not yet taken lie from m_start to m_end
    std::size_t m_start = 0;
    std::size_t m_end = 0;
    bool m_finished = false; // nothing more comes from the file: its end, or a failure
    Text m_readFailure; // why the reading stopped before the end; else empty
    Text m_line;
    int m_lineNumber = 0;
};
