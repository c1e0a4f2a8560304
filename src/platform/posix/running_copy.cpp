// How two starts meet. The running copy listens at a socket in a folder that only the user can
// enter. A start
//
//   1. locks the folder, so that starts look one after another,
//   2. connects and waits for a byte; if that comes, the start is over,
//   3. else puts a socket of its own in the place of the one that lies there, and listens,
//   4. unlocks the folder.
//
// The byte is sent from the event loop: a copy that hangs or is stopped sends none and is replaced,
// as is the socket that a crash left behind. Both sides ask the system whose process is at the
// other end and count only the user's own.

#include "platform/posix/running_copy.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

static constexpr char answer = '!';

static bool IsPrivate(struct stat const& its)
{
    return its.st_uid == ::geteuid() && (its.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

/// The folder, made if it is missing; nothing if it isn't the user's alone.
static Descriptor OpenPrivate(fs::path const& folder)
{
    ::mkdir(folder.c_str(), S_IRWXU);
    Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat its = {};
    return opened && ::fstat(opened.Number(), &its) == 0 && IsPrivate(its) ? std::move(opened)
                                                                           : Descriptor();
}

/// False if the path is too long for an address.
static bool MakeAddress(fs::path const& place, sockaddr_un& address)
{
    auto const& path = place.native();
    address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    return true;
}

static Descriptor MakeSocket()
{
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

/// Whether the process at the other end runs as the same user.
static bool IsPeerOurs(Descriptor const& socket)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket.Number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0
        && peer.uid == ::geteuid();
}

/// Asks the copy that listens there to come up; true if it answers in time.
static bool Raise(fs::path const& place, Clock::time_point end)
{
    struct stat its = {};
    sockaddr_un address;
    bool const isOurs
        = ::lstat(place.c_str(), &its) == 0 && S_ISSOCK(its.st_mode) && its.st_uid == ::geteuid();
    if (!isOurs || !MakeAddress(place, address))
        return false;
    auto const socket = MakeSocket();
    if (::connect(socket.Number(), reinterpret_cast<sockaddr const*>(&address), sizeof address) != 0
        || !IsPeerOurs(socket))
        return false;
    auto const left
        = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    pollfd waiting { socket.Number(), POLLIN, 0 };
    char byte = 0;
    return ::poll(&waiting, 1, std::max(static_cast<int>(left), 0)) == 1
        && ::read(socket.Number(), &byte, 1) == 1 && byte == answer;
}

static std::pair<std::uint64_t, std::uint64_t> IdentityOf(fs::path const& path)
{
    struct stat its = {};
    if (::lstat(path.c_str(), &its) != 0)
        return {};
    return { its.st_dev, its.st_ino };
}

RunningCopy::RunningCopy(
    fs::path folder, std::string const& name, std::chrono::milliseconds patience)
    : m_folder(std::move(folder))
    , m_place(m_folder / name)
{
    auto const end = Clock::now() + patience;
    auto const locked = OpenPrivate(m_folder);
    if (!locked || !LockFile(locked, end))
        return;
    m_raisedAnother = Raise(m_place, end);
    if (!m_raisedAnother)
        Listen();
}

void RunningCopy::Listen()
{
    constexpr int queue = 16;
    sockaddr_un address;
    if (!MakeAddress(m_place, address))
        return;
    ::unlink(m_place.c_str());
    auto socket = MakeSocket();
    if (::bind(socket.Number(), reinterpret_cast<sockaddr const*>(&address), sizeof address) != 0)
        return;
    m_identity = IdentityOf(m_place);
    if (::listen(socket.Number(), queue) == 0)
        m_socket = std::move(socket);
}

bool RunningCopy::Answer()
{
    Descriptor const caller(
        ::accept4(m_socket.Number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    // One that has given up waiting runs by itself, and sending fails.
    return caller && IsPeerOurs(caller) && ::send(caller.Number(), &answer, 1, MSG_NOSIGNAL) == 1;
}

void RunningCopy::Close()
{
    if (!m_socket)
        return;
    // A start that got no answer may have put its own socket there. While one is looking, nothing
    // is removed.
    auto const locked = OpenPrivate(m_folder);
    if (locked && LockFile(locked, Clock::now()) && IdentityOf(m_place) == m_identity)
        ::unlink(m_place.c_str());
    m_socket.Close();
}

fs::path RunningCopiesFolder(fs::path const& userDataFolder)
{
    char const* const runtime = std::getenv("XDG_RUNTIME_DIR");
    struct stat its = {};
    bool const isUsable = runtime && *runtime == '/' && ::stat(runtime, &its) == 0
        && S_ISDIR(its.st_mode) && IsPrivate(its);
    return isUsable ? fs::path(runtime) / "sparrowfield" : userDataFolder / "running";
}

std::string FolderIdentity(fs::path const& folder)
{
    struct stat its = {};
    if (::stat(folder.c_str(), &its) != 0)
        return {};
    return std::to_string(its.st_dev) + ':' + std::to_string(its.st_ino);
}
