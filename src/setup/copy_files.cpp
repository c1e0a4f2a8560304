#include "setup/copy_files.h"

#include "platform/posix/folders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// Large enough to be fast, small enough to notice a cancel at once.
constexpr std::size_t blockSize = 1 << 20;

class Copier {
public:
    Copier(CopyPlan const& plan, Watcher const& shouldContinue)
        : m_shouldContinue(shouldContinue)
        , m_total(plan.bytes)
        , m_block(blockSize, '\0')
    {
    }

    Outcome<Ending> Copy(PlannedFile const& planned, fs::path const& to)
    {
        if (!m_shouldContinue({ m_done, m_total, planned.to }))
            return Ending::Cancelled;
        Descriptor const from(
            ::open(planned.from.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
        if (!from)
            return FileFailure(planned.from);
        Descriptor file(::open(
            to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, planned.isProgram ? 0755 : 0644));
        if (!file)
            return FileFailure(to);
        for (;;) {
            auto const size = ReadSome(from, m_block);
            if (size < 0)
                return FileFailure(planned.from);
            if (size == 0)
                break;
            if (!WriteAll(file, { m_block.data(), static_cast<std::size_t>(size) }))
                return FileFailure(to);
            m_done += static_cast<std::uint64_t>(size);
            if (!m_shouldContinue({ m_done, m_total, planned.to }))
                return Ending::Cancelled;
        }
        if (::fsync(file.Number()) != 0 || !file.Close())
            return FileFailure(to);
        return Ending::Complete;
    }

private:
    Watcher const& m_shouldContinue;
    std::uint64_t m_total, m_done = 0;
    std::string m_block;
};

} // namespace

Outcome<Ending> CopyFiles(CopyPlan const& plan, fs::path const& to, Watcher const& shouldContinue)
{
    for (auto const& folder : plan.folders)
        if (::mkdir((to / folder).c_str(), 0755) != 0)
            return FileFailure(to / folder);
    Copier copier(plan, shouldContinue);
    for (auto const& file : plan.files) {
        auto ending = copier.Copy(file, to / file.to);
        if (!ending || *ending == Ending::Cancelled)
            return ending;
    }
    for (auto const& folder : plan.folders)
        if (auto const flushed = FlushFolder(to / folder); !flushed)
            return flushed.failure();
    if (auto const flushed = FlushFolder(to); !flushed)
        return flushed.failure();
    return Ending::Complete;
}
