#pragma once
// A temporary folder for the files of a test.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

/// Removed with its object.
class TestFolder {
public:
    TestFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "test-XXXXXX").string();
        m_path = mkdtemp(pattern.data());
    }
    ~TestFolder() { std::filesystem::remove_all(m_path); }
    TestFolder(TestFolder const&) = delete;
    TestFolder& operator=(TestFolder const&) = delete;

    std::filesystem::path const& Path() const { return m_path; }
    void Write(std::filesystem::path const& name, std::string const& bytes) const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << bytes;
    }
    std::string Read(std::filesystem::path const& name) const
    {
        std::ifstream file(m_path / name, std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(missing)";
    }

private:
    std::filesystem::path m_path;
};
