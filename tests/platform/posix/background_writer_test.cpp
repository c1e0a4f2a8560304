#include "platform/posix/background_writer.h"

#include "platform/ordered_settings_store.h"
#include "support/memory_settings_store.h"

#include <gtest/gtest.h>

#include <future>

TEST(BackgroundWriter, WorksInOrderAndLetsTheCallerGoOn)
{
    std::promise<void> open;
    auto gate = open.get_future().share();
    std::vector<int> done;
    BackgroundWriter writer;
    for (int i = 0; i < 100; ++i)
        writer.Later([&, i, gate] { gate.wait(), done.push_back(i); });
    EXPECT_FALSE(writer.IsIdle());
    open.set_value();
    writer.Wait();
    EXPECT_TRUE(writer.IsIdle());
    ASSERT_EQ(done.size(), 100U);
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
}

TEST(BackgroundWriter, DoesAllWorkBeforeItGoes)
{
    int done = 0;
    {
        BackgroundWriter writer;
        for (int i = 0; i < 100; ++i)
            writer.Later([&] { ++done; });
    }
    EXPECT_EQ(done, 100);
}

TEST(BackgroundWriter, EverythingAskedOfTheStoreComesBehindIt)
{
    MemorySettingsStore store;
    BackgroundWriter writer;
    OrderedSettingsStore ordered(store, writer);
    using Operation = std::function<void()>;
    Operation const operations[] = {
        [&] { EXPECT_EQ(**ordered.Read(u"s", u"k"), u"late"); },
        [&] { EXPECT_EQ(ordered.All()->size(), 1U); },
        [&] { EXPECT_EQ(ordered.Sections()->size(), 1U); },
        [&] {
            EXPECT_TRUE(ordered.Write(u"s", u"k", u"last"));
            EXPECT_EQ(store.Value(u"s", u"k"), u"last");
        },
        [&] {
            EXPECT_TRUE(
                ordered.WriteAll({ { u"s", u"k", u"last" } }, SettingsStore::Existing::Stays));
            EXPECT_EQ(store.Value(u"s", u"k"), u"late");
        },
        [&] {
            EXPECT_TRUE(ordered.DeleteSection(u"s", SettingsStore::NoBackup));
            EXPECT_EQ(store.Value(u"s", u"k"), u"(none)");
        },
    };
    for (auto const& operation : operations) {
        writer.Later([&ordered] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            EXPECT_TRUE(ordered.Write(u"s", u"k", u"late")) << "the work itself waits for nothing";
        });
        operation();
    }
}
