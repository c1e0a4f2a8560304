#pragma once
// A folder that is removed when its owner is destroyed.

#include <filesystem>

class TemporaryFolder {
public:
    /// A new folder in the system's temporary one, private to the user.
    TemporaryFolder();
    /// Takes over an existing folder.
    explicit TemporaryFolder(std::filesystem::path folder)
        : m_path(std::move(folder))
    {
    }
    /// Removes the folder with everything in it, as far as possible.
    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    /// Empty if no folder could be made; errno has the reason.
    std::filesystem::path const& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};
