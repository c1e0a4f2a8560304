#include "kit/user_work.h"

#include "platform/host/descriptor.h"
#include "platform/host/sqlite_settings_store.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdlib.h>

namespace fs = std::filesystem;

static constexpr TextView headSection = u"backup", formatVersion = u"1";
// Of a section of the container: what it holds.
static constexpr char16_t settingsMark = u's', notesMark = u'n';

namespace {

/// A folder that goes with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        auto pattern = (fs::temp_directory_path() / "sparrowfield-XXXXXX").string();
        if (::mkdtemp(pattern.data()))
            m_path = pattern;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        if (!m_path.empty())
            fs::remove_all(m_path, ignored);
    }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;
    fs::path const& Path() const { return m_path; }

private:
    fs::path m_path;
};

/// FNV-1a with 64 bits, over every text with its length: enough to notice what wear and cut copies
/// do to a file.
class Digest {
public:
    void Add(TextView text)
    {
        for (std::size_t size = text.size(), i = 0; i < 8; ++i, size >>= 8)
            Add(static_cast<unsigned char>(size));
        for (char16_t const character : text) {
            Add(static_cast<unsigned char>(character >> 8));
            Add(static_cast<unsigned char>(character));
        }
    }
    Text Hexadecimal() const
    {
        Text text;
        for (int shift = 60; shift >= 0; shift -= 4)
            text += u"0123456789abcdef"[(m_value >> shift) & 15];
        return text;
    }

private:
    void Add(unsigned char byte) { m_value = (m_value ^ byte) * 0x100000001B3; }
    std::uint64_t m_value = 0xCBF29CE484222325;
};

Text FromRawBytes(std::string const& bytes)
{
    Text text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
        [](char byte) { return static_cast<unsigned char>(byte); });
    return text;
}

std::optional<std::string> ToRawBytes(Text const& text)
{
    std::string bytes;
    for (char16_t const character : text) {
        if (character > 0xFF)
            return std::nullopt;
        bytes += static_cast<char>(character);
    }
    return bytes;
}

Text DigestOf(std::vector<SettingsStore::Entry> const& entries)
{
    Digest digest;
    for (auto const& entry : entries)
        for (TextView const text :
            { TextView(entry.section), TextView(entry.key), TextView(entry.value) })
            digest.Add(text);
    return digest.Hexadecimal();
}

/// One that stays in its folder, and is no hidden file.
bool IsNoteName(std::string const& name)
{
    return !name.empty() && name.size() <= 255 && name[0] != '.'
        && std::none_of(name.begin(), name.end(),
            [](char c) { return c == '/' || c == '\\' || (c >= 0 && c < ' '); });
}

Failure Refuse(fs::path const& file, char16_t const* reason)
{
    return { FromUtf8(file.string()), 0, reason };
}

Outcome<std::string> ReadFile(fs::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    if (!stream || !(bytes << stream.rdbuf()) || stream.bad()) {
        if (stream && fs::is_regular_file(file) && fs::file_size(file) == 0)
            return std::string();
        return SystemFailure(FromUtf8(file.string()));
    }
    return bytes.str();
}

/// The entries of the container, in their order.
std::vector<SettingsStore::Entry> Packed(UserWork const& work)
{
    std::vector<SettingsStore::Entry> packed;
    for (auto const& [name, bytes] : work.notes)
        packed.push_back({ Text(1, notesMark), FromRawBytes(name), FromRawBytes(bytes) });
    for (auto const& entry : work.entries)
        packed.push_back({ settingsMark + entry.section, entry.key, entry.value });
    return packed;
}

Outcome<UserWork> Unpacked(std::vector<SettingsStore::Entry> const& packed, fs::path const& file)
{
    UserWork work;
    for (auto const& entry : packed) {
        if (entry.section.starts_with(settingsMark)) {
            work.entries.push_back({ entry.section.substr(1), entry.key, entry.value });
            continue;
        }
        auto const name = ToRawBytes(entry.key);
        auto const bytes = ToRawBytes(entry.value);
        if (entry.section != Text(1, notesMark) || !name || !bytes || !IsNoteName(*name))
            return Refuse(file,
                u"it has a note whose name could lead out of the folder of notes, or something "
                u"unknown");
        work.notes.emplace(*name, *bytes);
    }
    return work;
}

bool IsWork(SettingsStore::Entry const& entry)
{
    return Contains(entry.section, u':') && entry.key != u"currentindex";
}

/// How a message names an answer.
std::string NameOf(SettingsStore::Entry const& entry)
{
    return "the answer " + ToUtf8(entry.section) + ", " + ToUtf8(entry.key);
}

} // namespace

fs::path NotesFolder(fs::path const& userFolder)
{
    return userFolder / "drive_c" / "Program Files" / "Sparrowfield Interactive Software" / "notes";
}

Outcome<UserWork> LoadUserWork(fs::path const& userFolder)
{
    UserWork work;
    if (fs::exists(userFolder / "settings.db")) {
        SqliteSettingsStore const store(userFolder / "settings.db");
        auto entries = store.All();
        if (!entries)
            return entries.failure();
        work.entries = std::move(*entries);
    }
    std::error_code missing;
    for (auto const& file : fs::directory_iterator(NotesFolder(userFolder), missing)) {
        auto const name = file.path().filename().string();
        if (!file.is_regular_file() || !IsNoteName(name))
            continue;
        auto bytes = ReadFile(file.path());
        if (!bytes)
            return bytes.failure();
        work.notes.emplace(name, std::move(*bytes));
    }
    return work;
}

