#include "bible/chapter_notes.h"

#include "bible/note_file.h"
#include "support/memory_file_system.h"

#include <gtest/gtest.h>

namespace {

constexpr TextView path = u"C:\\notes\\John3.dat";
constexpr TextView exactPath = u"C:\\notes\\John3.dat.utf8";

/// The notes of a run of the program.
class NotesOfRun : public ChapterNotes {
public:
    explicit NotesOfRun(FileSystem& files)
        : ChapterNotes(files, m_atOnce)
    {
    }
    /// Goes to a note, makes this text of it and leaves it.
    std::optional<Failure> Save(TextView of, TextView text, bool tell)
    {
        Fill(of);
        return Leave(text, tell);
    }
    /// Goes to a note and leaves it as it is.
    void Visit(TextView of) { EXPECT_FALSE(Leave(Fill(of), true)); }

private:
    InlineWriter m_atOnce;
};

/// What the next run of the program would show.
Text Fresh(FileSystem& files, TextView of = path)
{
    return NotesOfRun(files).Fill(of);
}

Text const hebrew = u"\u05E9\u05DC\u05D5\u05DD";

std::vector<Text> const texts {
    u"plain",
    u"",
    u" \r\n ",
    u"line\r\nends\r\n",
    u"caf\u00E9 \u201Cquoted\u201D \u0081\u00FF",
    Text(u"a\0b", 3),
    u"slwm",
    hebrew,
    hebrew + u"\r\n",
    u"\U0001F426 sparrow",
    u"\U0001F33E sparrow", // of one nearest form
    u"\u00A4 sparrow",
    Text { 0xD83D },
    Text { u'x', 0xDC26, u'y' },
    Text(u"\u0141 \uFFFD"),
};

TEST(ChapterNotes, KeepAnyTextExactly)
{
    MemoryFileSystem files;
    EXPECT_EQ(Fresh(files), u"");
    NotesOfRun notes(files);
    for (auto const& before : texts) {
        for (auto const& text : texts) {
            EXPECT_FALSE(notes.Save(path, before, true));
            EXPECT_FALSE(notes.Save(path, text, true));
            EXPECT_EQ(Fresh(files), text) << ToUtf8(text);
            EXPECT_EQ(notes.Fill(path), text) << ToUtf8(text);
        }
    }
}

TEST(ChapterNotes, StandInTheCodePageForEveryReader)
{
    MemoryFileSystem files;
    NotesOfRun notes(files);
    EXPECT_FALSE(notes.Save(path, u"caf\u00E9\r\n", true));
    EXPECT_EQ(files.Bytes(path), "caf\xE9\r\n");
    EXPECT_FALSE(files.FileExists(exactPath));
    EXPECT_FALSE(notes.Save(path, u"\u0141ask \U0001F426", true));
    EXPECT_EQ(files.Bytes(path), "Lask \xA4");
    EXPECT_EQ(files.Bytes(exactPath),
        "\xC5\x81"
        "ask \xF0\x9F\x90\xA6");
    // What another program makes of the file counts; what stands beside it doesn't any more.
    files.Put(path, "Lask and more");
    EXPECT_EQ(Fresh(files), u"Lask and more");
    EXPECT_EQ(notes.Fill(path), u"Lask and more");
    files.Remove(path);
    EXPECT_EQ(Fresh(files), u"");
}

/// The n-th call of the file system fails, for every n, on the way from every text to every other.
TEST(ChapterNotes, AreOldOrNewAndWholeWhateverWriteFails)
{
    for (auto const& before : texts) {
        for (auto const& after : texts) {
            bool isThrough = false;
            for (int call = 1; !isThrough; ++call) {
                MemoryFileSystem files;
                ASSERT_FALSE(NotesOfRun(files).Save(path, before, true));
                NotesOfRun notes(files);
                notes.Fill(path);
                files.FailAt(call);
                auto const told = notes.Leave(after, true);
                files.FailAt(0);
                isThrough = !told;
                auto const read = Fresh(files);
                EXPECT_TRUE(read == after || (told && read == before))
                    << ToUtf8(before) << " to " << ToUtf8(after) << ", call " << call << ": "
                    << ToUtf8(read);
                EXPECT_EQ(notes.Fill(path), after) << call;
                EXPECT_TRUE(notes.RetryPending());
                EXPECT_EQ(Fresh(files), after)
                    << ToUtf8(before) << " to " << ToUtf8(after) << ", call " << call;
            }
        }
    }
}

TEST(ChapterNotes, OutliveTwoPowerCutsInARow)
{
    // The power failed at some call while one text took another's place, and again at some call
    // while a third did.
    for (int first = 1; first < 12; ++first)
        for (int second = 1; second < 16; ++second) {
            MemoryFileSystem files;
            auto const saveUntil = [&](int call, TextView text) {
                NotesOfRun notes(files);
                notes.Fill(path);
                files.FailAt(call);
                notes.Leave(text, true);
                files.FailAt(0);
            };
            saveUntil(0, hebrew);
            saveUntil(first, hebrew + u" two");
            auto const present = Fresh(files);
            EXPECT_TRUE(present == hebrew || present == hebrew + u" two") << first;
            saveUntil(second, hebrew + u" three");
            auto const last = Fresh(files);
            EXPECT_TRUE(last == present || last == hebrew + u" three")
                << first << ", " << second << ": " << ToUtf8(last);
        }
}

TEST(ChapterNotes, ThatCouldNotBeReadAreNeverOverwritten)
{
    for (auto const& unreadable : { path, exactPath }) {
        MemoryFileSystem files;
        ASSERT_FALSE(NotesOfRun(files).Save(path, hebrew, true));
        auto const bytes = files.Bytes(path), exact = files.Bytes(exactPath);
        files.MakeUnreadable(unreadable);
        NotesOfRun notes(files);
        EXPECT_EQ(notes.Fill(path), u"");
        EXPECT_FALSE(notes.Save(path, u"", true));
        notes.Visit(path);
        EXPECT_EQ(files.Bytes(path), bytes);
        EXPECT_FALSE(notes.Save(path, u"new", true));
        EXPECT_EQ(Fresh(files), u"new");
        EXPECT_EQ(files.Bytes(Text(path) + u".aside"), bytes);
        EXPECT_EQ(files.Bytes(Text(exactPath) + u".aside"), exact);
        EXPECT_FALSE(notes.Save(path, u"", true)); // the new one may be emptied
        EXPECT_EQ(Fresh(files), u"");
    }
}

TEST(ChapterNotes, ThatCantBeSetAsideWait)
{
    for (int call = 1; call <= 3; ++call) {
        MemoryFileSystem files;
        ASSERT_FALSE(NotesOfRun(files).Save(path, hebrew, true));
        auto const exact = files.Bytes(exactPath);
        NotesOfRun notes(files);
        files.FailAt(1);
        EXPECT_EQ(notes.Fill(path), u"");
        files.FailAt(call);
        EXPECT_TRUE(notes.Leave(u"new", true)) << call;
        EXPECT_EQ(notes.Fill(path), u"new") << call;
        EXPECT_FALSE(notes.Leave(u"newer", true)) << call;
        EXPECT_EQ(Fresh(files), u"newer") << call;
        EXPECT_EQ(files.Bytes(Text(exactPath) + u".aside"), exact) << call;
    }
}

TEST(ChapterNotes, TellOfAFailureOnceUntilNothingWaits)
{
    MemoryFileSystem files;
    NotesOfRun notes(files);
    auto const failToSave = [&](TextView of, TextView text, bool tell) {
        files.failing = true;
        bool const told = notes.Save(of, text, tell).has_value();
        files.failing = false;
        return told;
    };
    EXPECT_FALSE(failToSave(u"a", u"1", false)); // no one was there to be told
    EXPECT_TRUE(failToSave(u"a", u"2", true));
    EXPECT_FALSE(failToSave(u"a", u"3", true));
    EXPECT_FALSE(failToSave(u"b", u"4", true));
    EXPECT_EQ(notes.Fill(u"a"), u"3");
    EXPECT_FALSE(notes.Save(u"c", u"5", true)); // writes all that waits
    EXPECT_EQ(Fresh(files, u"a"), u"3");
    EXPECT_EQ(Fresh(files, u"b"), u"4");
    EXPECT_TRUE(failToSave(u"a", u"6", true));
    notes.Visit(u"c");
    EXPECT_EQ(Fresh(files, u"a"), u"6");
    EXPECT_TRUE(failToSave(u"a", u"7", true));
    EXPECT_TRUE(notes.RetryPending());
    EXPECT_EQ(Fresh(files, u"a"), u"7");
    EXPECT_TRUE(failToSave(u"b", u"8", true));
}

TEST(ChapterNotes, AVisitLeavesTheFileAlone)
{
    for (char const* const bytes : { "bare\nline\rends", "a\0b", "\xFF\x81\r\r\n", "" }) {
        MemoryFileSystem files;
        files.Put(path, bytes);
        files.unwritable = u"C:";
        NotesOfRun notes(files);
        notes.Visit(path);
        EXPECT_TRUE(notes.RetryPending()) << bytes;
        EXPECT_EQ(files.Bytes(path), bytes);
    }
    MemoryFileSystem files;
    NotesOfRun notes(files);
    notes.Visit(path);
    EXPECT_TRUE(files.FileExists(path)) << "a place for the note";
}

/// What has gone of a note while it was on show is written from the box; what another copy has put
/// there stays.
TEST(ChapterNotes, AnUnchangedNoteThatHasGoneComesBack)
{
    for (auto const& text : texts) {
        MemoryFileSystem files;
        NotesOfRun notes(files);
        ASSERT_FALSE(notes.Save(path, text, true));
        auto const shown = notes.Fill(path);
        files.Remove(path);
        files.Remove(exactPath);
        EXPECT_FALSE(notes.Leave(shown, true));
        EXPECT_TRUE(files.FileExists(path));
        EXPECT_EQ(Fresh(files), shown) << ToUtf8(text);

        notes.Fill(path);
        files.Remove(exactPath);
        EXPECT_FALSE(notes.Leave(shown, true));
        EXPECT_EQ(Fresh(files), shown) << "the exact form alone had gone: " << ToUtf8(text);

        notes.Fill(path);
        files.Remove(exactPath);
        files.Put(path, "another copy's");
        EXPECT_FALSE(notes.Leave(shown, true));
        EXPECT_EQ(Fresh(files), u"another copy's");
    }
}

/// What can't be seen may be a note on a stick that isn't plugged in.
TEST(ChapterNotes, ThatCantBeLookedAtAreNotTakenForAbsent)
{
    for (auto const& unseen : { path, exactPath }) {
        MemoryFileSystem files;
        ASSERT_FALSE(NotesOfRun(files).Save(path, hebrew, true));
        files.MakeInvisible(unseen);
        NotesOfRun notes(files);
        EXPECT_EQ(notes.Fill(path), u"");
        EXPECT_FALSE(notes.Leave(u"", true));
        EXPECT_TRUE(notes.QueueTyped(u"new").isOver);
        EXPECT_EQ(files.Bytes(path), "new");
        files.MakeVisible(unseen);
        EXPECT_NE(files.Bytes(Text(path) + u".aside"), "") << ToUtf8(unseen);
        EXPECT_EQ(files.Bytes(Text(exactPath) + u".aside"), ToUtf8(hebrew)) << ToUtf8(unseen);
    }
}

TEST(ChapterNotes, FoldersThatCouldNotBeMadeAreMadeLater)
{
    MemoryFileSystem files;
    files.RemoveFolder(u"C:\\Program Files");
    files.unwritable = u"C:";
    constexpr TextView deep = u"C:\\Program Files\\S\\notes\\John3.dat";
    NotesOfRun notes(files);
    EXPECT_TRUE(notes.Save(deep, u"mine", true));
    files.unwritable.clear();
    EXPECT_TRUE(notes.RetryPending());
    EXPECT_EQ(files.Bytes(deep), "mine");
    EXPECT_TRUE(files.FolderExists(u"C:\\Program Files\\S\\notes"));
}

TEST(NoteFile, NamesAFileOfItsFolderOrNone)
{
    struct Row {
        TextView book, chapter;
        char const* file;
    };
    Row const rows[] = { { u"John", u"3", "F\\John3.dat" }, { u"John", u"", "F\\John.dat" },
        { u"John", u"03", "F\\John03.dat" }, { u"1 John", u"2", "F\\1 John2.dat" },
        { u"Esdras.", u"", "F\\Esdras..dat" }, { u"\u00C9zra", u"1", "F\\\u00C9zra1.dat" },
        { u"", u"", "" }, { u".", u"", "" }, { u"..", u"", "" }, { u" John", u"", "" },
        { u"..\\John", u"3", "" }, { u"../John", u"3", "" }, { u"C:John", u"3", "" },
        { u"CON|x", u"", "" }, { u"Jo*n", u"", "" }, { u"John?", u"", "" },
        { u"\"John\"", u"", "" }, { u"<John>", u"", "" }, { u"Jo\thn", u"", "" },
        { u"Jo\nhn", u"", "" }, { u"Jo\u007Fhn", u"", "" }, { TextView(u"Jo\0hn", 5), u"", "" },
        { u"John", u"3/4", "" } };
    for (auto const& row : rows)
        EXPECT_EQ(ToUtf8(NoteFile(u"F\\", row.book, row.chapter).value_or(u"")), row.file)
            << ToUtf8(row.book);
}

} // namespace
