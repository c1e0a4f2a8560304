#pragma once
// Files in memory for the tests of what reads them. Only reading works. It can be told to fail at
// the n-th read, and to hand out small blocks.

#include "base/code_page.h"
#include "platform/file_system.h"

#include <algorithm>
#include <cstring>
#include <map>

class StudyFiles final : public FileSystem {
public:
    std::map<Text, std::string> contents;
    std::size_t blockSize = 7; ///< at most as many bytes in one read
    mutable int readsUntilFailure = -1; ///< reads of any file that still succeed; negative for all

    /// A file of these lines.
    void Add(Text const& name, std::string_view bytes) { contents[name] = bytes; }

    bool FileExists(TextView path) const override { return contents.contains(Text(path)); }
    Outcome<std::uint64_t> FileSize(TextView path) const override
    {
        auto const file = contents.find(Text(path));
        if (file == contents.end())
            return Missing(path);
        return std::uint64_t { file->second.size() };
    }
    Outcome<std::unique_ptr<InputFile>> Open(TextView path) const override
    {
        auto const file = contents.find(Text(path));
        if (file == contents.end())
            return Missing(path);
        return std::unique_ptr<InputFile>(std::make_unique<Input>(*this, file->second));
    }

    bool FolderExists(TextView) const override { return false; }
    Outcome<std::string> ReadAll(TextView path) const override { return Missing(path); }
    Outcome<Done> Write(TextView path, std::string_view) override { return Missing(path); }
    Outcome<Done> CreateFolder(TextView path) override { return Missing(path); }
    Outcome<Done> Delete(TextView path) override { return Missing(path); }
    std::vector<Text> List(TextView) const override { return {}; }
    Text ApplicationFolder() const override { return {}; }
    Text TemporaryFolder() const override { return {}; }
    Text TemporaryName() override { return {}; }

private:
    struct Input final : InputFile {
        Input(StudyFiles const& owner, std::string_view content)
            : files(owner)
            , rest(content)
        {
        }
        Outcome<std::size_t> Read(std::span<char> block) override
        {
            if (files.readsUntilFailure == 0)
                return Failure { u"disc", 0, u"the disc is scratched" };
            if (files.readsUntilFailure > 0)
                --files.readsUntilFailure;
            auto const count = std::min({ block.size(), rest.size(), files.blockSize });
            std::memcpy(block.data(), rest.data(), count);
            rest.remove_prefix(count);
            return count;
        }
        StudyFiles const& files;
        std::string_view rest;
    };

    static Failure Missing(TextView path) { return { Text(path), 0, u"the file doesn't exist" }; }
};
