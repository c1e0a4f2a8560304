// Any file as a backup: refused with a reason, or work whose notes stay in their folder. And any
// work: it returns from its backup exactly, and a backup that was changed or cut anywhere is
// refused or still gives the same work. No file takes long.

#include "base/code_page.h"
#include "check.h"
#include "platform/posix/backup_file.h"
#include "support/test_folder.h"

#include <ctime>

static bool IsSame(UserWork const& left, UserWork const& right)
{
    auto const fields = [](SettingsStore::Entry const& entry) {
        return std::tie(entry.section, entry.key, entry.value);
    };
    return left.notes == right.notes
        && std::equal(left.entries.begin(), left.entries.end(), right.entries.begin(),
            right.entries.end(),
            [&](auto const& a, auto const& b) { return fields(a) == fields(b); });
}

/// Lines of three fields, section, key and value, or of two, name and bytes of a note.
static UserWork WorkOf(std::string_view bytes)
{
    UserWork work;
    std::map<std::pair<Text, Text>, Text> entries;
    auto const text = FromCodePage(bytes);
    for (auto const& line : Split(text, u'\n')) {
        auto const fields = Split(line, u'|');
        if (fields.size() == 3)
            entries[{ Text(fields[0]), Text(fields[1]) }] = fields[2];
        else if (fields.size() == 2 && IsNoteName(ToUtf8(fields[0])))
            work.notes[ToUtf8(fields[0])] = ToUtf8(fields[1]);
    }
    for (auto const& [key, value] : entries)
        work.entries.push_back({ key.first, key.second, value });
    return work;
}

static void CheckAny(std::filesystem::path const& file)
{
    auto const start = std::clock();
    auto const work = ReadBackup(file);
    CHECK(std::clock() - start < 60 * CLOCKS_PER_SEC);
    CHECK(work || !work.failure().reason.empty());
    for (auto const& [name, bytes] : work ? work->notes : decltype(work->notes) {})
        CHECK(IsNoteName(name));
}

/// The first byte says what the rest is, a file or work. Of work, the next three bytes say which
/// byte of its backup changes, to what, or that it is cut off there.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    static TestFolder const folder;
    auto const file = folder.Path() / "a.backup";
    if (size < 4)
        return 0;
    std::string_view const rest(reinterpret_cast<char const*>(data) + 4, size - 4);
    if (data[0] % 2 == 0) {
        folder.Write("a.backup", std::string(rest));
        CheckAny(file);
        return 0;
    }
    auto const work = WorkOf(rest);
    CHECK(WriteBackup(work, file));
    auto const back = ReadBackup(file);
    CHECK(back && IsSame(*back, work));

    auto bytes = folder.Read("a.backup");
    auto const at = (static_cast<std::size_t>(data[1]) << 8 | data[2]) % bytes.size();
    if (data[3] == 0)
        bytes.resize(at);
    else
        bytes[at] = static_cast<char>(bytes[at] ^ data[3]);
    folder.Write("a.backup", bytes);
    CheckAny(file);
    auto const changed = ReadBackup(file);
    CHECK(!changed || IsSame(*changed, work));
    return 0;
}
