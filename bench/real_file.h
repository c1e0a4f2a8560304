#pragma once
// A real file in the system's temporary folder for as long as this object lives, and the file
// system that reads it.

#include "platform/posix/posix_file_system.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

class RealFile {
public:
    /// `name` without a folder.
    RealFile(std::string const& name, std::string const& bytes)
        : m_folder(std::filesystem::temp_directory_path() / (name + "." + std::to_string(getpid())))
        , m_path(m_folder / name)
        , m_files({ m_folder, m_folder / "drive" })
    {
        std::ofstream file(m_path, std::ios::binary);
        if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
            std::abort();
    }
    RealFile(RealFile const&) = delete;
    RealFile& operator=(RealFile const&) = delete;
    ~RealFile() { std::filesystem::remove_all(m_folder); }

    FileSystem const& Files() const { return m_files; }
    Text Path() const { return m_path.u16string(); }
    std::size_t Size() const { return std::filesystem::file_size(m_path); }

private:
    std::filesystem::path m_folder;
    std::filesystem::path m_path;
    PosixFileSystem m_files;
};
