#pragma once
// An open file of the system, closed with its owner, and what the system's error numbers mean to a
// person. Whole files are whole_file.h's work.

#include "base/failure.h"

#include <chrono>
#include <filesystem>
#include <span>
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

/// The failure that the system's last error number describes, about this path.
Failure SystemFailure(TextView path);
Failure SystemFailure(TextView path, int number);
/// The same about a file by its place on this machine, and with a reason of the caller's.
Failure FileFailure(std::filesystem::path const& file);
Failure FileFailure(std::filesystem::path const& file, int number);
Failure FileFailure(std::filesystem::path const& file, TextView reason);

/// Locks the file against others that do the same (flock), and waits for them until the deadline.
/// On a failure the reason is in the system's last error number, EWOULDBLOCK after a timeout.
bool LockFile(Descriptor const& file, std::chrono::steady_clock::time_point deadline);

/// Reads the next bytes into `block` and returns how many; 0 at the end of the file. On an error
/// returns -1, with the reason in the system's last error number.
std::ptrdiff_t ReadSome(Descriptor const& file, std::span<char> block);

/// Writes all the bytes; on an error returns false, with the reason in the system's last error
/// number.
bool WriteAll(Descriptor const& file, std::string_view bytes);
