// Answers, and that none is lost when the store fails or another copy of the program writes into
// it.

#include "study/answer_store.h"

#include "support/held_writer.h"
#include "support/memory_settings_store.h"

#include <gmock/gmock.h>

#include <string>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr TextView lesson = u"ruth-1.dat:1";

class AnswerStoreTest : public testing::Test {
protected:
    AnswerStoreTest() { writer.isHolding = true; }

    /// What the store holds on a page; "(none)" for nothing.
    Text Stored(int page) const { return store.Value(lesson, u"Page" + FromNumber(page)); }
    void Put(int page, TextView text)
    {
        ASSERT_TRUE(store.Write(lesson, u"Page" + FromNumber(page), text));
    }
    Text Fill(int page) { return answers.Fill(lesson, page); }
    /// Goes to a page, makes this text of it and leaves it.
    std::optional<Failure> Answer(int page, TextView text)
    {
        Fill(page);
        return answers.Leave(text);
    }

    MemorySettingsStore store;
    HeldWriter writer;
    AnswerStore answers { store, writer };
};

} // namespace

TEST_F(AnswerStoreTest, KeepsAnswersAndThePageByLesson)
{
    EXPECT_EQ(Fill(3), u"");
    EXPECT_EQ(answers.CurrentPage(lesson), u"1");
    EXPECT_FALSE(answers.Leave(u"one\r\ntwo"));
    answers.Fill(u"ruth-2.dat:1", 3);
    EXPECT_FALSE(answers.Leave(u"another"));
    answers.SetCurrentPage(lesson, u"3");
    EXPECT_EQ(Stored(3), u"one\r\ntwo");
    EXPECT_EQ(store.Value(lesson, u"currentindex"), u"3");
    EXPECT_EQ(Fill(3), u"one\r\ntwo");
    EXPECT_FALSE(answers.Leave(u"")) << "emptied by the user";
    EXPECT_EQ(Stored(3), u"");

    EXPECT_TRUE(answers.DeleteLesson(lesson, u""));
    EXPECT_EQ(answers.CurrentPage(lesson), u"1");
    EXPECT_EQ(answers.Fill(u"ruth-2.dat:1", 3), u"another");
}

/// What a box shows, what another copy does meanwhile, what the user makes of the box, and what is
/// stored when it is left, and when it is saved by the menu instead.
TEST_F(AnswerStoreTest, ABoxIsStoredUnlessItIsLeftAsItWasFilled)
{
    struct {
        char const *shown, *others, *left, *stored,
            *saved; // "-": nothing is stored, or nothing happens
    } const rows[] = {
        { "-", "-", "", "", "" }, { "-", "-", "a", "a", "a" }, { "-", "theirs", "", "theirs", "" },
        { "-", "theirs", "a", "a", "a" }, { "a", "-", "a", "a", "a" }, { "a", "-", "b", "b", "b" },
        { "a", "-", "", "", "" }, { "a", "theirs", "a", "theirs", "a" },
        { "a", "theirs", "b", "b", "b" }, { "a", "", "a", "", "a" },
        { "a", "deleted", "a", "-", "a" }, { "a", "deleted", "b", "b", "b" },
        { "a", "deleted", "", "", "" },
        { "two\nlines", "-", "two\r\nlines", "two\nlines",
            "two\r\nlines" }, // from elsewhere: a visit doesn't rewrite it
    };
    for (auto const& row : rows) {
        for (bool const byMenu : { false, true }) {
            SCOPED_TRACE(std::string(row.shown) + ", " + row.others + ", " + row.left
                + (byMenu ? ", by menu" : ""));
            ASSERT_TRUE(store.DeleteSection(lesson, SettingsStore::NoBackup));
            if (*row.shown != '-')
                Put(1, FromUtf8(row.shown));
            Fill(1);
            if (std::string(row.others) == "deleted")
                ASSERT_TRUE(store.DeleteSection(lesson, SettingsStore::NoBackup));
            else if (std::string(row.others) != "-")
                Put(1, FromUtf8(row.others));
            if (byMenu)
                EXPECT_TRUE(answers.Save(FromUtf8(row.left)));
            else
                EXPECT_FALSE(answers.Leave(FromUtf8(row.left)));
            auto const* const expected = byMenu ? row.saved : row.stored;
            EXPECT_EQ(ToUtf8(Stored(1)), *expected == '-' ? "(none)" : expected);
        }
    }
}

TEST_F(AnswerStoreTest, WhatWasStoredFromABoxIsItsBase)
{
    EXPECT_FALSE(Answer(1, u"mine"));
    Put(1, u"theirs");
    EXPECT_FALSE(answers.Leave(u"mine"));
    EXPECT_EQ(Stored(1), u"theirs");
    EXPECT_FALSE(answers.Leave(u"mine, and more"));
    EXPECT_EQ(Stored(1), u"mine, and more");
}