Outcome<Done> WriteBackup(UserWork const& work, fs::path const& file)
{
    TemporaryFolder const folder;
    if (folder.Path().empty())
        return SystemFailure(u"the temporary folder");
    auto packed = Packed(work);
    auto const digest = DigestOf(packed);
    packed.push_back({ Text(headSection), u"version", Text(formatVersion) });
    packed.push_back({ Text(headSection), u"digest", digest });
    {
        SqliteSettingsStore store(folder.Path() / "backup.db");
        if (auto const written = store.WriteAll(packed, SettingsStore::Existing::Goes); !written)
            return written.failure();
    }
    auto const bytes = ReadFile(folder.Path() / "backup.db");
    if (!bytes)
        return bytes.failure();
    auto const whole = fs::absolute(file);
    return ReplaceFile(
        whole.parent_path().string(), whole.filename().string(), *bytes, FromUtf8(file.string()));
}

/// False for a database that is shorter or longer than its head says (docs of the SQLite file format: the size of a page at byte 16,
/// the number of pages at byte 28, both big-endian): what lies in its last page may be read without what is cut off.
static bool IsOfItsSize(std::string const& bytes)
{
    auto const at = [&](std::size_t place) { return static_cast<std::size_t>(static_cast<unsigned char>(bytes[place])); };
    if (bytes.size() < 100)
        return false;
    auto const page = at(16) << 8 | at(17);
    auto const count = at(28) << 24 | at(29) << 16 | at(30) << 8 | at(31);
    return bytes.size() == (page == 1 ? 65536 : page) * count;
}

Outcome<UserWork> ReadBackup(fs::path const& file)
{
    auto const bytes = ReadFile(file);
    if (!bytes)
        return bytes.failure();
    TemporaryFolder const folder;
    if (folder.Path().empty())
        return SystemFailure(u"the temporary folder");
    // A copy is opened: the store would set a damaged file aside.
    auto const copy = folder.Path() / "backup.db";
    std::ofstream(copy, std::ios::binary) << *bytes;
    SqliteSettingsStore const store(copy);
    auto all = !IsOfItsSize(*bytes) ? Outcome<std::vector<SettingsStore::Entry>>(Refuse(file, u""))
                              : store.All();
    if (!all)
        return Refuse(file, u"it is no backup, or damaged");
    Text version, digest;
    std::erase_if(*all, [&](SettingsStore::Entry const& entry) {
        if (entry.section != headSection)
            return false;
        (entry.key == u"version" ? version : digest) = entry.value;
        return true;
    });
    if (version.empty())
        return Refuse(file, u"it is no backup");
    if (version != formatVersion)
        return Refuse(file, u"it was made by a newer version of this program");
    if (digest != DigestOf(*all))
        return Refuse(file, u"it is damaged");
    return Unpacked(*all, file);
}

RestorePlan PlanRestore(UserWork const& present, UserWork const& backup, bool replaces)
{
    RestorePlan plan;
    std::map<std::pair<TextView, TextView>, TextView> there;
    for (auto const& entry : present.entries)
        there[{ entry.section, entry.key }] = entry.value;
    for (auto const& entry : backup.entries) {
        auto const found = there.find({ entry.section, entry.key });
        bool const isThere = found != there.end() && !found->second.empty();
        bool const isSame = found != there.end() && found->second == entry.value;
        if (!isSame && isThere && IsWork(entry))
            plan.differing.push_back(NameOf(entry));
        if (!isSame && (replaces || !isThere))
            plan.entries.push_back(entry);
        plan.same += isSame && IsWork(entry);
    }
    for (auto const& [name, bytes] : backup.notes) {
        auto const found = present.notes.find(name);
        bool const isThere = found != present.notes.end() && !found->second.empty();
        bool const isSame = found != present.notes.end() && found->second == bytes;
        if (!isSame && isThere)
            plan.differing.push_back("the note " + name);
        if (!isSame && (replaces || !isThere))
            plan.notes.emplace(name, bytes);
        plan.same += isSame;
    }
    return plan;
}

/// The folders down to one, private to their owner.
static Outcome<Done> MakeFolders(fs::path const& from, fs::path const& to)
{
    std::error_code error;
    fs::create_directories(from, error);
    fs::path made = from;
    for (auto const& name : to.lexically_relative(from)) {
        auto const parent = made;
        made /= name;
        if (auto const done = MakeFolder(made.string(), parent.string(), FromUtf8(made.string()));
            !done)
            return done.failure();
    }
    return Done {};
}

Outcome<Done> Restore(RestorePlan const& plan, fs::path const& userFolder, bool replaces)
{
    auto const notes = NotesFolder(userFolder);
    if (auto const made = MakeFolders(userFolder, notes); !made)
        return made.failure();
    for (auto const& [name, bytes] : plan.notes)
        if (auto const written
            = ReplaceFile(notes.string(), name, bytes, FromUtf8((notes / name).string()));
            !written)
            return written.failure();
    SqliteSettingsStore store(userFolder / "settings.db");
    return store.WriteAll(
        plan.entries, replaces ? SettingsStore::Existing::Goes : SettingsStore::Existing::Stays);
}
