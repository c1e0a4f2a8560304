#include "platform/posix/posix_file_system.h"

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

Failure InvalidPath(TextView path)
{
    return { Text(path), 0, u"it is not a valid path" };
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
        auto const size = ReadSome(m_file, block);
        return size < 0 ? Outcome<std::size_t>(SystemFailure(m_path))
                        : static_cast<std::size_t>(size);
    }

private:
    Descriptor m_file;
    Text m_path;
};

/// True for the name of an entry of the current directory: taken exactly, it is its own place.
bool IsBareName(TextView path)
{
    return !path.empty() && path != u"." && path != u".."
        && path.find_first_of(TextView(u"\\/:\0", 4)) == TextView::npos;
}

/// Opens a file by its path. Most are named exactly, and then the drive and other spellings of
/// their names needn't be looked at.
Outcome<RegularFile> OpenByPath(TextView path, fs::path const& drive)
{
    if (IsBareName(path))
        if (auto opened = OpenRegularFile(ToUtf8(path), path))
            return opened;
    auto const place = PlaceOf(path, drive);
    return place ? OpenRegularFile(*place, path) : InvalidPath(path);
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
    // What can't be made fails, with its reason, when it is used.
    static_cast<void>(MakeFolders(folders.drive));
    m_folders = { Plain(folders.application), Plain(folders.drive) };
    // If the drive is a link, the rights of the folder that it leads to are the user's decision.
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
    auto const opened = OpenByPath(path, m_folders.drive);
    return opened ? Outcome<std::uint64_t>(opened->size) : opened.failure();
}

Outcome<std::unique_ptr<InputFile>> PosixFileSystem::Open(TextView path) const
{
    auto opened = OpenByPath(path, m_folders.drive);
    if (!opened)
        return opened.failure();
    return std::unique_ptr<InputFile>(
        std::make_unique<HostInputFile>(std::move(opened->descriptor), path));
}

Outcome<std::string> PosixFileSystem::ReadAll(TextView path, std::uint64_t atMost) const
{
    auto const opened = OpenByPath(path, m_folders.drive);
    return opened ? ReadWholeFile(*opened, path, atMost) : opened.failure();
}

Outcome<Done> PosixFileSystem::Write(TextView path, std::string_view bytes)
{
    return Replace(path, bytes, Lasting::Yes);
}

Outcome<bool> PosixFileSystem::Create(TextView path, std::string_view bytes)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place || !place->has_filename())
        return InvalidPath(path);
    return CreateFile(*place, bytes, path);
}

Outcome<Done> PosixFileSystem::WriteTemporary(TextView path, std::string_view bytes)
{
    return Replace(path, bytes, Lasting::No);
}

Outcome<Done> PosixFileSystem::Replace(TextView path, std::string_view bytes, Lasting lasting)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place || !place->has_filename())
        return InvalidPath(path);
    return ReplaceFile(*place, bytes, path, lasting);
}

Outcome<Done> PosixFileSystem::SetAside(TextView path)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place || !place->has_filename())
        return InvalidPath(path);
    auto const aside = FirstFreeName(place->string() + ".old-");
    if (::rename(place->c_str(), aside.c_str()) != 0)
        return SystemFailure(path);
    return Done {};
}

Outcome<Done> PosixFileSystem::CreateFolder(TextView path)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place)
        return InvalidPath(path);
    if (*place == m_folders.drive) // If this fails, so does what follows, with the reason.
        static_cast<void>(MakeFolders(place->parent_path()));
    return MakeFolder(*place, path);
}

Outcome<Done> PosixFileSystem::Delete(TextView path)
{
    auto const place = PlaceOf(path, m_folders.drive);
    if (!place)
        return InvalidPath(path);
    if (::unlink(place->c_str()) != 0)
        return SystemFailure(path);
    return Done {};
}

std::vector<Text> PosixFileSystem::List(TextView pattern) const
{
    auto const separator = pattern.rfind(u'\\');
    bool const isBare = separator == TextView::npos;
    auto const folder
        = isBare ? fs::path(".") : PlaceOf(pattern.substr(0, separator), m_folders.drive);
    if (!folder)
        return {};
    Text const lower = ToLowerLatin(isBare ? pattern : pattern.substr(separator + 1));
    std::vector<std::pair<Text, Text>> found; // each in lower case and as it stands
    std::error_code error;
    fs::directory_iterator entries(*folder, error);
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
