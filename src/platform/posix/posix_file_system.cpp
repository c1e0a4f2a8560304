#include "platform/posix/posix_file_system.h"

#include "platform/posix/descriptor.h"
#include "platform/posix/folders.h"
#include "platform/posix/path_rules.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

Failure NoSuchPlace(TextView path)
{
    return { Text(path), 0, u"there is no such place" };
}

class HostInputFile final : public InputFile {
public:
    HostInputFile(Descriptor file, TextView path)
        : m_file(std::move(file))
        , m_path(path)
    {
    }

    Outcome<std::size_t> Read(std::span<char> block) override
    {
        for (;;) {
            auto const size = ::read(m_file.Number(), block.data(), block.size());
            if (size >= 0)
                return static_cast<std::size_t>(size);
            if (errno != EINTR)
                return SystemFailure(m_path);
        }
    }

private:
    Descriptor m_file;
    Text m_path;
};

struct OpenFile {
    Descriptor file;
    std::uint64_t size; // bytes
};

/// True for the name of an entry of the current directory: taken exactly, it is its own place.
bool IsBareName(TextView path)
{
    return !path.empty() && path != u"." && path != u".."
        && path.find_first_of(TextView(u"\\/:\0", 4)) == TextView::npos;
}

/// Opens a regular file. It is looked at before: opening a pipe can wait for ever, and opening a
/// device can do what it is made for. Should one take the file's place in between, the opening
/// still doesn't wait.
Outcome<OpenFile> OpenRegular(TextView path, fs::path const& drive)
{
    std::string name = IsBareName(path) ? ToUtf8(path) : std::string();
    struct stat status { };
    if (name.empty() || ::stat(name.c_str(), &status) != 0) {
        auto const place = PlaceOf(path, drive);
        if (!place)
            return NoSuchPlace(path);
        name = place->string();
        if (::stat(name.c_str(), &status) != 0)
            return SystemFailure(path);
    }
    if (S_ISDIR(status.st_mode))
        return SystemFailure(path, EISDIR);
    if (!S_ISREG(status.st_mode))
        return Failure { Text(path), 0, u"it is no file" };
    Descriptor file(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file)
        return SystemFailure(path);
    return OpenFile { std::move(file), static_cast<std::uint64_t>(status.st_size) };
}

bool Matches(TextView name, TextView pattern)
{
    auto const star = pattern.find(u'*');
    if (star == TextView::npos)
        return name == pattern;
    auto const head = pattern.substr(0, star);
    if (!name.starts_with(head))
        return false;
    auto const rest = pattern.substr(star + 1);
    for (auto tail = name.substr(head.size());; tail.remove_prefix(1)) {
        if (Matches(tail, rest))
            return true;
        if (tail.empty())
            return false;
    }
}

/// True if neither the place nor a link on the way to it exists. A link that leads nowhere may be
/// the way to a stick that isn't plugged in.
bool IsAbsent(fs::path place)
{
    for (; !place.empty(); place = place.parent_path()) {
        struct stat status { };
        if (::lstat(place.c_str(), &status) == 0)
            return !S_ISLNK(status.st_mode) || ::stat(place.c_str(), &status) == 0;
        if (errno != ENOENT && errno != ENOTDIR)
            return false;
    }
    return true;
}

/// The place without links, "." and a separator at its end, so that places can be compared.
fs::path Plain(fs::path const& place)
{
    std::error_code error;
    fs::path plain = fs::weakly_canonical(fs::absolute(place, error), error);
    if (error)
        plain = place.lexically_normal();
    return plain.has_filename() ? plain : plain.parent_path();
}

} // namespace

PosixFileSystem::PosixFileSystem(Folders const& folders)
{
    static_cast<void>(
        MakeFolders(folders.drive)); // What can't be made fails, with its reason, when it is used.
    m_folders = { Plain(folders.application), Plain(folders.drive) };
    // Where a link stands for the drive, the folder behind it is the user's to guard.
    if (Descriptor const own(
            ::open(folders.drive.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        own)
        static_cast<void>(::fchmod(own.Number(), 0700));
    for (TextView const folder : { u"C:\\Temp", u"C:\\Program Files" })
        static_cast<void>(CreateFolder(folder));
}

Presence PosixFileSystem::LookFor(TextView path) const
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place)
        return Presence::Absent;
    struct stat status { };
    if (::stat(place->c_str(), &status) == 0)
        return S_ISREG(status.st_mode) ? Presence::There : Presence::Unknown;
    return IsAbsent(*place) ? Presence::Absent : Presence::Unknown;
}

bool PosixFileSystem::FolderExists(TextView path) const
{
    auto const place = PlaceOf(path, m_folders.drive);
    std::error_code error;
    return place && fs::is_directory(*place, error);
}

