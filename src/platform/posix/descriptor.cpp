#include "platform/posix/descriptor.h"

#include <cerrno>
#include <cstring>
#include <sys/file.h>
#include <unistd.h>

bool Descriptor::Close()
{
    return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0;
}

static TextView Reason(int number)
{
    switch (number) {
    case ENOENT:
    case ENOTDIR:
        return u"the file doesn't exist";
    case ENOMEM:
    case EFBIG:
        return u"it is too large";
    case EISDIR:
        return u"it is a folder";
    case EACCES:
    case EPERM:
        return u"permission denied";
    case ENOSPC:
    case EDQUOT:
        return u"the disk is full";
    case EROFS:
        return u"the disk is read-only";
    case ENAMETOOLONG:
        return u"its name is too long";
    case ENOTEMPTY:
    case EEXIST:
        return u"it already exists";
    default:
        return {};
    }
}

Failure SystemFailure(TextView path, int number)
{
    auto const reason = Reason(number);
    return { Text(path), 0, reason.empty() ? FromUtf8(std::strerror(number)) : Text(reason) };
}

Failure SystemFailure(TextView path)
{
    return SystemFailure(path, errno);
}

Failure FileFailure(std::filesystem::path const& file)
{
    return SystemFailure(FromUtf8(file.string()));
}

Failure FileFailure(std::filesystem::path const& file, int number)
{
    return SystemFailure(FromUtf8(file.string()), number);
}

Failure FileFailure(std::filesystem::path const& file, TextView reason)
{
    return { FromUtf8(file.string()), 0, Text(reason) };
}

bool LockFile(Descriptor const& file, std::chrono::steady_clock::time_point deadline)
{
    while (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR)
            || std::chrono::steady_clock::now() >= deadline)
            return false;
        ::usleep(10'000); // microseconds
    }
    return true;
}

std::ptrdiff_t ReadSome(Descriptor const& file, std::span<char> block)
{
    for (;;)
        if (auto const size = ::read(file.Number(), block.data(), block.size());
            size >= 0 || errno != EINTR)
            return size;
}

bool WriteAll(Descriptor const& file, std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const written = ::write(file.Number(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}
