#include "platform/posix/posix_file_system.h"

#include "platform/posix/leftover_pages.h"
#include "platform/posix/posix_fixture.h"

#include <sys/stat.h>
#include <sys/syscall.h>

namespace fs = std::filesystem;
using testing::ElementsAre;

class PosixFiles : public HostTest {
protected:
    PosixFiles()
    {
        fs::create_directory(folder / "app");
        drive = folder / "user" / "drive_c";
    }

    /// How an outcome reads: "done" or the failure's message.
    template <class Value> static std::string Told(Outcome<Value> const& outcome)
    {
        return outcome ? "done" : ToUtf8(outcome.failure().Message());
    }
    Text Absolute(char const* name) const { return FromUtf8((folder / name).string()); }

    fs::path drive;
    PosixFileSystem files { { folder / "app", folder / "user" / "drive_c" } };
};

TEST_F(PosixFiles, PathsInWindowsFormLieOnTheMachine)
{
    Put("here.txt", "here");
    Put("Same.txt", "upper"), Put("same.txt", "lower");
    fs::create_directories("kjv");
    Put("kjv/kjv1", "book");
    Put(drive / "Temp" / "t.htm", "page");
    Put(drive / "root.txt", "root");
    Put(folder / "outside.txt", "outside");
    Put(folder / "app" / "BIBLEKJV.IDX", "index");
    Put(folder / "data" / "\xE9.txt", "no UTF-8");
    struct {
        Text path;
        char const* bytes; // null: there is no such file
    } const rows[] = {
        { u"here.txt", "here" },
        { u"HERE.Txt", "here" },
        { u"Same.txt", "upper" }, // exactly, before ignoring case
        { u"same.txt", "lower" },
        { u"SAME.TXT", "upper" },
        { u"kjv\\kjv1", "book" },
        { u"KJV/KJV1", "book" },
        { u".\\here.txt", "here" },
        { u"\uFFFD.txt", "no UTF-8" }, // as a listing names it
        { u"C:\\Temp\\t.htm", "page" },
        { u"c:/temp//T.HTM", "page" },
        { u"C:\\root.txt", "root" },
        { Absolute("app\\biblekjv.idx"), "index" },
        { Absolute("outside.txt"), "outside" },
        { u"..\\outside.txt", nullptr },
        { u"kjv\\..\\..\\outside.txt", nullptr },
        { u"C:\\..\\..\\outside.txt", nullptr },
        { u"C:\\Temp\\../..\\root.txt", nullptr },
        { u"C:root.txt", nullptr },
        { u"D:\\root.txt", nullptr },
        { u"\\root.txt", nullptr },
        { u"\\\\server\\share\\root.txt", nullptr },
        { Text(u"here.txt\0.dat", 13), nullptr },
        { u"", nullptr },
    };
    for (auto const& row : rows) {
        auto const bytes = files.ReadAll(row.path);
        EXPECT_EQ(bytes ? *bytes : "(none)", row.bytes ? row.bytes : "(none)") << ToUtf8(row.path);
        EXPECT_EQ(files.FileExists(row.path), row.bytes != nullptr) << ToUtf8(row.path);
        EXPECT_EQ(files.Open(row.path).operator bool(), row.bytes != nullptr) << ToUtf8(row.path);
    }
    EXPECT_FALSE(files.Write(u"C:\\Temp\\..\\..\\out.txt", "x"));
    EXPECT_FALSE(files.Write(u"..\\out.txt", "x"));
    EXPECT_FALSE(files.CreateFolder(u"C:\\..\\out"));
    EXPECT_FALSE(files.Delete(u"..\\outside.txt"));
    EXPECT_EQ(Names(folder), "app data outside.txt user ");
}

TEST_F(PosixFiles, DriveCIsPrivateAndHasItsFolders)
{
    EXPECT_EQ(Mode(drive), 0700U);
    EXPECT_EQ(Names(drive), "Program Files Temp ");
    EXPECT_TRUE(files.FolderExists(u"C:\\program files"));
    EXPECT_TRUE(files.FolderExists(u"C:\\"));
    EXPECT_FALSE(files.FileExists(u"C:\\Temp"));
    Put(drive / "Temp" / "kept", "kept");
    PosixFileSystem const again({ folder / "app", drive });
    EXPECT_EQ(Bytes(drive / "Temp" / "kept"), "kept");
}

