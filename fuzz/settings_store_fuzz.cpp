// Any bytes as the file of the settings store: it works with them, or sets them aside as they are,
// says so, and works with a new file. What is reported as written is there for the next copy of the
// program, and nothing that could be read before is gone. None of it takes long, whatever views,
// triggers or trees the file brings along.

#include "check.h"
#include "platform/posix/sqlite_settings_store.h"
#include "support/test_folder.h"

#include <ctime>

namespace fs = std::filesystem;

static constexpr TextView section = u"a-1.dat:1", key = u"Page1", value = u"kept";

static std::vector<Text> ValuesOf(std::vector<SettingsStore::Entry> const& all)
{
    std::vector<Text> values;
    for (auto const& entry : all)
        if (entry.section != section || entry.key != key)
            values.push_back(entry.section + u'|' + entry.key + u'|' + entry.value);
    return values;
}

static std::vector<fs::path> FilesAside(fs::path const& folder)
{
    std::vector<fs::path> found;
    for (auto const& entry : fs::directory_iterator(folder))
        if (entry.path().filename().string().find(".damaged-") != std::string::npos)
            found.push_back(entry.path().filename());
    return found;
}

/// The head of the file says how it is written, which changes as soon as it is opened.
static std::string BehindHead(std::string const& bytes)
{
    return bytes.size() < 100 ? bytes : bytes.substr(100);
}

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    auto const start = std::clock();
    TestFolder const folder;
    std::string const bytes(reinterpret_cast<char const*>(data), size);
    folder.Write("settings.db", bytes);
    auto const file = folder.Path() / "settings.db";
    std::vector<Text> before;
    {
        SqliteSettingsStore store(file, std::chrono::milliseconds(50));
        bool isSetAside = store.OpeningReport().has_value();
        CHECK(FilesAside(folder.Path()).size() == (isSetAside ? 1u : 0u));
        if (auto const all = store.All())
            before = ValuesOf(*all);
        isSetAside |= store.TakeReport().has_value();
        auto const written = store.Write(section, key, value);
        CHECK(written || !written.failure().reason.empty());
        // Damage that only the write has met: the store is a new one.
        if (store.TakeReport()) {
            before.clear();
            isSetAside = true;
        }
        auto const aside = FilesAside(folder.Path());
        CHECK(aside.size() == (isSetAside ? 1u : 0u));
        CHECK(aside.empty() || BehindHead(folder.Read(aside[0])) == BehindHead(bytes));
        if (!written)
            return 0;
    }
    SqliteSettingsStore next(file, std::chrono::milliseconds(50));
    auto const read = next.Read(section, key);
    CHECK(read && *read && **read == value);
    auto const all = next.All();
    CHECK(all && ValuesOf(*all) == before);
    CHECK(next.DeleteSection(section, SettingsStore::NoBackup));
    auto const gone = next.Read(section, key);
    CHECK(gone && !*gone);
    CHECK(std::clock() - start < 20 * CLOCKS_PER_SEC);
    return 0;
}
