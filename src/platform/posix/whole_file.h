#pragma once
// Files that are read or written whole. `path` is the file's name in failures.

#include "platform/posix/descriptor.h"

#include <cstdint>
#include <string>

/// A regular file that is open for reading.
struct RegularFile {
    Descriptor descriptor;
    std::uint64_t size; ///< bytes when it was opened
};

/// Opens a regular file for reading. Anything else (a folder, a pipe, a device) is refused without
/// being opened, since that can wait for ever, or do what the device is made for.
Outcome<RegularFile> OpenRegularFile(std::filesystem::path const& file, TextView path);

/// The whole file, read from where it is now. Fails if it has more than `atMost` bytes.
Outcome<std::string> ReadWholeFile(RegularFile const& file, TextView path, std::uint64_t atMost);
/// Opens and reads a file in one call, by default one of at most 1 GiB.
Outcome<std::string> ReadWholeFile(
    std::filesystem::path const& file, std::uint64_t atMost = std::uint64_t { 1 } << 30);

/// Whether what is written has to survive a power cut.
enum class Lasting { No, Yes };

/// Replaces a file whole, or not at all. The new file is readable by its owner alone.
Outcome<Done> ReplaceFile(std::filesystem::path const& file, std::string_view bytes, TextView path,
    Lasting lasting = Lasting::Yes);
Outcome<Done> ReplaceFile(std::filesystem::path const& file, std::string_view bytes);

/// Makes a file, whole or not at all, if nothing has its name; what is there stays. True if it was
/// made. It survives a power cut and is readable by its owner alone.
Outcome<bool> CreateFile(std::filesystem::path const& file, std::string_view bytes, TextView path);

/// True if nothing has this name, not even a link that leads nowhere.
bool IsFreeName(std::filesystem::path const& place);

/// `beginning`, a number and `ending`, with the first number from `number` on that makes a name for
/// which `isFree` is true.
template <class IsFree = bool (*)(std::filesystem::path const&)>
std::string FirstFreeName(std::string const& beginning, std::string const& ending = {},
    IsFree const& isFree = IsFreeName, int number = 1)
{
    for (;; ++number)
        if (auto name = beginning + std::to_string(number) + ending; isFree(name))
            return name;
}