TEST_F(AnswerStoreTest, TypingIsStoredWithoutWaiting)
{
    Put(1, u"a");
    Fill(1);
    EXPECT_FALSE(answers.QueueTyped(u"ab").isOver);
    EXPECT_EQ(Stored(1), u"a") << "in the writer's hands";
    EXPECT_FALSE(answers.QueueTyped(u"abc").isOver) << "which is at work";
    writer.Work();
    EXPECT_EQ(Stored(1), u"ab");
    EXPECT_FALSE(answers.QueueTyped(u"abc").isOver);
    writer.Work();
    EXPECT_TRUE(answers.QueueTyped(u"abc").isOver);
    EXPECT_EQ(Stored(1), u"abc");
    Put(1, u"theirs");
    EXPECT_TRUE(answers.QueueTyped(u"abc").isOver) << "nothing has been typed since";
    EXPECT_EQ(Stored(1), u"theirs");

    // Undone to what stood there first, before and after the writer is through.
    for (bool const isThrough : { false, true }) {
        Put(1, u"a");
        Fill(1);
        answers.QueueTyped(u"ab");
        if (isThrough)
            writer.Work();
        EXPECT_FALSE(answers.Leave(u"a"));
        EXPECT_EQ(Stored(1), u"a");
    }
    // Each text goes to the page on which it was typed.
    Fill(2);
    answers.QueueTyped(u"of page two");
    EXPECT_EQ(Fill(3), u"");
    EXPECT_EQ(Stored(2), u"of page two");
    EXPECT_EQ(Stored(3), u"(none)");
    answers.ForgetBox();
    EXPECT_TRUE(answers.QueueTyped(u"of no page").isOver);
}

TEST_F(AnswerStoreTest, ATypedTextThatCannotBeStoredWaitsAndIsToldOnce)
{
    Fill(1);
    store.unwritable = true;
    EXPECT_FALSE(answers.QueueTyped(u"a").isOver);
    writer.Work();
    auto const first = answers.QueueTyped(u"a");
    EXPECT_TRUE(first.isOver && first.failure);
    EXPECT_FALSE(answers.QueueTyped(u"ab").isOver);
    writer.Work();
    auto const second = answers.QueueTyped(u"ab");
    EXPECT_TRUE(second.isOver && !second.failure);
    EXPECT_FALSE(answers.Leave(u"a")) << "told already";
    store.unwritable = false;
    EXPECT_EQ(Fill(1), u"a");
    EXPECT_FALSE(answers.Leave(u"a"));
    EXPECT_EQ(Stored(1), u"a");
}

TEST_F(AnswerStoreTest, KeepsWhatCannotBeStoredAndTellsOnce)
{
    store.unwritable = true;
    EXPECT_TRUE(Answer(1, u"first"));
    EXPECT_FALSE(Answer(2, u"second"));
    EXPECT_FALSE(Answer(1, u"first, changed"));
    EXPECT_EQ(Fill(1), u"first, changed");
    EXPECT_FALSE(answers.Save(u"first, changed")) << "who asks for it is told";
    EXPECT_FALSE(answers.RetryPending());
    EXPECT_EQ(answers.ProgressOf(lesson).answered, 2);

    store.unwritable = false;
    EXPECT_FALSE(Answer(3, u"third"));
    EXPECT_EQ(Stored(1), u"first, changed");
    EXPECT_EQ(Stored(2), u"second");

    store.unwritable = true;
    EXPECT_TRUE(Answer(1, u"again")) << "told anew after all was stored";
    store.unwritable = false;
    EXPECT_TRUE(answers.RetryPending());
    EXPECT_EQ(Stored(1), u"again");
}

TEST_F(AnswerStoreTest, OneTextThatCannotBeStoredHoldsUpNoOther)
{
    store.longest = 6;
    EXPECT_TRUE(Answer(2, u"too long"));
    EXPECT_FALSE(Answer(1, u"short"));
    EXPECT_FALSE(Answer(3, u"too long as well"));
    EXPECT_EQ(Stored(1), u"short");
    EXPECT_EQ(Fill(2), u"too long");
    store.longest = 8;
    EXPECT_FALSE(Answer(3, u"too long still"));
    EXPECT_EQ(Stored(2), u"too long") << "tried whatever else went wrong";
}

TEST_F(AnswerStoreTest, ADeletedTextCanBeWrittenAgain)
{
    EXPECT_FALSE(Answer(1, u"mine"));
    EXPECT_TRUE(answers.DeleteLesson(lesson, u"mine"));
    EXPECT_FALSE(answers.Leave(u"mine"));
    EXPECT_EQ(Stored(1), u"mine");
}