TEST_F(PosixFiles, TheApplicationFolderMayLieOnDriveC)
{
    fs::create_directories(drive / "Program Files" / "House");
    fs::create_directory_symlink(folder / "user", folder / "link");
    struct {
        fs::path application, drive;
        Text path;
    } const rows[] = {
        { drive / "Program Files" / "House", drive, u"C:\\Program Files\\House" },
        { drive / "Program Files" / "House", folder / "link" / "drive_c",
            u"C:\\Program Files\\House" },
        { folder / "link" / "drive_c/", drive, u"C:" },
        { folder / "app" / "", drive, Absolute("app") },
        { "../app", drive, Absolute("app") },
        { folder / "user" / "drive_c2", drive, Absolute("user/drive_c2") },
    };
    for (auto const& row : rows) {
        PosixFileSystem const there({ row.application, row.drive });
        EXPECT_EQ(there.ApplicationFolder(), row.path) << ToUtf8(row.path);
    }
}

TEST_F(PosixFiles, WritingReplacesAFileWhole)
{
    fs::create_directory(drive / "Notes");
    std::string const bytes("a\0\r\n\xFF", 5);
    EXPECT_EQ(Told(files.Write(u"C:\\Notes\\John3.dat", "long before")), "done");
    EXPECT_EQ(Told(files.Write(u"C:\\NOTES\\JOHN3.DAT", bytes)), "done")
        << "the same file, whatever its case";
    EXPECT_EQ(Names(drive / "Notes"), "John3.dat ");
    EXPECT_EQ(Bytes(drive / "Notes" / "John3.dat"), bytes);
    EXPECT_EQ(Mode(drive / "Notes" / "John3.dat"), 0600U);
    EXPECT_EQ(Told(files.Write(u"bare.dat", "")), "done");
    EXPECT_EQ(Names("."), "bare.dat ");
    EXPECT_EQ(*files.FileSize(u"bare.dat"), 0U);
}

/// In place of the C library's: what is flushed, "f" for a file and "d" for a folder.
static std::string flushed;
extern "C" int fsync(int file)
{
    struct stat status { };
    flushed += ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode) ? 'd' : 'f';
    return static_cast<int>(::syscall(SYS_fsync, file));
}

TEST_F(PosixFiles, WhatIsReportedAsDoneHasBeenFlushed)
{
    auto const flushes = [](auto const& work) {
        flushed.clear();
        EXPECT_TRUE(work());
        return flushed;
    };
    EXPECT_EQ(flushes([&] { return files.Write(u"C:\\a.dat", "a"); }), "fd");
    EXPECT_EQ(flushes([&] { return files.Create(u"C:\\b.dat", "b"); }), "fd");
    EXPECT_EQ(flushes([&] { return files.WriteTemporary(u"C:\\Temp\\c.htm", "c"); }), "");
}

TEST_F(PosixFiles, AWriteThatFailsLeavesEverythingAsItWas)
{
    fs::create_directories("notes/folder");
    Put("notes/John3.dat", "old");
    Put("notes/file", "");
    struct {
        char16_t const *path, *told;
    } const rows[] = {
        { u"notes\\folder", u"notes\\folder: it is a folder." },
        { u"absent\\John3.dat", u"absent\\John3.dat: its folder doesn't exist." },
        { u"notes\\file\\John3.dat", u"notes\\file\\John3.dat: its folder doesn't exist." },
        { u"D:\\John3.dat", u"D:\\John3.dat: it is not a valid path." },
        { u"C:\\", u"C:\\: it is a folder." },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Told(files.Write(row.path, "new")), ToUtf8(row.told));
    EXPECT_FALSE(files.Write(u"notes\\" + Text(300, u'x'), "new"));
    EXPECT_TRUE(
        OnFullDisk(100, [&] { return !files.Write(u"notes\\John3.dat", std::string(5000, 'n')); }));
    fs::permissions("notes", fs::perms { 0555 });
    EXPECT_TRUE(AsPlainUser([&] {
        return Told(files.Write(u"notes\\John3.dat", "n"))
            == "notes\\John3.dat: permission denied.";
    }));
    EXPECT_EQ(Names("notes"), "John3.dat file folder ");
    EXPECT_EQ(Bytes("notes/John3.dat"), "old");
    EXPECT_EQ(Names(folder / "user"), "drive_c ");
}

TEST_F(PosixFiles, WhatCannotBeReadSaysWhy)
{
    fs::create_directory("folder");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    Put("secret", "secret");
    Put("large", "");
    fs::resize_file("large", std::uintmax_t { 1 } << 40);
    fs::permissions("secret", fs::perms::none);
    struct {
        char16_t const* path;
        char const* told;
    } const rows[] = { { u"absent", "absent: the file doesn't exist." },
        { u"folder", "folder: it is a folder." }, { u"pipe", "pipe: it is not a regular file." },
        { u"large", "large: it is too large." } };
    for (auto const& row : rows)
        EXPECT_EQ(Told(files.ReadAll(row.path)), row.told);
    EXPECT_EQ(Told(files.Open(u"folder")), "folder: it is a folder.");
    EXPECT_FALSE(files.FileSize(u"folder"));
    EXPECT_TRUE(
        AsPlainUser([&] { return Told(files.Open(u"secret")) == "secret: permission denied."; }));
    auto const open
        = files.Open(u"/proc/self/mem"); // opens, and can't be read where nothing is mapped
    ASSERT_TRUE(open);
    char block[16];
    EXPECT_FALSE((*open)->Read(block));
}

