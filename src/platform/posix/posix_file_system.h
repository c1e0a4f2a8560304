#pragma once
// The machine's files, named by the paths in Windows form that the program uses (path_rules.h).

#include "platform/file_system.h"
#include "platform/posix/whole_file.h"

#include <filesystem>

class PosixFileSystem final : public FileSystem {
public:
    struct Folders {
        std::filesystem::path application; ///< of the program file
        std::filesystem::path drive; ///< what drive C: is
    };

    /// Makes drive C: (private to the user), `C:\Temp` and `C:\Program Files` if they are missing.
    /// Where that fails, so does each later use of them.
    explicit PosixFileSystem(Folders const& folders);

    Presence LookFor(TextView path) const override;
    bool FolderExists(TextView path) const override;
    Outcome<std::uint64_t> FileSize(TextView path) const override;
    Outcome<std::unique_ptr<InputFile>> Open(TextView path) const override;
    Outcome<std::string> ReadAll(TextView path, std::uint64_t atMost = largestWhole) const override;
    Outcome<Done> Write(TextView path, std::string_view bytes) override;
    Outcome<bool> Create(TextView path, std::string_view bytes) override;
    Outcome<Done> WriteTemporary(TextView path, std::string_view bytes) override;
    Outcome<Done> SetAside(TextView path) override;
    Outcome<Done> CreateFolder(TextView path) override;
    Outcome<Done> Delete(TextView path) override;
    std::vector<Text> List(TextView pattern) const override;
    Text ApplicationFolder() const override;
    Text TemporaryFolder() const override { return u"C:\\Temp"; }
    Text TemporaryName() override;

private:
    Outcome<Done> Replace(TextView path, std::string_view bytes, Lasting lasting);

    Folders m_folders;
};
