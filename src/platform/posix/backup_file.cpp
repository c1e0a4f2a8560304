#include "platform/posix/backup_file.h"

#include "platform/posix/sqlite_image.h"
#include "platform/posix/whole_file.h"

#include <algorithm>
#include <set>

namespace fs = std::filesystem;

static constexpr TextView headSection = u"backup", formatVersion = u"1";
// The first character of a section of the container: what it holds.
static constexpr char16_t settingsMark = u's', notesMark = u'n';

static constexpr TextView deletionBeginning = u"before-delete-", deletionEnding = u".backup";

static Text NameOfDeletion(std::int64_t number)
{
    return Text(deletionBeginning) + FromNumber(number) + Text(deletionEnding);
}

namespace {

/// FNV-1a with 64 bits, over every text with its length: enough to notice decay and incomplete
/// copies.
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

/// The entries of the container, in the order of the digest.
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
            return FileFailure(
                file, u"it contains a note with a name that isn't allowed, or something unknown");
        work.notes.emplace(*name, *bytes);
    }
    return work;
}

} // namespace

bool IsNoteName(std::string const& name)
{
    return !name.empty() && name.size() <= 255 && name[0] != '.'
        && std::none_of(name.begin(), name.end(),
            [](char c) { return c == '/' || c == '\\' || (c >= 0 && c < ' '); });
}

Outcome<Done> WriteBackup(UserWork const& work, fs::path const& file)
{
    auto packed = Packed(work);
    auto const digest = DigestOf(packed);
    packed.push_back({ Text(headSection), u"version", Text(formatVersion) });
    packed.push_back({ Text(headSection), u"digest", digest });
    auto const bytes = WriteStoreImage(packed);
    if (!bytes)
        return FileFailure(file, bytes.failure().reason);
    return ReplaceFile(file, *bytes);
}

Outcome<UserWork> ReadBackup(fs::path const& file)
{
    auto const bytes = ReadWholeFile(file);
    if (!bytes)
        return bytes.failure();
    auto all = ReadStoreImage(*bytes);
    if (!all)
        return FileFailure(file, u"it is not a backup, or it is damaged");
    Text version, digest;
    std::erase_if(*all, [&](SettingsStore::Entry const& entry) {
        if (entry.section != headSection)
            return false;
        (entry.key == u"version" ? version : digest) = entry.value;
        return true;
    });
    if (version.empty())
        return FileFailure(file, u"it is not a backup");
    if (version != formatVersion)
        return FileFailure(file, u"it was made by a newer version of this program");
    if (digest != DigestOf(*all))
        return FileFailure(file, u"it is damaged");
    return Unpacked(*all, file);
}

/// The numbers of the backups before deletions in the folder, in ascending order.
static std::set<std::int64_t> NumbersOfDeletions(fs::path const& folder)
{
    std::set<std::int64_t> numbers;
    std::error_code ignored;
    for (auto const& file : fs::directory_iterator(folder, ignored)) {
        auto const name = FromUtf8(file.path().filename().string());
        auto const end = name.rfind(deletionEnding);
        if (!name.starts_with(deletionBeginning) || end == Text::npos
            || end + deletionEnding.size() != name.size())
            continue;
        auto const number = ToInteger(
            TextView(name).substr(deletionBeginning.size(), end - deletionBeginning.size()));
        if (number && name == NameOfDeletion(*number))
            numbers.insert(*number);
    }
    return numbers;
}

Outcome<Done> WriteBackupBeforeDelete(UserWork const& work, fs::path const& folder)
{
    constexpr std::size_t kept = 10;
    auto numbers = NumbersOfDeletions(folder);
    auto const next = numbers.empty() ? 1 : *numbers.rbegin() + 1;
    if (auto written = WriteBackup(work, folder / ToUtf8(NameOfDeletion(next))); !written)
        return written;
    numbers.insert(next);
    std::error_code ignored;
    for (; numbers.size() > kept; numbers.erase(numbers.begin()))
        fs::remove(folder / ToUtf8(NameOfDeletion(*numbers.begin())), ignored);
    return Done {};
}
