#include "kit/answers/user_work.h"

#include "kit/kit_fixtures.h"
#include "platform/posix/sqlite_settings_store.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

class UserWorkTest : public testing::Test {
protected:
    static std::string Bytes(fs::path const& file)
    {
        std::ostringstream bytes;
        bytes << std::ifstream(file, std::ios::binary).rdbuf();
        return bytes.str();
    }
    static void Put(fs::path const& file, std::string const& bytes)
    {
        std::ofstream(file, std::ios::binary) << bytes;
    }
    static std::string ReasonFor(Outcome<UserWork> const& outcome)
    {
        return outcome ? "read" : ToUtf8(outcome.failure().reason);
    }

    TestFolder const own;
    fs::path const& folder = own.Path();
    fs::path const backup = folder / "work.backup";
};

Text EveryCharacter()
{
    Text text;
    for (unsigned value = 0; value < 0x10000; ++value)
        text += static_cast<char16_t>(value);
    return text;
}

UserWork Sample()
{
    return { { { u"Parameters", u"showhelp", u"false" },
                 { u"mount-1.dat:1", u"Page1", u"Grace\r\nand peace" },
                 { u"mount-1.dat:1", u"Page2", EveryCharacter() },
                 { u"mount-1.dat:1", u"currentindex", u"2" }, { Text(u"s\0n", 3), u"", u"" } },
        { { "John3.dat", std::string("Light\0\xE9\r\n", 9) }, { "John3.dat.utf8", "\xCF\x86" },
            { "Psalms23.dat", "" } } };
}

std::vector<std::string> Keys(RestorePlan const& plan)
{
    std::vector<std::string> keys;
    for (auto const& entry : plan.entries)
        keys.push_back(ToUtf8(entry.key) + "=" + ToUtf8(entry.value));
    for (auto const& [name, bytes] : plan.notes)
        keys.push_back(name + "=" + bytes);
    return keys;
}

} // namespace

TEST_F(UserWorkTest, ComesBackByteForByteIntoAnEmptyFolder)
{
    auto const work = Sample();
    ASSERT_TRUE(WriteBackup(work, backup));
    auto const read = ReadBackup(backup);
    ASSERT_TRUE(read) << ReasonFor(read);
    auto const user = folder / "user";
    EXPECT_TRUE(Restore(PlanRestore({}, *read, false), user, false));
    auto const restored = LoadUserWork(user);
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->notes, work.notes);
    ASSERT_EQ(restored->entries.size(), work.entries.size());
    auto sorted = work.entries;
    std::sort(sorted.begin(), sorted.end(), [](auto const& a, auto const& b) {
        return std::tie(a.section, a.key) < std::tie(b.section, b.key);
    });
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        EXPECT_EQ(restored->entries[i].section, sorted[i].section);
        EXPECT_EQ(restored->entries[i].key, sorted[i].key);
        EXPECT_TRUE(restored->entries[i].value == sorted[i].value) << ToUtf8(sorted[i].key);
    }
}

TEST_F(UserWorkTest, TheExampleOfItsFormat)
{
    std::string const page = Bytes(fs::path(SPARROWFIELD_SOURCE_DIR) / "docs/formats/backup.md");
    auto const start = page.find("```text\n") + 8;
    ASSERT_TRUE(WriteBackup({ { { u"ruth-1.dat:1", u"Page1", u"Yes" } }, {} }, backup));
    std::string listing;
    auto entries = *SqliteSettingsStore(backup).All();
    std::stable_partition(entries.begin(), entries.end(),
        [](auto const& entry) { return entry.section != u"backup"; });
    for (auto const& entry : entries) {
        auto section = ToUtf8(entry.section), key = ToUtf8(entry.key);
        section.resize(13, ' ');
        key.resize(7, ' ');
        listing += section + " | " + key + " | " + ToUtf8(entry.value) + "\n";
    }
    EXPECT_EQ(page.substr(start, page.find("```", start) - start), listing);
}

TEST_F(UserWorkTest, AnAnswerOfTenMegabytesIsKept)
{
    UserWork const work { { { u"mount-1.dat:1", u"Page1", Text(5'000'000, u'\u03C7') } }, {} };
    ASSERT_TRUE(WriteBackup(work, backup));
    auto const read = ReadBackup(backup);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->entries[0].value == work.entries[0].value);
}

TEST_F(UserWorkTest, DamageIsNoticedWhereverItIs)
{
    ASSERT_TRUE(WriteBackup(Sample(), backup));
    auto const whole = Bytes(backup);
    auto const bad = folder / "bad.backup";
    for (std::size_t size = 0; size < whole.size(); size += 4093) {
        Put(bad, whole.substr(0, size));
        EXPECT_FALSE(ReadBackup(bad)) << "cut at " << size;
        EXPECT_EQ(Bytes(bad).size(), size) << "the file is left alone";
    }
    auto const same = ReadBackup(backup);
    for (std::size_t at = 0; at < whole.size(); at += 1021) {
        auto flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ 0x10);
        Put(bad, flipped);
        auto const read = ReadBackup(bad);
        // A bit in a part of the file that holds nothing changes nothing.
        if (!read)
            continue;
        EXPECT_EQ(read->notes, same->notes) << at;
        ASSERT_EQ(read->entries.size(), same->entries.size());
        for (std::size_t i = 0; i < same->entries.size(); ++i)
            EXPECT_TRUE(read->entries[i].value == same->entries[i].value) << at;
    }
}

