#pragma once
// A folder for things of the moment.

#include <filesystem>

/// A new folder in the system's place for such, private to its owner; it goes with everything in
/// it.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    /// empty if there couldn't be one: see errno
    std::filesystem::path const& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};
