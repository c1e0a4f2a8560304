#include "kit/common/files.h"

#include "kit/kit_fixtures.h"
#include "platform/posix/whole_file.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// All that lies in a folder, with the contents of the files.
std::string Tree(fs::path const& folder)
{
    std::map<std::string, std::string> entries;
    for (auto const& entry : fs::recursive_directory_iterator(folder)) {
        auto const name = fs::relative(entry.path(), folder).string();
        entries[name] = entry.is_directory() ? "/" : "=" + *ReadWholeFile(entry.path());
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
    auto done = ReplaceFiles(target, { { "a", "1" }, { "k/1", "2" } });
    ASSERT_TRUE(done);
    EXPECT_EQ(done->written, 2u);
    done = ReplaceFiles(target, { { "a", "1" }, { "k/1", "3" }, { "k/2", "4" } });
    ASSERT_TRUE(done);
    EXPECT_EQ(done->written, 2u);
    EXPECT_EQ(done->unchanged, 1u);
    EXPECT_EQ(Tree(folder.Path()), "disc/ disc/a=1 disc/k/ disc/k/1=3 disc/k/2=4 ");
}

TEST(Files, OfWorkFoldersOnlyOursAreRemoved)
{
    TestFolder folder;
    auto const old = [](fs::path const& place) {
        fs::last_write_time(place, fs::file_time_type::clock::now() - std::chrono::hours(2));
    };
    EXPECT_EQ(Tree(folder.Path()), "");
    // A run that is killed while it writes leaves its folder, as one that was at work.
    auto const child = fork();
    if (child == 0) {
        rlimit const limit { 1 << 20, 1 << 20 };
        setrlimit(RLIMIT_FSIZE, &limit); // The signal for it kills.
        static_cast<void>(ReplaceFiles(folder.Path(), { { "a", std::string(3 << 20, 'x') } }));
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    ASSERT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
    auto const ours = fs::directory_iterator(folder.Path())->path();
    auto const marker = [&] {
        for (auto const& entry : fs::directory_iterator(ours))
            if (entry.is_regular_file())
                return entry.path();
        return fs::path();
    }();
    folder.Write(".kit-mine/letter", "dear");
    folder.Write(".kit-other" / marker.filename(), "another's");
    fs::create_directories(folder.Path() / ".kit-kept/old");
    folder.Write(".kit-kept/old/a", "dear");
    fs::create_directory(folder.Path() / "linked");
    fs::copy(ours, folder.Path() / "linked", fs::copy_options::recursive);
    fs::create_directory_symlink("linked", folder.Path() / ".kit-link");
    EXPECT_TRUE(ReplaceFiles(folder.Path(), { { "b", "2" } }));
    EXPECT_TRUE(fs::exists(ours)) << "it may be at work";
    for (auto const* const name : { ".kit-mine", ".kit-other", ".kit-kept", "linked" })
        old(folder.Path() / name);
    old(ours);
    EXPECT_TRUE(ReplaceFiles(folder.Path(), { { "b", "3" } }));
    EXPECT_FALSE(fs::exists(ours));
    for (auto const* const name :
        { ".kit-mine/letter", ".kit-kept/old/a", ".kit-other", ".kit-link" })
        EXPECT_TRUE(fs::exists(fs::symlink_status(folder.Path() / name))) << name;
    EXPECT_TRUE(fs::exists(folder.Path() / "linked" / marker.filename()));
}

TEST(Files, LeadNowhereElseAndArePrivateIfTheyAreToBe)
{
    TestFolder folder;
    auto const before = Tree(folder.Path());
    for (fs::path const name : { "../out", "/srv/out", "k/../../out", "", "k/" }) {
        EXPECT_FALSE(ReplaceFiles(folder.Path(), { { "a", "1" }, { name, "2" } })) << name;
        EXPECT_EQ(Tree(folder.Path()), before) << name;
    }
    folder.Write("a", "1");
    fs::permissions(folder.Path() / "a", fs::perms { 0644 });
    EXPECT_EQ(
        ReplaceFiles(folder.Path(), { { "a", "1" }, { "b", "2" } }, Readers::Owner)->written, 2u);
    for (auto const* const name : { "a", "b" })
        EXPECT_EQ(fs::status(folder.Path() / name).permissions(), fs::perms { 0600 }) << name;
}

/// Runs apart, as it would hang.
TEST(Files, PipesDevicesAndFoldersAreNotRead)
{
    TestFolder folder;
    ASSERT_EQ(mkfifo((folder.Path() / "pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", folder.Path() / "link");
    struct {
        fs::path path;
        char const* reason;
    } const rows[] = { { folder.Path() / "pipe", "it is not a regular file" },
        { folder.Path() / "link", "it is not a regular file" },
        { "/dev/zero", "it is not a regular file" }, { folder.Path(), "it is a folder" } };
    for (auto const& row : rows) {
        auto const child = fork();
        if (child == 0) {
            alarm(5);
            Faults faults;
            bool const isRead = ReadWhole(row.path, faults).has_value();
            _exit(!isRead && Dump(faults) == row.path.string() + ": " + row.reason + "\n" ? 0 : 1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << row.path;
    }
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
        // stands for a disc that is full
        { "new", { { "a", std::string(3 << 20, 'x') } }, "File too large" },
        { "", { { "a", "1" }, { "b", std::string(3 << 20, 'x') } }, "File too large" },
    };
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit original {};
    getrlimit(RLIMIT_FSIZE, &original);
    auto limit = original;
    limit.rlim_cur = 1 << 20;
    setrlimit(RLIMIT_FSIZE, &limit);
    for (auto const& row : rows) {
        auto const replaced = ReplaceFiles(folder.Path() / row.target, row.files);
        ASSERT_FALSE(replaced) << row.target;
        EXPECT_EQ(Tree(folder.Path()), before) << row.target;
        auto const told = ToUtf8(replaced.failure().Message());
        EXPECT_NE(told.find(row.reason), std::string::npos) << told;
    }
    setrlimit(RLIMIT_FSIZE, &original);
}

} // namespace