/// What is stored, waits and stands in the box goes into the backup; what holds no words has none.
TEST_F(AnswerStoreTest, WhatIsDeletedIsKeptInABackup)
{
    answers.SetCurrentPage(lesson, u"2");
    EXPECT_FALSE(Answer(1, u" \r\n"));
    EXPECT_TRUE(answers.DeleteLesson(lesson, u" \r\n"));
    EXPECT_THAT(store.backups, IsEmpty());

    answers.SetCurrentPage(lesson, u"2");
    EXPECT_FALSE(Answer(1, u"one"));
    store.unwritable = true;
    EXPECT_TRUE(Answer(2, u"two"));
    EXPECT_FALSE(answers.DeleteLesson(lesson, u"two")) << "then all is as before";
    EXPECT_EQ(Fill(2), u"two");
    Fill(3);
    store.unwritable = false;
    store.failsToBackUp = true;
    EXPECT_FALSE(answers.DeleteLesson(lesson, u"three"));
    EXPECT_EQ(Stored(1), u"one");
    EXPECT_EQ(Fill(2), u"two");
    store.failsToBackUp = false;
    Fill(3);
    EXPECT_TRUE(answers.DeleteLesson(lesson, u"three"));
    ASSERT_EQ(store.backups.size(), 1U);
    std::vector<std::string> kept;
    for (auto const& entry : store.backups[0])
        kept.push_back(ToUtf8(entry.key + u"=" + entry.value));
    EXPECT_THAT(kept, ElementsAre("Page1=one", "currentindex=2", "Page2=two", "Page3=three"));
    EXPECT_EQ(Fill(2), u"");
    EXPECT_TRUE(answers.RetryPending());
    EXPECT_EQ(Stored(2), u"(none)");
}

TEST_F(AnswerStoreTest, AnAnswerThatCouldNotBeReadIsNotEmptied)
{
    Put(1, u"of last week");
    store.unreadable = true;
    EXPECT_EQ(Fill(1), u"");
    EXPECT_FALSE(answers.Leave(u""));
    store.unreadable = false;
    EXPECT_FALSE(answers.Leave(u""));
    EXPECT_TRUE(answers.Save(u"")) << "which reads it again";
    EXPECT_EQ(Stored(1), u"of last week");
    EXPECT_EQ(Fill(1), u"of last week");
    EXPECT_FALSE(answers.Leave(u"")) << "now the user has seen what he empties";
    EXPECT_EQ(Stored(1), u"");
}

TEST_F(AnswerStoreTest, WhatIsTypedOverAnUnreadAnswerStandsBehindIt)
{
    Put(1, u"old");
    store.unreadable = true;
    EXPECT_EQ(Fill(1), u"");
    EXPECT_TRUE(answers.Leave(u"new")) << "not before the old one is known";
    EXPECT_EQ(Stored(1), u"old");
    EXPECT_EQ(Fill(1), u"new");

    store.unreadable = false;
    EXPECT_FALSE(answers.Leave(u"newer"));
    EXPECT_EQ(Stored(1), u"old\r\nnewer");
    answers.QueueTyped(u"newest"); // the box still shows the new text alone
    writer.Work();
    EXPECT_EQ(Stored(1), u"old\r\nnewest");

    store.unreadable = true;
    EXPECT_EQ(Fill(1), u"") << "unread once more, with more in it";
    store.unreadable = false;
    store.unwritable = true;
    EXPECT_TRUE(answers.Leave(u"last"));
    EXPECT_EQ(Fill(1), u"old\r\nnewest\r\nlast") << "and now it shows all";
    store.unwritable = false;
    EXPECT_FALSE(answers.Leave(u"the user's choice"));
    EXPECT_EQ(Stored(1), u"the user's choice");
}

TEST_F(AnswerStoreTest, ALessonKeepsItsSectionWhenItsFileIsRenamedInCase)
{
    struct {
        char const* about;
        std::vector<TextView> sections, files;
        TextView found;
    } const rows[] = {
        { "nothing stored", {}, {}, lesson },
        { "the exact one", { lesson, u"RUTH-1.dat:1" }, {}, lesson },
        { "the only other", { u"RUTH-1.dat:1", u"RUTH-1.dat:2", u"job-1.dat:1" }, {},
            u"RUTH-1.dat:1" },
        { "of a study that is there", { u"RUTH-1.dat:1" }, { u"RUTH-1.dat" }, lesson },
        { "two others", { u"RUTH-1.dat:1", u"Ruth-1.dat:1" }, {}, lesson },
        { "two, one of a study that is there", { u"RUTH-1.dat:1", u"Ruth-1.dat:1" },
            { u"Ruth-1.dat" }, u"RUTH-1.dat:1" },
    };
    for (auto const& row : rows) {
        MemorySettingsStore settings;
        for (TextView const section : row.sections)
            ASSERT_TRUE(settings.Write(section, u"currentindex", u"2"));
        AnswerStore const found(settings, writer);
        auto const isThere = [&](TextView file) {
            return std::find(row.files.begin(), row.files.end(), file) != row.files.end();
        };
        EXPECT_EQ(found.SectionOf(lesson, isThere), row.found) << row.about;
    }
}
