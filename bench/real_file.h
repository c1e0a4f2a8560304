#pragma once
// One real file, in the current folder for as long as this object lives, and the file system that
// knows nothing else.

#include "platform/file_system.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

class RealFile final : public FileSystem {
public:
    RealFile(std::string name, std::string const& bytes)
        : m_name(std::move(name))
        , m_size(bytes.size())
    {
        auto const file = std::fopen(m_name.c_str(), "wb");
        if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()
            || std::fclose(file) != 0)
            std::abort();
    }
    RealFile(RealFile&& other) noexcept
        : m_name(std::exchange(other.m_name, {}))
        , m_size(other.m_size)
    {
    }
    ~RealFile() override
    {
        if (!m_name.empty())
            std::remove(m_name.c_str());
    }

    std::size_t Size() const { return m_size; }

    /// Reads the file in one call; `bytes` has its size.
    void ReadWhole(std::string& bytes) const
    {
        Input input(m_name);
        if (!input.IsOpen() || *input.Read(bytes) != m_size)
            std::abort();
    }

    Outcome<std::unique_ptr<InputFile>> Open(TextView path) const override
    {
        auto input = std::make_unique<Input>(ToUtf8(path));
        if (!input->IsOpen())
            return Missing(path);
        return std::unique_ptr<InputFile>(std::move(input));
    }

    bool FileExists(TextView) const override { return false; }
    bool FolderExists(TextView) const override { return false; }
    Outcome<std::uint64_t> FileSize(TextView) const override { return std::uint64_t { m_size }; }
    Outcome<std::string> ReadAll(TextView path) const override { return Missing(path); }
    Outcome<Done> Write(TextView path, std::string_view) override { return Missing(path); }
    Outcome<Done> CreateFolder(TextView path) override { return Missing(path); }
    Outcome<Done> Delete(TextView path) override { return Missing(path); }
    std::vector<Text> List(TextView) const override { return {}; }
    Text ApplicationFolder() const override { return {}; }
    Text TemporaryFolder() const override { return {}; }
    Text TemporaryName() override { return {}; }

private:
    class Input final : public InputFile {
    public:
        explicit Input(std::string const& name)
            : m_file(open(name.c_str(), O_RDONLY | O_CLOEXEC))
        {
        }
        ~Input() override
        {
            if (IsOpen())
                close(m_file);
        }
        Input(Input const&) = delete;
        Input& operator=(Input const&) = delete;
        bool IsOpen() const { return m_file >= 0; }
        Outcome<std::size_t> Read(std::span<char> block) override
        {
            auto const count = read(m_file, block.data(), block.size());
            if (count < 0)
                return Missing(u"the file");
            return static_cast<std::size_t>(count);
        }

    private:
        int m_file;
    };

    static Failure Missing(TextView path) { return { Text(path), 0, u"it isn't there" }; }

    std::string m_name;
    std::size_t m_size;
};
