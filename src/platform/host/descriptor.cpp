#include "platform/host/descriptor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
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
    case EISDIR:
        return u"a folder stands in its place";
    case EACCES:
    case EPERM:
        return u"the permission for it is missing";
    case ENOSPC:
    case EDQUOT:
        return u"the disk is full";
    case EROFS:
        return u"the disk can't be written to";
    case ENAMETOOLONG:
        return u"its name is too long";
    case ENOTEMPTY:
    case EEXIST:
        return u"something stands in its place";
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

static bool WriteWhole(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(file) == 0;
}

static bool Rename(std::string const& from, std::string const& folder, std::string const& name)
{
    if (std::rename(from.c_str(), (folder + "/" + name).c_str()) != 0)
        return false;
    Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return directory && ::fsync(directory.Number()) == 0;
}

Outcome<Done> ReplaceFile(std::string const& folder, std::string const& name, std::string_view bytes, TextView path)
{
    std::string fresh = folder + "/.new-XXXXXX"; // mkostemp makes it readable by its owner alone.
    Descriptor file(::mkostemp(fresh.data(), O_CLOEXEC));
    if (!file)
        return SystemFailure(path);
    if (WriteWhole(file.Number(), bytes) && file.Close() && Rename(fresh, folder, name))
        return Done {};
    auto const failure = SystemFailure(path);
    ::unlink(fresh.c_str());
    return failure;
}
