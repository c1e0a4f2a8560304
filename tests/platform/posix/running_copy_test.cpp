#include "platform/posix/running_copy.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

/// Answers starts as an event loop would, as long as it lives.
class Answering {
public:
    explicit Answering(RunningCopy& copy)
        : m_thread([this, &copy] {
            while (!m_isOver) {
                pollfd waiting { copy.Socket(), POLLIN, 0 };
                if (::poll(&waiting, 1, 5) == 1 && copy.Answer())
                    ++m_comings;
            }
        })
    {
    }
    ~Answering() { End(); }
    /// Ends the loop: how often the copy was to come up.
    int End()
    {
        m_isOver = true;
        if (m_thread.joinable())
            m_thread.join();
        return m_comings;
    }

private:
    int m_comings = 0;
    std::atomic<bool> m_isOver = false;
    std::thread m_thread;
};

class RunningCopyTest : public testing::Test {
protected:
    RunningCopyTest()
    {
        std::string name = fs::temp_directory_path() / "copies-XXXXXX";
        parent = ::mkdtemp(name.data());
        folder = parent / "running";
    }
    ~RunningCopyTest() override { fs::remove_all(parent); }

    /// A start, patient enough for a busy machine.
    bool Raises(char const* name = "one")
    {
        return RunningCopy(folder, name, 5s).HasRaisedAnother();
    }

    /// Another process, which runs `action` and is gone without a word. Returns when that has
    /// called what it is given.
    template <class Action> pid_t Fork(Action action)
    {
        int ready[2];
        EXPECT_EQ(::pipe(ready), 0);
        pid_t const child = ::fork();
        if (child == 0) {
            bool wrote = true;
            action([&] { wrote = ::write(ready[1], "", 1) == 1; });
            ::_exit(wrote ? 0 : 1);
        }
        char byte;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        ::close(ready[1]);
        return child;
    }

    fs::path parent, folder;
};

} // namespace

TEST_F(RunningCopyTest, OnlyAStartOfTheSameNameRaisesTheCopyThatRuns)
{
    RunningCopy first(folder, "one");
    EXPECT_FALSE(first.HasRaisedAnother());
    {
        Answering loop(first);
        EXPECT_TRUE(Raises());
        EXPECT_TRUE(Raises());
        EXPECT_FALSE(Raises("two"));
        EXPECT_EQ(loop.End(), 2);
    }
    first.Close();
    EXPECT_TRUE(fs::is_empty(folder)) << "nothing is left behind";
    EXPECT_FALSE(Raises());
}

TEST_F(RunningCopyTest, ACopyThatDoesNotAnswerIsReplaced)
{
    RunningCopy hanging(folder, "one");
    RunningCopy second(folder, "one", 100ms);
    EXPECT_FALSE(second.HasRaisedAnother());
    EXPECT_FALSE(hanging.Answer()) << "who asked has given up";
    hanging.Close();
    Answering const loop(second);
    EXPECT_TRUE(Raises()) << "the end of the copy that hung leaves the other's socket alone";
}

TEST_F(RunningCopyTest, ACrashDoesNotHinderTheNextStart)
{
    pid_t const child = Fork([&](auto const& tell) {
        RunningCopy copy(folder, "one");
        tell();
        ::_exit(0);
    });
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(fs::exists(folder / "one"));
    auto const begin = std::chrono::steady_clock::now();
    RunningCopy next(folder, "one", 5s);
    EXPECT_FALSE(next.HasRaisedAnother());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
    Answering const loop(next);
    EXPECT_TRUE(Raises());
}

TEST_F(RunningCopyTest, OfStartsAtTheSameMomentOneRuns)
{
    constexpr int starts = 8;
    std::atomic<int> running = 0, decided = 0;
    RunningCopy const earlier(folder, "other"); // makes the folder
    Descriptor looking(::open(folder.c_str(), O_RDONLY));
    ASSERT_EQ(::flock(looking.Number(), LOCK_EX), 0);
    std::vector<std::thread> threads;
    for (int i = 0; i < starts; ++i)
        threads.emplace_back([&] {
            RunningCopy copy(folder, "one", 10s);
            ++decided;
            if (copy.HasRaisedAnother())
                return;
            ++running;
            Answering const loop(copy);
            while (decided < starts)
                std::this_thread::sleep_for(1ms);
        });
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(decided, 0) << "while one looks, others wait";
    looking.Close();
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(running, 1);
}

TEST_F(RunningCopyTest, ForeignAnswersCountForNothing)
{
    RunningCopy other(folder, "other");
    Answering loop(other);
    fs::create_symlink("other", folder / "one");
    EXPECT_FALSE(Raises()) << "a link to another socket";
    EXPECT_EQ(loop.End(), 0);

    fs::permissions(folder, fs::perms::group_exec, fs::perm_options::add);
    EXPECT_FALSE(Raises("other")) << "a folder that others can enter";
    EXPECT_EQ(RunningCopy(folder, "third").Socket(), -1);
}

TEST_F(RunningCopyTest, AnotherUsersProcessCannotAnswer)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    fs::create_directory(folder);
    fs::permissions(folder, fs::perms::owner_all);
    pid_t const child = Fork([&](auto const& tell) {
        int const listening = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        (folder / "one").native().copy(address.sun_path, sizeof address.sun_path - 1);
        ::bind(listening, reinterpret_cast<sockaddr const*>(&address), sizeof address);
        if (::setuid(65534) != 0 || ::listen(listening, 1) != 0)
            ::_exit(1);
        tell();
        static_cast<void>(::send(::accept(listening, nullptr, nullptr), "!", 1, MSG_NOSIGNAL));
    });
    EXPECT_FALSE(Raises());
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << "it did listen and was asked";
}

TEST_F(RunningCopyTest, SocketsLieWhereOnlyTheUserCanGo)
{
    struct {
        char const* about;
        fs::perms perms;
        bool isUsed;
    } const rows[] = { { "private", fs::perms::owner_all, true },
        { "open to the group", fs::perms::owner_all | fs::perms::group_exec, false } };
    char const* const before = std::getenv("XDG_RUNTIME_DIR");
    std::string const kept = before ? before : "";
    for (auto const& row : rows) {
        fs::permissions(parent, row.perms);
        ::setenv("XDG_RUNTIME_DIR", parent.c_str(), 1);
        auto const place = RunningCopiesFolder("/data");
        EXPECT_EQ(place, row.isUsed ? parent / "sparrowfield" : "/data/running") << row.about;
    }
    before ? ::setenv("XDG_RUNTIME_DIR", kept.c_str(), 1) : ::unsetenv("XDG_RUNTIME_DIR");
    fs::permissions(parent, fs::perms::owner_all);
    fs::create_directory_symlink(parent, parent / "link");
    EXPECT_EQ(FolderIdentity(parent), FolderIdentity(parent / "link"));
    EXPECT_NE(FolderIdentity(parent), FolderIdentity("/"));
}