Outcome<std::uint64_t> PosixFileSystem::FileSize(TextView path) const
{
    auto const opened = OpenRegular(path, m_folders.drive);
    return opened ? Outcome<std::uint64_t>(opened->size) : opened.failure();
}

Outcome<std::unique_ptr<InputFile>> PosixFileSystem::Open(TextView path) const
{
    auto opened = OpenRegular(path, m_folders.drive);
    if (!opened)
        return opened.failure();
    return std::unique_ptr<InputFile>(
        std::make_unique<HostInputFile>(std::move(opened->file), path));
}

Outcome<std::string> PosixFileSystem::ReadAll(TextView path, std::uint64_t atMost) const
{
    auto opened = OpenRegular(path, m_folders.drive);
    if (!opened)
        return opened.failure();
    if (opened->size > atMost)
        return SystemFailure(path, EFBIG);
    HostInputFile file(std::move(opened->file), path);
    // One byte more than the file is said to have, so that its end is seen in the same pass.
    std::string bytes(static_cast<std::size_t>(opened->size) + 1, '\0');
    for (std::size_t filled = 0;;) {
        auto const size = file.Read({ bytes.data() + filled, bytes.size() - filled });
        if (!size)
            return size.failure();
        filled += *size;
        if (*size == 0) {
            bytes.resize(filled);
            return bytes;
        }
        if (filled > atMost)
            return SystemFailure(path, EFBIG);
        if (filled == bytes.size())
            bytes.resize(bytes.size() * 2);
    }
}

Outcome<Done> PosixFileSystem::Write(TextView path, std::string_view bytes)
{
    return Replace(path, bytes, Lasting::Yes);
}

Outcome<bool> PosixFileSystem::Create(TextView path, std::string_view bytes)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place || !place->has_filename())
        return NoSuchPlace(path);
    auto const folder = place->parent_path();
    return CreateFile(
        folder.empty() ? "." : folder.string(), place->filename().string(), bytes, path);
}

Outcome<Done> PosixFileSystem::WriteTemporary(TextView path, std::string_view bytes)
{
    return Replace(path, bytes, Lasting::No);
}

Outcome<Done> PosixFileSystem::Replace(TextView path, std::string_view bytes, Lasting lasting)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place || !place->has_filename())
        return NoSuchPlace(path);
    auto const folder = place->parent_path();
    return ReplaceFile(
        folder.empty() ? "." : folder.string(), place->filename().string(), bytes, path, lasting);
}

Outcome<Done> PosixFileSystem::SetAside(TextView path)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place || !place->has_filename())
        return NoSuchPlace(path);
    std::error_code ignored;
    fs::path aside;
    int number = 0;
    do
        aside = place->string() + ".old-" + std::to_string(++number);
    while (fs::exists(fs::symlink_status(aside, ignored)));
    if (::rename(place->c_str(), aside.c_str()) != 0)
        return SystemFailure(path);
    return Done {};
}

Outcome<Done> PosixFileSystem::CreateFolder(TextView path)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place)
        return NoSuchPlace(path);
    auto const parent = place->parent_path();
    if (*place == m_folders.drive) // If this fails, so does what follows, with the reason.
        static_cast<void>(MakeFolders(parent));
    return MakeFolder(place->string(), parent.empty() ? "." : parent.string(), path);
}

Outcome<Done> PosixFileSystem::Delete(TextView path)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place)
        return NoSuchPlace(path);
    if (::unlink(place->c_str()) != 0)
        return SystemFailure(path);
    return Done {};
}

std::vector<Text> PosixFileSystem::List(TextView pattern) const
{
    Text const lower = ToLowerLatin(pattern);
    std::vector<std::pair<Text, Text>> found; // each in lower case and as it stands
    std::error_code error;
    fs::directory_iterator entries(".", error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        Text name = FromUtf8(entries->path().filename().string());
        Text key = ToLowerLatin(name);
        std::error_code unknown;
        if (Matches(key, lower) && entries->is_regular_file(unknown))
            found.emplace_back(std::move(key), std::move(name));
    }
    std::sort(found.begin(), found.end());
    std::vector<Text> names;
    names.reserve(found.size());
    for (auto& [key, name] : found)
        names.push_back(std::move(name));
    return names;
}

Text PosixFileSystem::ApplicationFolder() const
{
    return PathOf(m_folders.application, m_folders.drive);
}

Text PosixFileSystem::TemporaryName()
{
    static constexpr char16_t digits[] = u"0123456789abcdef";
    std::random_device random;
    Text name;
    do {
        name = u"sf";
        for (int i = 0; i < 12; ++i)
            name += digits[random() % 16];
    } while (FileExists(TemporaryFolder() + u"\\" + name)
        || FileExists(TemporaryFolder() + u"\\" + name + u".htm"));
    return name;
}