TEST_F(PosixFiles, FilesAreReadInBlocksOrWhole)
{
    Put("book", std::string(100000, 'b') + "end");
    auto const file = files.Open(u"book");
    ASSERT_TRUE(file);
    std::string all;
    char block[4096];
    for (auto size = (*file)->Read(block); size && *size > 0; size = (*file)->Read(block))
        all.append(block, *size);
    EXPECT_EQ(all, Bytes("book"));
    EXPECT_EQ(*files.ReadAll(u"book"), all);
    EXPECT_FALSE(files.ReadAll(u"/proc/self/status")->empty())
        << "a file that is larger than it says";
}

TEST_F(PosixFiles, ListsFilesInOrderIgnoringCase)
{
    for (char const* name :
        { "b-1.dat", "A-1.DAT", "c-1.dat", "c-1.dat.bak", "a-2.dat", "-1.dat", "B-1.dat" })
        Put(name, "");
    fs::create_directory("folder-1.dat");
    EXPECT_THAT(files.List(u"*-1.dat"),
        ElementsAre(u"-1.dat", u"A-1.DAT", u"B-1.dat", u"b-1.dat", u"c-1.dat"));
    EXPECT_THAT(files.List(u"A-2.dat"), ElementsAre(u"a-2.dat"));
    EXPECT_THAT(files.List(u"*c*.b*k"), ElementsAre(u"c-1.dat.bak"));
    EXPECT_THAT(files.List(u"nothing*"), ElementsAre());
}

TEST_F(PosixFiles, FoldersAndTemporaryNames)
{
    EXPECT_EQ(Told(files.CreateFolder(u"C:\\Program Files\\House")), "done");
    EXPECT_EQ(Told(files.CreateFolder(u"C:\\PROGRAM FILES\\HOUSE")), "done")
        << "it stands there already";
    EXPECT_EQ(Names(drive / "Program Files"), "House ");
    EXPECT_EQ(Mode(drive / "Program Files" / "House"), 0700U);
    EXPECT_FALSE(files.CreateFolder(u"C:\\absent\\House")) << "one level only";
    Put(drive / "file", "");
    EXPECT_EQ(Told(files.CreateFolder(u"C:\\file")), "C:\\file: it is not a folder.");

    Text const name = files.TemporaryName();
    EXPECT_NE(name, files.TemporaryName());
    Text const page = files.TemporaryFolder() + u"\\" + name + u".htm";
    EXPECT_EQ(Told(files.Write(page, "page")), "done");
    EXPECT_EQ(Told(files.Delete(page)), "done");
    EXPECT_EQ(Told(files.Delete(u"C:\\Temp")), "C:\\Temp: it is a folder.");
    EXPECT_FALSE(files.Delete(page));
}

TEST_F(PosixFiles, WithoutADriveTheRestStillWorks)
{
    Put(folder / "user" / "file", "");
    PosixFileSystem without({ folder / "app", folder / "user" / "file" / "drive_c" });
    EXPECT_FALSE(without.FolderExists(without.TemporaryFolder()));
    EXPECT_EQ(
        Told(without.Write(u"C:\\Temp\\t.htm", "")), "C:\\Temp\\t.htm: its folder doesn't exist.");
    EXPECT_FALSE(without.TemporaryName().empty());
    EXPECT_EQ(Told(without.Write(u"here.txt", "here")), "done");
}

/// What can't be looked at isn't absent: it may hold the user's words.
TEST_F(PosixFiles, AbsentIsToldFromUnknown)
{
    auto const notes = drive / "notes";
    fs::create_directory(notes);
    Put(notes / "there", "");
    fs::create_directory(notes / "folder");
    mkfifo((notes / "pipe").c_str(), 0600);
    fs::create_symlink("nowhere", notes / "dangling");
    fs::create_symlink(folder / "unplugged", drive / "stick");
    fs::create_symlink("there", notes / "link");
    fs::create_directory(drive / "locked");
    Put(drive / "locked" / "file", "");
    struct {
        TextView path;
        Presence presence;
    } const rows[] = {
        { u"C:\\notes\\there", Presence::There },
        { u"C:\\notes\\THERE", Presence::There },
        { u"C:\\notes\\link", Presence::There },
        { u"C:\\notes\\absent", Presence::Absent },
        { u"C:\\absent\\file", Presence::Absent },
        { u"C:\\notes\\there\\file", Presence::Absent },
        { u"D:\\file", Presence::Absent },
        { u"C:\\notes\\folder", Presence::Unknown },
        { u"C:\\notes\\pipe", Presence::Unknown },
        { u"C:\\notes\\dangling", Presence::Unknown },
        { u"C:\\stick\\file", Presence::Unknown },
    };
    for (auto const& row : rows)
        EXPECT_EQ(files.LookFor(row.path), row.presence) << ToUtf8(row.path);
    fs::permissions(drive / "locked", fs::perms::none);
    for (auto const& path : { folder, folder / "user", drive })
        fs::permissions(path, fs::perms { 0755 });
    EXPECT_TRUE(
        AsPlainUser([&] { return files.LookFor(u"C:\\locked\\file") == Presence::Unknown; }));
}