TEST_F(UserWorkTest, RefusesWhatIsNoBackupOfOurs)
{
    auto const put = [&](std::vector<SettingsStore::Entry> const& entries) {
        fs::remove(backup);
        EXPECT_TRUE(SqliteSettingsStore(backup).WriteAll(entries, SettingsStore::Existing::Goes));
    };
    EXPECT_EQ(ReasonFor(ReadBackup(folder / "none")), "the file doesn't exist");
    Put(backup, "no backup at all");
    EXPECT_EQ(ReasonFor(ReadBackup(backup)), "it is not a backup, or it is damaged");
    EXPECT_EQ(Bytes(backup), "no backup at all");
    put({ { u"mount-1.dat:1", u"Page1", u"a store of answers" } });
    EXPECT_EQ(ReasonFor(ReadBackup(backup)), "it is not a backup");
    put({ { u"backup", u"version", u"2" } });
    EXPECT_EQ(ReasonFor(ReadBackup(backup)), "it was made by a newer version of this program");
    put({ { u"backup", u"version", u"1" }, { u"backup", u"digest", u"0" },
        { u"n", u"John3.dat", u"x" } });
    EXPECT_EQ(ReasonFor(ReadBackup(backup)), "it is damaged");
    for (std::string const& name :
        { std::string(".."), std::string("."), std::string(), std::string("../John3.dat"),
            std::string("/etc/passwd"), std::string("a\\b.dat"), std::string(".hidden"),
            std::string("a\nb"), std::string("a\0b", 3), std::string(256, 'a') }) {
        ASSERT_TRUE(WriteBackup({ {}, { { name, "x" } } }, backup));
        EXPECT_EQ(ReasonFor(ReadBackup(backup)),
            "it contains a note with a name that isn't allowed, or something unknown")
            << name;
    }
}

TEST_F(UserWorkTest, NeverTakesAnotherTextsPlaceUnasked)
{
    UserWork const present { { { u"a.dat:1", u"Page1", u"mine" }, { u"a.dat:1", u"Page2", u"" },
                                 { u"a.dat:1", u"Page4", u"same" },
                                 { u"a.dat:1", u"currentindex", u"4" },
                                 { u"biblereader", u"search", u"Jude" } },
        { { "John3.dat", "mine" }, { "John4.dat", "" }, { "John6.dat", "same" } } };
    UserWork const saved {
        { { u"a.dat:1", u"Page1", u"older" }, { u"a.dat:1", u"Page2", u"two" },
            { u"a.dat:1", u"Page3", u"three" }, { u"a.dat:1", u"Page4", u"same" },
            { u"a.dat:1", u"currentindex", u"1" }, { u"biblereader", u"search", u"John 3" } },
        { { "John3.dat", "older" }, { "John4.dat", "four" }, { "John5.dat", "five" },
            { "John6.dat", "same" } }
    };
    auto const careful = PlanRestore(present, saved, false);
    EXPECT_THAT(careful.differing, ElementsAre("the answer a.dat:1, Page1", "the note John3.dat"));
    EXPECT_THAT(
        Keys(careful), ElementsAre("Page2=two", "Page3=three", "John4.dat=four", "John5.dat=five"));
    EXPECT_EQ(careful.same, 2U);
    auto const told = PlanRestore(present, saved, true);
    EXPECT_EQ(told.differing, careful.differing);
    EXPECT_THAT(Keys(told),
        ElementsAre("Page1=older", "Page2=two", "Page3=three", "currentindex=1", "search=John 3",
            "John3.dat=older", "John4.dat=four", "John5.dat=five"));
    EXPECT_THAT(Keys(PlanRestore(saved, saved, true)), IsEmpty());
}

TEST_F(UserWorkTest, AnAnswerTypedMeanwhileStays)
{
    auto const user = folder / "user";
    fs::create_directories(user);
    UserWork const saved { { { u"a.dat:1", u"Page1", u"older" }, { u"a.dat:1", u"Page2", u"two" } },
        {} };
    auto const plan = PlanRestore({}, saved, false);
    SqliteSettingsStore store(user / "settings.db");
    ASSERT_TRUE(store.Write(u"a.dat:1", u"Page1", u"just typed"));
    EXPECT_TRUE(Restore(plan, user, false));
    EXPECT_EQ(*store.Read(u"a.dat:1", u"Page1"), u"just typed");
    EXPECT_EQ(*store.Read(u"a.dat:1", u"Page2"), u"two");
}
