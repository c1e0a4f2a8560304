#pragma once
// What the tests of the real platform share: a folder of their own, and code run in a process
// apart.

#include "base/text.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// A test with a fresh folder, whose folder `data` is the current directory. Both go at the end.
class HostTest : public testing::Test {
protected:
    HostTest()
    {
        std::string pattern
            = (std::filesystem::temp_directory_path() / "sparrowfield-test-XXXXXX").string();
        folder = std::filesystem::canonical(mkdtemp(pattern.data()));
        std::filesystem::permissions(folder, std::filesystem::perms { 0755 });
        std::filesystem::create_directory(folder / "data");
        std::filesystem::current_path(folder / "data");
    }
    ~HostTest() override
    {
        namespace fs = std::filesystem;
        fs::current_path("/");
        // A plain user can't remove what is in a folder that a test has locked.
        for (auto const& entry : fs::recursive_directory_iterator(folder))
            if (!entry.is_symlink() && entry.is_directory())
                fs::permissions(entry.path(), fs::perms::owner_all);
        fs::remove_all(folder);
    }

    static void Put(std::filesystem::path const& file, std::string const& bytes)
    {
        std::ofstream(file, std::ios::binary) << bytes;
    }
    static std::string Bytes(std::filesystem::path const& file)
    {
        std::ostringstream bytes;
        bytes << std::ifstream(file, std::ios::binary).rdbuf();
        return bytes.str();
    }
    static unsigned Mode(std::filesystem::path const& file)
    {
        return static_cast<unsigned>(std::filesystem::status(file).permissions());
    }
    /// The names in a folder, in order, each with a blank behind it.
    static std::string Names(std::filesystem::path const& of)
    {
        std::set<std::string> names;
        for (auto const& entry : std::filesystem::directory_iterator(of))
            names.insert(entry.path().filename().string());
        std::string all;
        for (auto const& name : names)
            all += name + " ";
        return all;
    }

    std::filesystem::path folder;
};

/// Runs `work` in another process and gives the process.
inline pid_t Fork(std::function<bool()> const& work)
{
    pid_t const child = fork();
    if (child == 0)
        _exit(work() ? 0 : 1);
    return child;
}

/// True if `work`, run in another process, gives true.
inline bool Apart(std::function<bool()> const& work)
{
    int status = -1;
    waitpid(Fork(work), &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// As Apart, and without root's power over permissions.
inline bool AsPlainUser(std::function<bool()> const& work)
{
    return Apart(
        [&] { return (getuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0)) && work(); });
}

/// As Apart, where no file can grow beyond so many bytes: the disk is full.
inline bool OnFullDisk(rlim_t size, std::function<bool()> const& work)
{
    return Apart([&] {
        rlimit const limit { size, size };
        signal(SIGXFSZ, SIG_IGN);
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 && work();
    });
}
