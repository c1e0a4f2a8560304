#pragma once
// An open file of the system, closed with its owner, and what the system's error numbers mean to a
// person.

#include "base/failure.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

class Descriptor {
public:
    explicit Descriptor(int number = -1)
        : m_number(number)
    {
    }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() { Close(); }

    explicit operator bool() const { return m_number >= 0; }
    int Number() const { return m_number; }
    /// False if closing reports that something written didn't reach the file.
    bool Close();

private:
    int m_number;
};

/// The failure behind the system's last error number, about this path.
Failure SystemFailure(TextView path);
Failure SystemFailure(TextView path, int number);

/// Writes all the bytes; false, with the reason in the system's last error number, if it can't.
bool WriteAll(Descriptor const& file, std::string_view bytes);

/// Opens a regular file to be read. Anything else (a folder, a pipe, a device) is refused at once,
/// without waiting for its other end and without being read. Fails with the system's reason.
Outcome<Descriptor> OpenRegularFile(std::filesystem::path const& file);

/// The bytes of a regular file of at most `atMost` bytes. Fails as OpenRegularFile does, and where
/// the file is larger.
Outcome<std::string> ReadWholeFile(
    std::filesystem::path const& file, std::uint64_t atMost = std::uint64_t { 1 } << 30);

/// Brings the names in a folder to the disk, where its file system keeps any to bring there.
Outcome<Done> FlushFolder(std::string const& folder);

/// Whether what is written has to survive a power cut.
enum class Lasting { No, Yes };

/// Replaces the file `name` in a folder whole, or not at all. The new file is readable by its owner
/// alone. `path` stands in failures.
Outcome<Done> ReplaceFile(std::string const& folder, std::string const& name,
    std::string_view bytes, TextView path, Lasting lasting = Lasting::Yes);

/// Makes the file `name` in a folder, whole or not at all, if nothing has that name; what is there
/// stays. True if it was made. It survives a power cut and is readable by its owner alone. `path`
/// stands in failures.
Outcome<bool> CreateFile(
    std::string const& folder, std::string const& name, std::string_view bytes, TextView path);

/// Makes a folder, private to its owner, in a parent that exists. One that stands there already is
/// no failure.
Outcome<Done> MakeFolder(std::string const& folder, std::string const& parent, TextView path);
