#include "platform/posix/sqlite_settings_store.h"

#include "platform/posix/backup_file.h"
#include "platform/posix/posix_fixture.h"

#include <cstring>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace fs = std::filesystem;
using testing::HasSubstr;

/// How an outcome reads: the text, "(none)" or the failure's message.
static std::string Told(Outcome<std::optional<Text>> const& outcome)
{
    if (!outcome)
        return ToUtf8(outcome.failure().Message());
    return *outcome ? ToUtf8(**outcome) : "(none)";
}

static std::string Told(Outcome<Done> const& outcome)
{
    return outcome ? "done" : ToUtf8(outcome.failure().Message());
}

/// Another program's connection to the file.
class OtherProgram {
public:
    explicit OtherProgram(char const* statements, char const* file = "settings.db")
    {
        EXPECT_EQ(sqlite3_open(file, &m_database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(m_database, statements, nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~OtherProgram() { sqlite3_close(m_database); }
    OtherProgram(OtherProgram const&) = delete;
    OtherProgram& operator=(OtherProgram const&) = delete;

private:
    sqlite3* m_database = nullptr;
};

class SettingsFile : public HostTest {
protected:
    /// The store begins with one answer in it.
    SettingsFile()
    {
        EXPECT_EQ(Told(Store().Write(u"james-1.dat:1", u"Page1", u"before")), "done");
    }

    static SqliteSettingsStore Store()
    {
        return SqliteSettingsStore("settings.db", std::chrono::milliseconds(50));
    }
    static std::string Answer(SettingsStore const& store)
    {
        return Told(store.Read(u"james-1.dat:1", u"Page1"));
    }
    static std::string Answer() { return Answer(Store()); }
};

TEST_F(SettingsFile, TextsReturnExactly)
{
    Text const texts[]
        = { u"", u" ", u"two\r\nlines\n\r", Text(u"a\0b\0", 4), u"\xDC00 alone \xD800",
              u"\U0001F600\uFFFE\uFFFF", u"' \" ? ; --", Text(3'000'000, u'\u20AC') };
    auto store = Store();
    for (Text const& text : texts) {
        EXPECT_EQ(Told(store.Write(text.substr(0, 20), text.substr(0, 30), text)), "done");
        auto const read = Store().Read(text.substr(0, 20), text.substr(0, 30));
        ASSERT_TRUE(read && *read);
        EXPECT_TRUE(**read == text) << ToUtf8(text.substr(0, 20));
    }
    EXPECT_EQ(store.All()->size(), std::size(texts) + 1);
    EXPECT_EQ(Names("."), "settings.db ") << "one file, at rest";
    EXPECT_EQ(Mode("settings.db"), 0600U);
}

TEST_F(SettingsFile, SectionsAndKeysAreComparedExactly)
{
    auto store = Store();
    for (TextView const section : { u"james-1.dat:10", u"JAMES-1.DAT:1", u"james-2.dat:1" })
        EXPECT_TRUE(store.Write(section, u"Page1", section));
    EXPECT_TRUE(store.Write(u"james-1.dat:1", u"Page1", u"after"));
    EXPECT_TRUE(store.Write(u"james-1.dat:1", u"Page10", u"ten"));
    EXPECT_EQ(Answer(store), "after");
    auto const inSection = store.InSection(u"james-1.dat:1");
    ASSERT_EQ(inSection->size(), 2U);
    EXPECT_EQ((*inSection)[1].key + (*inSection)[1].value, u"Page10ten");
    EXPECT_EQ(Told(store.Read(u"james-1.dat:1", u"page1")), "(none)");
    EXPECT_EQ(Told(store.DeleteSection(u"james-1.dat:1", SettingsStore::NoBackup)), "done");
    EXPECT_EQ(Told(store.DeleteSection(u"absent", SettingsStore::NoBackup)), "done");
    std::string all;
    auto const entries = store.All();
    for (auto const& entry : *entries)
        all += ToUtf8(entry.section + u"/" + entry.key + u"=" + entry.value + u" ");
    EXPECT_EQ(all,
        "JAMES-1.DAT:1/Page1=JAMES-1.DAT:1 james-1.dat:10/Page1=james-1.dat:10 "
        "james-2.dat:1/Page1=james-2.dat:1 ");
}

/// What stands in the file's place, as bytes made from those of a good store.
using Spoil = std::function<std::string(std::string)>;

/// A store that another program has changed.
static Spoil After(char const* statements)
{
    return [statements](std::string const& good) {
        std::ofstream("changed.db", std::ios::binary) << good;
        OtherProgram(statements, "changed.db");
        std::ostringstream bytes;
        bytes << std::ifstream("changed.db", std::ios::binary).rdbuf();
        return bytes.str();
    };
}

static void PutNumber(std::string& bytes, std::size_t place, std::size_t number)
{
    for (int i = 3; i >= 0; --i, number >>= 8)
        bytes[place + static_cast<std::size_t>(i)] = static_cast<char>(number);
}

/// A store whose list of tables is a tree of 18 levels, each of which leads to the next by all of
/// its pointers, with the same harmless index at the bottom: SQLite's walk through it never ends.
static std::string WithEndlessTree(std::string const& good)
{
    constexpr std::size_t size = 4096, cell = 4000, levels = 17, pointers = 200;
    auto bytes = After("create table more (a unique)")(good);
    auto const list = bytes.substr(0, size);
    auto const leaf
        = [&](char cells, std::size_t from) { // the cells of the list behind as many others
              return std::string("\x0D\0\0\0", 4) + cells + list.substr(105, 3)
                  + list.substr(108 + 2 * from, 2 * static_cast<std::size_t>(cells))
                  + list.substr(8 + 2 * static_cast<std::size_t>(cells));
          };
    auto const inner
        = [&](std::size_t begin, std::size_t cells, std::size_t child, std::size_t last) {
              std::string page(size, '\0');
              page[begin] = 5;
              PutNumber(page, begin + 3, cells << 16 | cell);
              PutNumber(page, begin + 8, last);
              for (std::size_t i = 0; i < cells; ++i)
                  page.replace(begin + 12 + 2 * i, 2,
                      { static_cast<char>(cell >> 8), static_cast<char>(cell & 0xFF) });
              PutNumber(page, cell, child);
              return page;
          };
    // of the new pages: all rows, the index alone, the levels
    auto const first = bytes.size() / size + 1;
    bytes.replace(100, size - 100, inner(100, 1, first, first + 2).substr(100));
    bytes += leaf(3, 0) + leaf(1, 2);
    for (std::size_t level = 0; level < levels; ++level) {
        auto const next = level + 1 == levels ? first + 1 : first + 3 + level;
        bytes += inner(0, pointers, next, next);
    }
    PutNumber(bytes, 28, bytes.size() / size);
    return bytes;
}

TEST_F(SettingsFile, WhatIsNoSettingsStoreIsSetAside)
{
    EXPECT_TRUE(Store().Write(u"long", u"long", Text(100'000, u'x')));
    {
        OtherProgram const other("attach 'other.db' as other; create table other.settings (a, b)");
    }
    auto const foreign = Bytes("other.db");
    struct {
        char const* about;
        Spoil spoil;
    } const rows[] = {
        { "garbage", [](auto const&) { return std::string(5000, '\x5A'); } },
        { "NULs", [](auto const&) { return std::string(5000, '\0'); } },
        { "a short text", [](auto const&) { return "[Parameters]\nshowhelp=true\n"; } },
        { "cut off in the middle", [](auto good) { return good.substr(0, good.size() / 2); } },
        { "cut off in the head", [](auto good) { return good.substr(0, 60); } },
        { "a damaged page", [](auto good) { return good.replace(4096 + 8, 4000, 4000, '\x5A'); } },
        { "a damaged list of tables", [](auto good) { return good.replace(103, 2, 2, '\0'); } },
        { "another program's database", [&](auto const&) { return foreign; } },
        { "a trigger",
            After("create trigger t after insert on settings begin delete from settings; end") },
        { "a view", After("create view v as select * from settings") },
        { "a view in the table's place",
            After("drop table settings; create view settings as with recursive n(i) as (select 1 "
                  "union all select i + 1 from n) select i as section, i as key, i as value from "
                  "n") },
        { "a view under a name of SQLite's own",
            After("create view v as select 1; pragma writable_schema = on;"
                  "update sqlite_master set name = 'sqlite_v', tbl_name = 'sqlite_v', sql = "
                  "'CREATE VIEW sqlite_v as select 1'"
                  " where name = 'v'") },
        { "another table", After("create table more (a)") },
        { "an index", After("create index i on settings (value)") },
        { "a generated column",
            After("alter table settings add column more as (zeroblob(1000000000))") },
        { "a rule for values",
            After("alter table settings rename to old; create table settings (section blob not "
                  "null, key blob not null, value blob not null check (length(value) < 5), "
                  "primary key (section, key)) without rowid; drop table old") },
        { "an endless tree", WithEndlessTree },
    };
    auto const good = Bytes("settings.db");
    int number = 0;
    for (auto const& row : rows) {
        auto const bad = row.spoil(good);
        Put("settings.db", bad);
        auto store = Store();
        auto const aside = "settings.db.damaged-" + std::to_string(++number);
        auto const start = std::chrono::steady_clock::now();
        auto const report = store.OpeningReport();
        ASSERT_TRUE(report) << row.about;
        EXPECT_THAT(ToUtf8(report->Message()), HasSubstr(aside)) << row.about;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60)) << row.about;
        EXPECT_TRUE(Bytes(aside) == bad) << row.about;
        EXPECT_EQ(Answer(store), "(none)") << row.about;
        EXPECT_TRUE(store.Write(u"james-1.dat:1", u"Page1", u"new")) << row.about;
        EXPECT_FALSE(Store().OpeningReport()) << row.about;
        EXPECT_EQ(Answer(), "new") << row.about;
    }
    EXPECT_EQ(number, static_cast<int>(std::size(rows)));
}

TEST_F(SettingsFile, WhatSqliteKeepsForItselfIsNoHarm)
{
    OtherProgram("analyze; pragma journal_mode = wal");
    EXPECT_EQ(Answer(), "before");
    EXPECT_FALSE(Store().OpeningReport());
}

/// SQLite would play this journal on the store, and delete the file that it names.
TEST_F(SettingsFile, AJournalCannotDeleteAnotherFile)
{
    Put("letter", "dear");
    std::string const mark = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7",
                      name = (folder / "data/letter").string();
    std::string journal = mark + std::string(504, '\0'), end(4, '\0');
    PutNumber(journal, 20, 512); // the disk's sector
    PutNumber(journal, 16, fs::file_size("settings.db") / 4096); // the pages before
    PutNumber(journal, 24, 4096); // the size of a page
    int sum = 0;
    for (char const byte : name)
        sum += byte;
    std::string length = end, check = end, page = end;
    PutNumber(page, 0, (1 << 30) / 4096 + 1);
    PutNumber(length, 0, name.size());
    PutNumber(check, 0, static_cast<std::size_t>(sum));
    journal += page + name + length + check + mark;
    Put("settings.db-journal", journal);
    auto store = Store();
    EXPECT_TRUE(store.OpeningReport());
    EXPECT_EQ(Answer(store), "(none)");
    EXPECT_EQ(Bytes("letter"), "dear");
    EXPECT_EQ(
        Names("."), "letter settings.db settings.db.damaged-1 settings.db.damaged-1-journal ");
    EXPECT_TRUE(Bytes("settings.db.damaged-1-journal") == journal);
}

/// Runs in a process apart, which is ended if it hangs.
TEST_F(SettingsFile, PipesAndDevicesAreRefusedAtOnce)
{
    struct {
        char const *name, *device; // without a device: a pipe
    } const rows[] = { { "settings.db", nullptr }, { "settings.db", "/dev/zero" },
        { "settings.db-journal", nullptr }, { "settings.db-wal", nullptr },
        { "settings.db-journal", "/dev/tty" } };
    auto const good = Bytes("settings.db");
    for (auto const& row : rows) {
        fs::remove(row.name);
        if (row.device)
            fs::create_symlink(row.device, row.name);
        else
            ASSERT_EQ(mkfifo(row.name, 0600), 0);
        EXPECT_TRUE(Apart([&] {
            alarm(5);
            auto store = Store();
            auto const told = std::string(row.name) + ": it is not a regular file.";
            return !store.OpeningReport() && Answer(store) == told
                && Told(store.Write(u"s", u"k", u"v")) == told;
        })) << row.name;
        EXPECT_EQ(fs::exists("settings.db.damaged-1"), false) << row.name;
        fs::remove(row.name);
        Put("settings.db", good);
        EXPECT_EQ(Answer(), "before") << row.name;
    }
}

TEST_F(SettingsFile, ALockDoesNotHoldUpWhatIsNoStore)
{
    auto const start = std::chrono::steady_clock::now();
    {
        OtherProgram const other("pragma application_id = 1; begin exclusive");
        EXPECT_EQ(Answer(SqliteSettingsStore("settings.db", std::chrono::seconds(50))), "(none)")
            << "set aside";
    }
    Put("settings.db", std::string(5000, 'x'));
    {
        int const held = open("settings.db", O_RDONLY | O_CLOEXEC);
        ASSERT_EQ(flock(held, LOCK_EX), 0);
        EXPECT_EQ(Answer(), "settings.db: it is in use by another program.");
        close(held);
    }
    EXPECT_EQ(Answer(), "(none)");
    EXPECT_EQ(Names("."), "settings.db settings.db.damaged-1 settings.db.damaged-2 ");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(SettingsFile, AnEmptyFileIsANewStore)
{
    Put("settings.db", "");
    EXPECT_FALSE(Store().OpeningReport());
    EXPECT_EQ(Answer(), "(none)");
    EXPECT_EQ(Names("."), "settings.db ");
}

/// Whatever operation meets damage first works on the new store; the report names the file put
/// aside, once.
TEST_F(SettingsFile, DamageThatShowsLaterIsSetAsideToo)
{
    using Operation = std::function<bool(SqliteSettingsStore&)>;
    Operation const operations[] = {
        [](auto& store) { return Answer(store) == "(none)"; },
        [](auto& store) { return Told(store.Write(u"s", u"k", u"v")) == "done"; },
        [](auto& store) { return store.All() && store.All()->empty(); },
        [](auto& store) { return store.Sections() && store.Sections()->empty(); },
        [](auto& store) {
            return Told(store.DeleteSection(u"james-1.dat:1", SettingsStore::NoBackup)) == "done";
        },
        [](auto& store) {
            return Told(store.WriteAll({ { u"s", u"k", u"v" } }, SettingsStore::Existing::Stays))
                == "done";
        },
    };
    int number = 0;
    for (auto const& operation : operations) {
        SCOPED_TRACE(++number);
        fs::remove("settings.db");
        auto store = Store();
        EXPECT_TRUE(store.Write(u"james-1.dat:1", u"Page1", u"before"));
        auto copy = Store();
        EXPECT_EQ(Answer(store) + Answer(copy), "beforebefore");
        static_cast<void>(store.TakeReport());
        std::fstream("settings.db") << std::string(4096, '\x5A');
        auto const aside = "settings.db.damaged-" + std::to_string(number);
        EXPECT_TRUE(operation(store));
        auto const report = store.TakeReport();
        ASSERT_TRUE(report);
        EXPECT_THAT(ToUtf8(report->Message()), HasSubstr(aside));
        EXPECT_FALSE(store.TakeReport());
        EXPECT_TRUE(fs::exists(aside));
        EXPECT_EQ(Told(store.Write(u"james-1.dat:1", u"Page1", u"new")), "done");
        EXPECT_EQ(Answer(copy), "new") << "a copy that had the old file open";
        EXPECT_TRUE(copy.TakeReport()) << "it is told too, as its store is another now";
    }
    EXPECT_FALSE(fs::exists("settings.db.damaged-7"));
}

TEST_F(SettingsFile, AStoreEmptiedWhileItIsOpenIsReported)
{
    auto store = Store();
    EXPECT_EQ(Answer(store), "before");
    Put("settings.db", "");
    EXPECT_EQ(Told(store.Write(u"james-1.dat:1", u"Page1", u"new")), "done");
    EXPECT_TRUE(store.TakeReport());
    EXPECT_EQ(Answer(), "new");
}

TEST_F(SettingsFile, ASectionIsDeletedBehindItsBackup)
{
    auto const whole = [](auto const& stored) { return stored; };
    auto store = Store();
    for (int round = 1; round <= 12; ++round) {
        EXPECT_TRUE(store.Write(u"james-1.dat:1", u"Page1", FromNumber(round)));
        EXPECT_TRUE(store.Write(u"james-1.dat:2", u"Page1", u"stays"));
        EXPECT_EQ(Told(store.DeleteSection(u"james-1.dat:1", whole)), "done");
    }
    EXPECT_EQ(Answer(store), "(none)");
    EXPECT_EQ(Told(store.Read(u"james-1.dat:2", u"Page1")), "stays");
    for (int number = 1; number <= 12; ++number) {
        auto const file = "before-delete-" + std::to_string(number) + ".backup";
        EXPECT_EQ(fs::exists(file), number > 2) << "the last ten stay";
        if (number <= 2)
            continue;
        auto const backup = ReadBackup(file);
        ASSERT_TRUE(backup) << file;
        ASSERT_EQ(backup->entries.size(), 1U);
        EXPECT_EQ(backup->entries[0].value, FromNumber(number));
        EXPECT_EQ(Mode(file), 0600U);
    }
    EXPECT_EQ(Told(store.DeleteSection(u"absent", SettingsStore::NoBackup)), "done");
    EXPECT_FALSE(fs::exists("before-delete-13.backup"));
}

TEST_F(SettingsFile, WithoutABackupNothingIsDeleted)
{
    EXPECT_TRUE(OnFullDisk(fs::file_size("settings.db") + 4096, [] {
        auto store = Store();
        auto const deleted = store.DeleteSection(u"james-1.dat:1", [](auto const&) {
            return std::vector<SettingsStore::Entry> { { u"s", u"k", Text(200'000, u'x') } };
        });
        return !deleted && deleted.failure().file.find(u"before-delete-1.backup") != Text::npos
            && Answer(store) == "before";
    }));
    EXPECT_EQ(Answer(), "before");
}

TEST_F(SettingsFile, AFileTakenAwayIsMadeAnew)
{
    auto store = Store();
    EXPECT_EQ(Answer(store), "before");
    fs::rename("settings.db", "elsewhere.db");
    EXPECT_EQ(Answer(store), "(none)");
    EXPECT_TRUE(store.Write(u"james-1.dat:1", u"Page1", u"new"));
    fs::rename("elsewhere.db", "settings.db");
    EXPECT_EQ(Answer(store), "before");
    EXPECT_TRUE(store.TakeReport());
}

TEST_F(SettingsFile, ALockedStoreFailsInTimeAndRecovers)
{
    auto store = SqliteSettingsStore("settings.db", std::chrono::milliseconds(300));
    EXPECT_EQ(Answer(store), "before");
    {
        OtherProgram const other("begin exclusive");
        for (int tries = 0; tries < 3; ++tries) {
            auto const start = std::chrono::steady_clock::now();
            EXPECT_THAT(Told(store.Write(u"james-1.dat:1", u"Page1", u"x")),
                HasSubstr("it is in use by another program"));
            EXPECT_THAT(Answer(store), HasSubstr("it is in use by another program"));
            auto const taken = std::chrono::steady_clock::now() - start;
            EXPECT_LT(taken, std::chrono::milliseconds(tries == 0 ? 5000 : 500))
                << "only the first waits long";
        }
        EXPECT_FALSE(Store().OpeningReport()) << "locked isn't damaged";
        EXPECT_THAT(Answer(), HasSubstr("it is in use by another program"));
    }
    EXPECT_TRUE(store.Write(u"james-1.dat:1", u"Page1", u"after"));
    EXPECT_EQ(Answer(), "after");

    // A lock that goes away in time is waited for.
    auto other = std::make_unique<OtherProgram>("begin exclusive");
    std::thread release(
        [&] { std::this_thread::sleep_for(std::chrono::milliseconds(100)), other.reset(); });
    EXPECT_EQ(Answer(store), "after");
    release.join();
}

TEST_F(SettingsFile, WhatCannotBeOpenedIsTriedAgain)
{
    fs::rename("settings.db", "good.db");
    fs::create_directory("settings.db");
    auto store = Store();
    EXPECT_THAT(Answer(store), HasSubstr("settings.db: it is a folder"));
    EXPECT_THAT(Told(store.Write(u"s", u"k", u"v")), HasSubstr("it is a folder"));
    EXPECT_FALSE(store.OpeningReport());
    EXPECT_FALSE(store.All());
    EXPECT_FALSE(store.DeleteSection(u"s", SettingsStore::NoBackup));
    fs::remove("settings.db");
    fs::rename("good.db", "settings.db");
    EXPECT_EQ(Answer(store), "before");

    Put("absent", "a file");
    SqliteSettingsStore nowhere("absent/settings.db");
    EXPECT_FALSE(nowhere.Write(u"s", u"k", u"v"));
    fs::remove("absent");
    EXPECT_TRUE(nowhere.Write(u"s", u"k", u"v")) << "its folder is made";
}

TEST_F(SettingsFile, AStoreThatCannotBeWrittenCanBeRead)
{
    fs::permissions("settings.db", fs::perms { 0444 });
    EXPECT_TRUE(AsPlainUser([&] {
        auto store = Store();
        return !store.OpeningReport() && Answer(store) == "before"
            && Told(store.Write(u"s", u"k", u"v")) == "settings.db: it can't be written to."
            && Answer(store) == "before";
    }));
    fs::permissions("settings.db", fs::perms::none);
    EXPECT_TRUE(AsPlainUser([] { return Answer() == "settings.db: permission denied."; }));
    fs::remove("settings.db");
    fs::permissions(".", fs::perms { 0555 });
    EXPECT_TRUE(AsPlainUser([] { return Answer() == "settings.db: permission denied."; }));
    EXPECT_EQ(Names("."), "");
}

TEST_F(SettingsFile, AFullDiskLeavesTheStoreWhole)
{
    EXPECT_TRUE(OnFullDisk(fs::file_size("settings.db") + 4096, [] {
        auto store = Store();
        return !store.Write(u"james-1.dat:1", u"Page1", Text(200'000, u'x'))
            && Answer(store) == "before" && store.Write(u"james-1.dat:1", u"Page2", u"short");
    }));
    EXPECT_FALSE(Store().OpeningReport());
    EXPECT_EQ(Answer(), "before");
    EXPECT_EQ(Told(Store().Read(u"james-1.dat:1", u"Page2")), "short");
}

TEST_F(SettingsFile, CopiesOfTheProgramShareIt)
{
    fs::remove("settings.db"); // so that they make it at the same time
    constexpr int copies = 3, writes = 15;
    auto const work = [](int copy) {
        SqliteSettingsStore store("settings.db", std::chrono::seconds(20));
        bool all = true;
        for (int i = 0; i < writes; ++i)
            all = store.Write(FromNumber(copy), FromNumber(i), u"value") && store.Read(u"0", u"0")
                && all;
        return all;
    };
    pid_t children[copies];
    for (int copy = 0; copy < copies; ++copy)
        children[copy] = Fork([&] { return work(copy); });
    for (pid_t const child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(Store().All()->size(), std::size_t { copies * writes });
    EXPECT_EQ(Names("."), "settings.db ") << "nothing set aside";
}

TEST_F(SettingsFile, WhatWasReportedAsDoneSurvivesAKill)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    pid_t const child = Fork([&] {
        auto store = Store();
        for (int i = 0;; ++i)
            if (!store.Write(u"s", FromNumber(i), Text(5000, u'x')) || write(ends[1], "", 1) != 1)
                return false;
    });
    char done = 0;
    for (int i = 0; i < 20; ++i)
        ASSERT_EQ(read(ends[0], &done, 1), 1);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_FALSE(Store().OpeningReport());
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(Store().Read(u"s", FromNumber(i))->value_or(Text()).size(), 5000U) << i;
    EXPECT_EQ(Answer(), "before");
}
