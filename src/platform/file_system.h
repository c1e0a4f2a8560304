#pragma once
// What the program needs of the machine's files, as an interface. Paths are in Windows form: a bare
// name is relative to the current directory, `C:\...` lies on drive C:, and a path that begins with
// `/` is taken as it stands, with `\` as a separator. How they lie on the machine is the real file
// system's business. Contents are bytes: code pages are base/code_page.h's work, lines
// text_lines.h's.

#include "base/failure.h"
#include "base/text.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A file open for reading from its start to its end. Closed when it is destroyed.
class InputFile {
public:
    virtual ~InputFile() = default;

    /// Reads the next bytes into `block` (not empty) and gives how many; 0 at the end of the file.
    virtual Outcome<std::size_t> Read(std::span<char> block) = 0;
};

/// Whether there is a file at a path.
enum class Presence {
    There,
    Absent, ///< neither a file nor anything else
    /// something that is not a regular file, a link that leads nowhere, or the system can't tell at
    /// the moment
    Unknown,
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Looks for a file at the path. Names match exactly, else ignoring case. What is `Unknown` may
    /// hold the user's words: it must not be taken for absent and overwritten.
    virtual Presence LookFor(TextView path) const = 0;
    /// True if a regular file is known to be at the path.
    bool FileExists(TextView path) const { return LookFor(path) == Presence::There; }
    virtual bool FolderExists(TextView path) const = 0;

    /// The size of a file in bytes.
    virtual Outcome<std::uint64_t> FileSize(TextView path) const = 0;

    /// Opens a file for reading. Fails if it is missing, no file or unreadable.
    virtual Outcome<std::unique_ptr<InputFile>> Open(TextView path) const = 0;

    /// In bytes: no file of ours that is read whole comes near it.
    static constexpr std::uint64_t largestWhole = std::uint64_t { 64 } << 20;

    /// The whole file, read in one call. Fails for one of more than `atMost` bytes.
    virtual Outcome<std::string> ReadAll(
        TextView path, std::uint64_t atMost = largestWhole) const = 0;

    /// Replaces the file, or creates it, by these bytes: whole, or not at all. What is reported as
    /// done survives a power cut.
    virtual Outcome<Done> Write(TextView path, std::string_view bytes) = 0;

    /// Makes the file with these bytes where there is none, whole or not at all; an existing file
    /// stays as it is. True if it was made. What is reported as done survives a power cut.
    virtual Outcome<bool> Create(TextView path, std::string_view bytes) = 0;

    /// The same as Write for a file that needn't outlive the program: quicker, and not flushed to
    /// the disk.
    virtual Outcome<Done> WriteTemporary(TextView path, std::string_view bytes) = 0;

    /// Gives a file, or whatever else stands at the path, a free name beside it.
    virtual Outcome<Done> SetAside(TextView path) = 0;

    /// Creates one level of folder. A folder that exists already is no failure.
    virtual Outcome<Done> CreateFolder(TextView path) = 0;

    /// Deletes a file.
    virtual Outcome<Done> Delete(TextView path) = 0;

    /// The bare names of the files that match the pattern (`*` stands for any run of characters;
    /// case counts for nothing), in ascending order, ignoring case. They are those of the current
    /// directory or, if the pattern is a path, of its folder.
    virtual std::vector<Text> List(TextView pattern) const = 0;

    /// The folder of the program file, without a separator at its end.
    virtual Text ApplicationFolder() const = 0;

    /// The system's temporary folder, without a separator at its end.
    virtual Text TemporaryFolder() const = 0;

    /// A file name, without folder and extension, that nothing in the temporary folder bears.
    virtual Text TemporaryName() = 0;
};
