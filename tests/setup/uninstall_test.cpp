#include "setup/install.h"
#include "setup/menu_entry.h"

#include "setup/setup_fixture.h"

#include <thread>

namespace fs = std::filesystem;

class UninstallTest : public SetupTest {
protected:
    UninstallTest()
    {
        Put(user / "settings.db", "answers");
        fs::create_directories(notes);
        Put(notes / "John3.dat", "note");
    }
    void ExpectOnlyAnswersAndNotes() const
    {
        EXPECT_FALSE(fs::exists(fs::symlink_status(house)));
        EXPECT_EQ(Bytes(user / "settings.db"), "answers");
        EXPECT_EQ(Names(notes), "John3.dat ");
    }

    fs::path const notes = user / "drive_c/Program Files/Sparrowfield Interactive Software/notes";
};

TEST_F(UninstallTest, TakesCopyMenuEntryAndIconsAway)
{
    fs::create_directory(disc / "icons");
    for (auto const* icon : { "sparrowfield.svg", "sparrowfield-16.png", "sparrowfield-256.png" })
        Put(disc / "icons" / icon, icon);
    Put(folder / "data home/others", "");
    auto const before = Tree(folder);
    ASSERT_TRUE(InstallAll());
    EXPECT_EQ(Names(places.icons), "16x16 256x256 scalable ");
    EXPECT_EQ(Bytes(places.icons / "256x256/apps/sparrowfield.png"), "sparrowfield-256.png");
    EXPECT_EQ(Bytes(places.icons / "scalable/apps/sparrowfield.svg"), "sparrowfield.svg");
    EXPECT_TRUE(fs::exists(places.menu / "sparrowfield.desktop"));

    Put(places.icons / "16x16/apps/other.png", "");
    auto const report = Uninstall(places);
    ASSERT_TRUE(report);
    EXPECT_TRUE(report->menuFaults.empty());
    ExpectOnlyAnswersAndNotes();
    EXPECT_EQ(Names(places.menu), "");
    EXPECT_EQ(Names(places.icons), "16x16 ");
    EXPECT_EQ(Names(places.icons / "16x16/apps"), "other.png ");

    EXPECT_TRUE(Uninstall(places)) << "once more";
    ExpectOnlyAnswersAndNotes();
}

TEST_F(UninstallTest, OfALinkOnlyTheLinkGoesAndOtherThingsBesideTheCopyStay)
{
    fs::create_directories(house);
    fs::create_directory(folder / "precious");
    Put(folder / "precious/letter", "dear");
    fs::create_directory_symlink(folder / "precious", places.target);
    Put(house / "other", "");
    EXPECT_TRUE(Uninstall(places));
    EXPECT_EQ(Names(folder / "precious"), "letter ");
    EXPECT_EQ(Names(house), "other ");

    fs::remove(house / "other");
    PutOldCopy();
    fs::create_directory_symlink(folder / "precious", places.target / "linked");
    EXPECT_TRUE(Uninstall(places));
    EXPECT_EQ(Names(folder / "precious"), "letter ");
    ExpectOnlyAnswersAndNotes();
}

TEST_F(UninstallTest, TheUsersFilesInTheCopyAreKept)
{
    ASSERT_TRUE(InstallAll());
    Put(places.target / "own-1.dat", "my study");
    Put(places.target / "kjv/kjv1", "my words");
    auto const report = Uninstall(places);
    ASSERT_TRUE(report);
    EXPECT_EQ(report->kept, house / "Kept files-1");
    std::map<std::string, std::string> const kept { { "kjv", "/" }, { "kjv/kjv1", "my words" },
        { "own-1.dat", "my study" } };
    EXPECT_EQ(Tree(report->kept), kept);
    EXPECT_EQ(Names(house), "Kept files-1 ");
    ASSERT_TRUE(InstallAll());
    EXPECT_TRUE(Uninstall(places)->kept.empty());
    EXPECT_EQ(Tree(house / "Kept files-1"), kept);
}

TEST_F(UninstallTest, MenuFilesOfOthersStay)
{
    fs::create_directory(disc / "icons");
    for (int const size : { 16, 32, 48 })
        Put(disc / "icons" / ("sparrowfield-" + std::to_string(size) + ".png"), "icon");
    auto const entry = places.menu / "sparrowfield.desktop";
    auto const icon
        = [&](char const* size) { return places.icons / size / "apps/sparrowfield.png"; };
    ASSERT_TRUE(InstallAll());
    Put(entry, MenuEntry("/elsewhere"));
    Put(icon("16x16"), "another icon");
    fs::remove(icon("32x32"));
    fs::create_symlink("/elsewhere/icon.png", icon("32x32"));
    ASSERT_TRUE(Uninstall(places)->menuFaults.empty());
    EXPECT_EQ(Bytes(entry), MenuEntry("/elsewhere"));
    EXPECT_EQ(Bytes(icon("16x16")), "another icon");
    EXPECT_TRUE(fs::is_symlink(icon("32x32")));
    EXPECT_FALSE(fs::exists(icon("48x48"))) << "the copy's own";

    fs::create_directory(folder / "menus");
    fs::remove_all(places.menu);
    fs::create_directory_symlink(folder / "menus", places.menu);
    ASSERT_TRUE(InstallAll());
    auto const faults = Uninstall(places)->menuFaults;
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(ToUtf8(faults[0].Message()),
        entry.string() + ": it is reached through a link and was left alone.");
    EXPECT_EQ(Names(folder / "menus"), "sparrowfield.desktop ");
}

TEST_F(UninstallTest, ARunningProgramKeepsItsFiles)
{
    fs::remove(disc / "sparrowfield");
    fs::copy_file("/bin/sleep", disc / "sparrowfield");
    ASSERT_TRUE(InstallAll());
    auto const before = Tree(folder);
    pid_t const running = fork();
    if (running == 0) {
        execl((places.target / "sparrowfield.exe").c_str(), "sparrowfield", "60", nullptr);
        _exit(1);
    }
    auto const exe = fs::path("/proc") / std::to_string(running) / "exe";
    std::error_code error;
    for (int i = 0; i < 500 && fs::read_symlink(exe, error).filename() != "sparrowfield.exe"; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    for (auto const& outcome : { Uninstall(places), InstallAll() }) {
        ASSERT_FALSE(outcome);
        EXPECT_EQ(
            ToUtf8(outcome.failure().reason), "the program is running; please close it first");
    }
    kill(running, SIGKILL);
    waitpid(running, nullptr, 0);
    EXPECT_EQ(Tree(folder), before);
    EXPECT_TRUE(Uninstall(places));
    ExpectOnlyAnswersAndNotes();
}
