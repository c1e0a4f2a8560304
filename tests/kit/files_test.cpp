#include "kit/files.h"

#include "kit_bench.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace fs = std::filesystem;

namespace {

/// All that lies in a folder, with the contents of the files.
std::string Tree(fs::path const& folder)
{
    std::map<std::string, std::string> entries;
    for (auto const& entry : fs::recursive_directory_iterator(folder)) {
        Faults ignored;
        auto const name = fs::relative(entry.path(), folder).string();
        entries[name] = entry.is_directory() ? "/" : "=" + ReadWhole(entry.path(), ignored).value_or("?");
    }
    std::string text;
    for (auto const& [name, content] : entries)
        text += name + content + ' ';
    return text;
}

TEST(Files, AreReplacedTogether)
{
    TestFolder folder;
    auto const target = folder.Path() / "disc";
    Faults faults;
    auto done = ReplaceFiles(target, { { "a", "1" }, { "k/1", "2" } }, faults);
    ASSERT_TRUE(done) << Dump(faults);
    EXPECT_EQ(done->written, 2u);
    done = ReplaceFiles(target, { { "a", "1" }, { "k/1", "3" }, { "k/2", "4" } }, faults);
    ASSERT_TRUE(done) << Dump(faults);
    EXPECT_EQ(done->written, 2u);
    EXPECT_EQ(done->unchanged, 1u);
    EXPECT_EQ(Tree(folder.Path()), "disc/ disc/a=1 disc/k/ disc/k/1=3 disc/k/2=4 ");
}

TEST(Files, LeaveNothingHalfWritten)
{
    TestFolder folder;
    folder.Write("a", "old");
    folder.Write("file", "x");
    folder.Write("k/x", "x");
    auto const before = Tree(folder.Path());
    struct Row {
        fs::path target; ///< below the folder
        OutputFiles files;
        char const* reason;
    };
    Row const rows[] = {
        { "no/such", { { "a", "1" } }, "No such file or directory" },
        { "file", { { "a", "1" } }, "File exists" },
        { "", { { "a", "1" }, { "file/1", "2" } }, "File exists" },
        { "", { { "a", "1" }, { "b/1", "2" }, { "k", "3" } }, "directory" },
        { "new", { { "a", std::string(3 << 20, 'x') } }, "File too large" }, // stands for a disc that is full
        { "", { { "a", "1" }, { "b", std::string(3 << 20, 'x') } }, "File too large" },
    };
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit original {};
    getrlimit(RLIMIT_FSIZE, &original);
    auto limit = original;
    limit.rlim_cur = 1 << 20;
    setrlimit(RLIMIT_FSIZE, &limit);
    for (auto const& row : rows) {
        Faults faults;
        EXPECT_FALSE(ReplaceFiles(folder.Path() / row.target, row.files, faults));
        EXPECT_EQ(Tree(folder.Path()), before) << row.target;
        EXPECT_NE(Dump(faults).find(row.reason), std::string::npos) << Dump(faults);
    }
    setrlimit(RLIMIT_FSIZE, &original);
}

}
