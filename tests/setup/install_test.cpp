#include "setup/install.h"

#include "setup/publisher_folder.h"
#include "setup/setup_fixture.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

namespace fs = std::filesystem;

using InstallTest = SetupTest;

static std::string Told(Outcome<SetupReport> const& report)
{
    if (!report)
        return ToUtf8(report.failure().Message());
    return report->ending == Ending::Cancelled ? "cancelled" : "installed";
}

TEST_F(InstallTest, CopiesTheDiscInPlaceOfWhateverCopyStoodThere)
{
    EXPECT_EQ(Told(InstallAll()), "installed");
    EXPECT_EQ(Tree(places.target), WholeCopy());
    EXPECT_EQ(Mode(places.target / "sparrowfield.exe") & 0700U, 0700U);
    EXPECT_EQ(Mode(places.target / "kjv/kjv1") & 0700U, 0600U);
    EXPECT_EQ(Mode(user / "drive_c"), 0700U);

    Put(places.target / "kjv/kjv1", "damaged");
    fs::create_directories(house / ".new-left/kjv");
    EXPECT_EQ(Told(InstallAll()), "installed");
    EXPECT_EQ(Tree(places.target), WholeCopy());
    EXPECT_EQ(Names(house), "Sparrowfield Interactive Software ") << "no leftovers";
}

TEST_F(InstallTest, FilesThatTheUserHasPutIntoTheCopyAreCarriedOver)
{
    EXPECT_EQ(Told(InstallAll()), "installed");
    fs::create_directories(places.target / "own/deep");
    Put(places.target / "own/deep/study-1.dat", "my study");
    Put(places.target / "new-1.dat", "my words");
    Put(places.target / "kjv/kjv1", "damaged");
    fs::create_symlink("/nowhere", places.target / "link");
    Put(disc / "new-1.dat", "the disc's words");
    EXPECT_EQ(Told(InstallAll()), "installed");
    auto tree = WholeCopy();
    tree["own"] = tree["own/deep"] = "/";
    tree["own/deep/study-1.dat"] = "my study";
    tree["new-1.dat.kept-1"] = "my words";
    tree["link"] = "-> /nowhere";
    EXPECT_EQ(Tree(places.target), tree);
    EXPECT_EQ(Names(house), "Sparrowfield Interactive Software ");
}

TEST_F(InstallTest, NothingIsChangedBehindALink)
{
    for (auto const& place : { house, house.parent_path() }) {
        fs::remove_all(user / "drive_c");
        fs::create_directories(folder / "precious/Sparrowfield House/.new-mine");
        fs::create_directories(place.parent_path());
        fs::create_directory_symlink(
            place == house ? folder / "precious/Sparrowfield House" : folder / "precious", place);
        auto const before = Tree(folder / "precious");
        auto const link = place.string() + ": it is a link, and Setup doesn't follow links.";
        EXPECT_EQ(Told(InstallAll()), link);
        EXPECT_EQ(Told(Uninstall(places)), link);
        EXPECT_EQ(Tree(folder / "precious"), before);
    }
}

TEST_F(InstallTest, ALinkInTheCopysPlaceIsReplacedAndItsFolderLeftAlone)
{
    fs::create_directories(house);
    fs::create_directory(folder / "precious");
    Put(folder / "precious/letter", "dear");
    fs::create_directory_symlink(folder / "precious", places.target);
    EXPECT_EQ(Told(InstallAll()), "installed");
    EXPECT_EQ(Tree(places.target), WholeCopy());
    EXPECT_EQ(Names(folder / "precious"), "letter ");
}

/// From now on the system can't let two files change places, as on an old file system.
static bool ForbidExchange()
{
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[4])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, RENAME_EXCHANGE, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    sock_fprog const program { std::size(filter), filter };
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0
        && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

TEST_F(InstallTest, ReplacesACopyWhereFoldersCantChangePlacesInOneStep)
{
    if (!Apart(ForbidExchange))
        GTEST_SKIP() << "calls of the system can't be forbidden here";
    PutOldCopy();
    EXPECT_TRUE(Apart([&] { return ForbidExchange() && Told(InstallAll()) == "installed"; }));
    EXPECT_EQ(Tree(places.target), WholeCopy());
    EXPECT_EQ(Names(house), "Sparrowfield Interactive Software ");
}

/// Cancels at every call of the watcher in turn; what was there stays, to the byte.
TEST_F(InstallTest, ACancelAtAnyTimeLeavesAllAsItWas)
{
    for (bool const isOldThere : { false, true }) {
        fs::create_directories(house.parent_path());
        if (isOldThere)
            PutOldCopy();
        auto const before = Tree(folder);
        int calls = 0, cancels = 0;
        std::string told;
        for (int last = 1; told != "installed"; ++last) {
            calls = 0;
            told = Told(
                Install(places, Plan(), [&](CopyProgress const&) { return ++calls < last; }));
            if (told == "installed")
                break;
            ++cancels;
            EXPECT_EQ(told, "cancelled");
            ASSERT_EQ(Tree(folder), before) << "cancelled at call " << last;
        }
        EXPECT_EQ(cancels, calls) << "each call could cancel";
        EXPECT_EQ(calls, 4 + 1 + 1 + 3) << "four files and their blocks";
        fs::remove_all(places.target);
        fs::remove_all(places.menu);
    }
}