TEST_F(PosixFiles, AFileIsCreatedOnlyWhereNoneIs)
{
    auto const created = files.Create(u"C:\\Temp\\new", "mine");
    ASSERT_TRUE(created);
    EXPECT_TRUE(*created);
    EXPECT_EQ(Mode(drive / "Temp" / "new"), 0600U);
    auto const again = files.Create(u"C:\\Temp\\new", "another copy's");
    ASSERT_TRUE(again);
    EXPECT_FALSE(*again);
    EXPECT_EQ(Bytes(drive / "Temp" / "new"), "mine");
    fs::create_symlink("nowhere", drive / "Temp" / "dangling");
    EXPECT_FALSE(*files.Create(u"C:\\Temp\\dangling", "x"));
    EXPECT_FALSE(files.Create(u"C:\\absent\\new", "x"));
    EXPECT_EQ(Names(drive / "Temp"), "dangling new ") << "nothing else is left";
}

TEST_F(PosixFiles, NewFoldersArePrivateAndALinkedDriveKeepsItsRights)
{
    PosixFileSystem const deep({ folder / "app", folder / "new/data home/sparrowfield/drive_c" });
    for (char const* const made : { "new", "new/data home", "new/data home/sparrowfield",
             "new/data home/sparrowfield/drive_c" })
        EXPECT_EQ(Mode(folder / made), 0700U) << made;

    fs::create_directory(folder / "shared");
    fs::permissions(folder / "shared", fs::perms { 0755 });
    fs::create_directory_symlink(folder / "shared", folder / "linked_c");
    PosixFileSystem linked({ folder / "app", folder / "linked_c" });
    EXPECT_EQ(Told(linked.Write(u"C:\\Temp\\t.htm", "page")), "done");
    EXPECT_EQ(Names(folder / "shared"), "Program Files Temp ");
    EXPECT_EQ(Mode(folder / "shared"), 0755U);

    fs::permissions(drive, fs::perms { 0755 });
    PosixFileSystem const again({ folder / "app", drive });
    EXPECT_EQ(Mode(drive), 0700U);
}

TEST_F(PosixFiles, OldPagesThatAKillHasLeftAreRemoved)
{
    auto const temp = drive / "Temp";
    fs::create_directory(folder / "elsewhere");
    auto const left = [&](fs::path const& place, int hours) {
        Put(place, "page");
        fs::last_write_time(place, fs::file_time_type::clock::now() - std::chrono::hours(hours));
    };
    for (char const* const name : { "sf0123456789ab.htm", ".new-aB3xYz", "sf0123456789a.htm",
             "sf0123456789AB.htm", "sf0123456789abc.htm", "letter.htm", ".new-aB3x.z" })
        left(temp / name, 25);
    left(temp / "sfaaaaaaaaaaaa.htm", 23);
    left(folder / "elsewhere/sfbbbbbbbbbbbb.htm", 25);
    fs::create_symlink(folder / "elsewhere/sfbbbbbbbbbbbb.htm", temp / "sfcccccccccccc.htm");
    fs::create_directory(temp / "sfdddddddddddd.htm");
    RemoveLeftoverPages(temp);
    EXPECT_EQ(Names(temp),
        ".new-aB3x.z letter.htm sf0123456789AB.htm sf0123456789a.htm sf0123456789abc.htm "
        "sfaaaaaaaaaaaa.htm sfcccccccccccc.htm sfdddddddddddd.htm ");
    fs::create_directory_symlink(folder / "elsewhere", folder / "link");
    RemoveLeftoverPages(folder / "link");
    EXPECT_EQ(Names(folder / "elsewhere"), "sfbbbbbbbbbbbb.htm ");
}

TEST_F(PosixFiles, DriveCIsMadeAgainWhereItHasGone)
{
    fs::remove_all(folder / "user");
    EXPECT_TRUE(files.CreateFolder(u"C:"));
    EXPECT_TRUE(files.CreateFolder(u"C:\\Temp"));
    EXPECT_EQ(Mode(drive), 0700U);
}
