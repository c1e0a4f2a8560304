#include "platform/posix/posix_shell.h"

#include "platform/posix/console.h"
#include "platform/posix/posix_fixture.h"
#include "platform/posix/user_folders.h"

#include <cerrno>
#include <chrono>
#include <pwd.h>
#include <thread>

namespace fs = std::filesystem;

class PosixShellTest : public HostTest {
protected:
    PosixShellTest() { setenv("PATH", (folder / "bin").c_str(), 1); }

    static void AwaitTold()
    {
        for (int i = 0; i < 500 && !fs::exists("told"); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    PosixShell shell;
};

TEST_F(PosixShellTest, AFileIsHandedToTheSystemWithItsWholePath)
{
    fs::create_directory(folder / "bin");
    fs::path const opener = folder / "bin" / "xdg-open";
    Put(opener, "#!/bin/sh\nprintf '%s|' \"$#\" \"$1\" >told.new && /bin/mv told.new told\n");
    fs::permissions(opener, fs::perms { 0700 });
    Put("$(exit) 'Setup'.EXE", "");
    EXPECT_TRUE(shell.Execute(u"open", u"$(exit) 'setup'.exe"));
    AwaitTold();
    EXPECT_EQ(Bytes("told"), "1|" + (folder / "data" / "$(exit) 'Setup'.EXE|").string());
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD) << "nothing to wait for is left";

    fs::create_directory("folder");
    Put(folder / "outside", "");
    for (TextView const file :
        { u"absent.exe", u"folder", u"..\\outside", u"C:\\$(exit) 'Setup'.EXE", u"" })
        EXPECT_FALSE(shell.Execute(u"open", file)) << ToUtf8(file);
    EXPECT_FALSE(shell.Execute(u"print", u"$(exit) 'Setup'.EXE"));
}

TEST_F(PosixShellTest, AProgramIsStartedInTheCurrentFolderWithoutTheSignalsHeldBackHere)
{
    fs::create_directory("folder");
    Put("folder/setup.EXE",
        "#!/bin/sh\nprintf '%s|%s|%s|' \"$#\" \"$0\" \"$PWD\" >told.new\n"
        "grep SigBlk /proc/self/status >>told.new\n/bin/mv told.new told\n");
    fs::permissions("folder/setup.EXE", fs::perms { 0700 });
    setenv("PATH", "/usr/bin:/bin", 1);
    EXPECT_TRUE(Apart([this] {
        DeferredInterrupt const held;
        return shell.Execute(u"open", u"folder\\Setup.exe");
    }));
    AwaitTold();
    auto const here = (folder / "data").string();
    EXPECT_EQ(
        Bytes("told"), "0|" + here + "/folder/setup.EXE|" + here + "|SigBlk:\t0000000000000000\n");
}

TEST_F(PosixShellTest, ADocumentThatMayBeExecutedIsStillADocument)
{
    fs::create_directory(folder / "bin");
    Put(folder / "bin/xdg-open", "#!/bin/sh\n/bin/mv \"$1\" told\n");
    Put("README.txt", ": >executed\n");
    for (auto const& file : { folder / "bin/xdg-open", fs::path("README.txt") })
        fs::permissions(file, fs::perms { 0700 });
    EXPECT_TRUE(shell.Execute(u"open", u"README.txt"));
    AwaitTold();
    EXPECT_EQ(Names("."), "told ");
}

TEST_F(PosixShellTest, WithoutAnOpenerNothingIsHandedOver)
{
    Put("Setup.exe", "");
    EXPECT_FALSE(shell.Execute(u"open", u"Setup.exe"));
}

/// In place of the C library's: the home folder that the system knows of.
static std::string homeOfUser;
extern "C" passwd* getpwuid(uid_t)
{
    static passwd user;
    user.pw_dir = homeOfUser.data();
    return &user;
}

using UserFolders = HostTest;

TEST_F(UserFolders, LieWhereThePlatformSays)
{
    setenv("HOME", (folder / "home").c_str(), 1);
    setenv("XDG_DATA_HOME", (folder / "data home").c_str(), 1);
    EXPECT_EQ(UserDataFolder(), folder / "data home" / "sparrowfield");
    EXPECT_EQ(Mode(folder / "data home" / "sparrowfield"), 0700U);
    for (char const* invalid : { "", "relative" }) {
        setenv("XDG_DATA_HOME", invalid, 1);
        EXPECT_EQ(UserDataFolder(), folder / "home" / ".local" / "share" / "sparrowfield");
    }
    homeOfUser = folder / "home of user";
    for (char const* invalid : { "", "relative" }) {
        setenv("HOME", invalid, 1);
        EXPECT_EQ(UserDataFolder(), folder / "home of user" / ".local" / "share" / "sparrowfield");
    }
    unsetenv("HOME");
    EXPECT_EQ(UserDataFolder(), folder / "home of user" / ".local" / "share" / "sparrowfield");
    Put(folder / "home" / "file", "");
    setenv("XDG_DATA_HOME", (folder / "home" / "file").c_str(), 1);
    EXPECT_EQ(UserDataFolder(), folder / "home" / "file" / "sparrowfield") << "which can't be made";
    EXPECT_EQ(Names("."), "");
}