/// A process that is killed leaves a part beside the copy, which the next run clears away.
TEST_F(InstallTest, AKilledRunIsClearedAwayByTheNext)
{
    PutOldCopy();
    auto const old = Tree(places.target);
    EXPECT_FALSE(Apart([&] {
        static_cast<void>(Install(places, Plan(), [](CopyProgress const& progress) {
            return progress.file != "kjv/kjv1" || raise(SIGKILL) != 0;
        }));
        return true;
    }));
    EXPECT_EQ(Tree(places.target), old);
    EXPECT_NE(Names(house), "Sparrowfield Interactive Software ");
    EXPECT_EQ(Told(InstallAll()), "installed");
    EXPECT_EQ(Names(house), "Sparrowfield Interactive Software ");
}

TEST_F(InstallTest, AFailureLeavesAllAsItWasAndNamesFileAndReason)
{
    auto const watch = [](CopyProgress const&) { return true; };
    struct {
        char const* name;
        std::function<void()> prepare;
        std::function<std::string()> run;
        std::string told; ///< what the message ends with
    } const rows[] = {
        { "full disk", [] {},
            [&] {
                std::string told;
                return OnFullDisk(1'000'000,
                           [&] {
                               told = Told(InstallAll());
                               return told.ends_with("kjv/kjv1: it is too large.");
                           })
                    ? "full"
                    : "not full";
            },
            "full" },
        { "a file gone since the planning", [] {},
            [&] {
                auto plan = Plan();
                plan.files[1].from = disc / "gone";
                return Told(Install(places, plan, watch));
            },
            (disc / "gone: the file doesn't exist.").string() },
        { "a file that can't be read", [] {},
            [&] {
                auto plan = Plan();
                plan.files[1].from = disc / "kjv";
                return Told(Install(places, plan, watch));
            },
            (disc / "kjv: it is a folder.").string() },
        { "a file in the folder's place",
            [&] {
                fs::remove_all(places.target);
                Put(places.target, "mine");
            },
            [&] { return Told(InstallAll()); },
            (places.target.string() + ": it exists and is not a folder.") },
        { "a file above the folder",
            [&] {
                fs::remove_all(house);
                Put(house, "mine");
            },
            [&] { return Told(InstallAll()); }, (house.string() + ": it is not a folder.") },
        { "no space", [] {},
            [&] {
                auto plan = Plan();
                plan.files[0].size = std::uint64_t { 1 } << 60;
                auto const told = Told(Install(places, plan, watch));
                return told.substr(0, told.find(", and"));
            },
            "Software: this needs 1152 PB" },
        { "a Setup at work", [] {},
            [&] {
                auto const held = PublisherFolder::Hold(house);
                return Told(InstallAll());
            },
            (house.string() + ": another Setup is using this folder.") },
        { "the installed copy as the disc", [] {},
            [&] {
                auto const own = FindPlaces(places.target, user);
                return Told(Install(own, Plan(), watch));
            },
            ": this is the installed copy; please start Setup.exe on the disc." },
        { "a disc around the copy", [] {},
            [&] { return Told(Install(FindPlaces(folder, user), Plan(), watch)); },
            ": neither the disc nor the copy may be inside the other." },
    };
    for (auto const& row : rows) {
        fs::remove_all(user);
        PutOldCopy();
        row.prepare();
        auto const before = Tree(folder);
        auto const told = row.run();
        EXPECT_TRUE(told.ends_with(row.told)) << row.name << ": " << told;
        EXPECT_EQ(Tree(folder), before) << row.name;
    }
}

TEST_F(InstallTest, ADiskThatFillsUpOrCantBeWrittenToLeavesAllAsItWas)
{
    fs::create_directories(house);
    if (mount("tmpfs", house.c_str(), "tmpfs", 0, "size=18m") != 0)
        GTEST_SKIP() << "no disk can be mounted here";
    PutOldCopy();
    Put(disc / "large", std::string(20 << 20, 'x'));
    auto const before = Tree(folder);
    auto const tooLarge = Told(InstallAll());
    EXPECT_TRUE(tooLarge.ends_with(", and 18 MB are free on the disk.")) << tooLarge;

    auto plan = Plan();
    for (auto& file : plan.files)
        file.size = 0; // The files have grown since.
    auto const full = Told(Install(places, plan, [](CopyProgress const&) { return true; }));
    EXPECT_TRUE(full.ends_with("large: the disk is full.")) << full;

    EXPECT_EQ(mount("", house.c_str(), "", MS_REMOUNT | MS_RDONLY, "size=64m"), 0);
    auto const readOnly = Told(InstallAll());
    EXPECT_TRUE(readOnly.ends_with("the disk is read-only.")) << readOnly;
    EXPECT_EQ(Tree(folder), before);
    EXPECT_EQ(umount(house.c_str()), 0);
}
