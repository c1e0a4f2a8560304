// Answers, and that none is lost when the store fails.

#include "study/answer_store.h"

#include <gtest/gtest.h>

namespace {

/// A store in memory that fails on demand.
class MemoryStore final : public SettingsStore {
public:
    std::map<std::pair<Text, Text>, Text> values;
    bool readable = true;
    bool writable = true;
    std::size_t longest = Text::npos; ///< a longer value can't be written
    int writes = 0; ///< tried so far

    Outcome<std::optional<Text>> Read(TextView section, TextView key) const override
    {
        if (!readable)
            return Failure { u"store", 0, u"it can't be read" };
        auto const found = values.find({ Text(section), Text(key) });
        return found == values.end() ? std::optional<Text>() : found->second;
    }
    Outcome<Done> Write(TextView section, TextView key, TextView value) override
    {
        ++writes;
        if (!writable || value.size() > longest)
            return Failure { u"store", 0, u"it can't be written" };
        values[{ Text(section), Text(key) }] = value;
        return Done {};
    }
    Outcome<Done> DeleteSection(TextView section) override
    {
        if (!writable)
            return Failure { u"store", 0, u"it can't be written" };
        std::erase_if(values, [&](auto const& entry) { return entry.first.first == section; });
        return Done {};
    }
    Outcome<std::vector<Entry>> All() const override { return std::vector<Entry>(); }
    Outcome<Done> WriteAll(std::vector<Entry> const&, Existing) override { return Done {}; }
};

constexpr TextView lesson = u"ruth-1.dat:1";

class AnswerStoreTest : public testing::Test {
protected:
    Text& StoredAnswer(int page)
    {
        return store.values[{ Text(lesson), u"Page" + FromNumber(page) }];
    }

    MemoryStore store;
    AnswerStore answers { store };
};

} // namespace

TEST_F(AnswerStoreTest, KeepsAnswersAndThePageByLesson)
{
    EXPECT_EQ(answers.Answer(lesson, 3), u"");
    EXPECT_EQ(answers.CurrentPage(lesson), u"1");
    EXPECT_FALSE(answers.StoreAnswer(lesson, 3, u"one\r\ntwo"));
    EXPECT_FALSE(answers.StoreAnswer(u"ruth-2.dat:1", 3, u"another"));
    answers.SetCurrentPage(lesson, u"3");
    EXPECT_EQ(StoredAnswer(3), u"one\r\ntwo");
    EXPECT_EQ((store.values[{ Text(lesson), u"currentindex" }]), u"3");
    EXPECT_EQ(answers.Answer(lesson, 3), u"one\r\ntwo");
    EXPECT_FALSE(answers.StoreAnswer(lesson, 3, u"")) << "emptied by the user";
    EXPECT_EQ(StoredAnswer(3), u"");

    EXPECT_FALSE(answers.DeleteLesson(lesson));
    EXPECT_EQ(answers.CurrentPage(lesson), u"1");
    EXPECT_EQ(answers.Answer(u"ruth-2.dat:1", 3), u"another");
}

TEST_F(AnswerStoreTest, KeepsWhatCannotBeStoredAndTellsOnce)
{
    store.writable = false;
    EXPECT_TRUE(answers.StoreAnswer(lesson, 1, u"first"));
    EXPECT_FALSE(answers.StoreAnswer(lesson, 2, u"second"));
    EXPECT_FALSE(answers.StoreAnswer(lesson, 1, u"first, changed"));
    EXPECT_EQ(answers.Answer(lesson, 1), u"first, changed");
    EXPECT_EQ(store.writes, 3) << "a store that fails isn't tried once for each waiting text";
    EXPECT_TRUE(answers.RetryPending());

    store.writable = true;
    EXPECT_FALSE(answers.StoreAnswer(lesson, 3, u"third"));
    EXPECT_EQ(StoredAnswer(1), u"first, changed");
    EXPECT_EQ(StoredAnswer(2), u"second");

    store.writable = false;
    EXPECT_TRUE(answers.StoreAnswer(lesson, 1, u"again")) << "told anew after all was stored";
    store.writable = true;
    EXPECT_FALSE(answers.RetryPending());
    EXPECT_EQ(StoredAnswer(1), u"again");
}

TEST_F(AnswerStoreTest, OneTextThatCannotBeStoredHoldsUpNoOther)
{
    store.longest = 6;
    EXPECT_TRUE(answers.StoreAnswer(lesson, 1, u"too long"));
    EXPECT_FALSE(answers.StoreAnswer(lesson, 2, u"short"));
    EXPECT_EQ(StoredAnswer(2), u"short");
    EXPECT_EQ(answers.Answer(lesson, 1), u"too long");
}

TEST_F(AnswerStoreTest, ADeleteDropsWaitingTextsUnlessItFails)
{
    store.writable = false;
    answers.StoreAnswer(lesson, 1, u"mine");
    EXPECT_TRUE(answers.DeleteLesson(lesson));
    EXPECT_EQ(answers.Answer(lesson, 1), u"mine");
    store.writable = true;
    EXPECT_FALSE(answers.DeleteLesson(lesson));
    EXPECT_EQ(answers.Answer(lesson, 1), u"");
    EXPECT_FALSE(answers.RetryPending());
    EXPECT_TRUE(store.values.empty());
}

TEST_F(AnswerStoreTest, AnAnswerThatCouldNotBeReadIsNotEmptied)
{
    StoredAnswer(1) = u"of last week";
    store.readable = false;
    EXPECT_EQ(answers.Answer(lesson, 1), u"");
    EXPECT_FALSE(answers.StoreAnswer(lesson, 1, u""));
    store.readable = true;
    EXPECT_FALSE(answers.StoreAnswer(lesson, 1, u""));
    EXPECT_EQ(StoredAnswer(1), u"of last week");
    EXPECT_EQ(answers.Answer(lesson, 1), u"of last week");
    EXPECT_FALSE(answers.StoreAnswer(lesson, 1, u"")) << "now the user has seen what he empties";
    EXPECT_EQ(StoredAnswer(1), u"");
}

TEST_F(AnswerStoreTest, WhatIsTypedOverAnUnreadAnswerStandsBehindIt)
{
    StoredAnswer(1) = u"old";
    store.readable = false;
    EXPECT_EQ(answers.Answer(lesson, 1), u"");
    EXPECT_TRUE(answers.StoreAnswer(lesson, 1, u"new")) << "not before the old one is known";
    EXPECT_EQ(StoredAnswer(1), u"old");
    EXPECT_EQ(answers.Answer(lesson, 1), u"new");

    store.readable = true;
    EXPECT_FALSE(answers.StoreAnswer(lesson, 1, u"newer"));
    EXPECT_EQ(StoredAnswer(1), u"old\r\nnewer");
    EXPECT_FALSE(answers.StoreAnswer(lesson, 1, u"newest"))
        << "the box still shows the new text alone";
    EXPECT_EQ(StoredAnswer(1), u"old\r\nnewest");

    store.writable = false;
    EXPECT_TRUE(answers.StoreAnswer(lesson, 1, u"last"));
    EXPECT_EQ(answers.Answer(lesson, 1), u"old\r\nlast") << "and now it shows both";
    store.writable = true;
    EXPECT_FALSE(answers.StoreAnswer(lesson, 1, u"the user's choice"));
    EXPECT_EQ(StoredAnswer(1), u"the user's choice");
}
