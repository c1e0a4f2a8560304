#include "platform/posix/sqlite_image.h"

#include "platform/posix/sqlite_schema.h"

Outcome<std::string> WriteStoreImage(std::vector<SettingsStore::Entry> const& entries)
{
    SqliteDatabase database;
    int code = database.OpenInMemory();
    if (code == SQLITE_OK && (code = MakeStore(database)) == SQLITE_OK)
        code = SQLITE_DONE;
    for (auto each = entries.begin(); code == SQLITE_DONE && each != entries.end(); ++each)
        code = WriteEntry(database, *each);
    auto bytes = code == SQLITE_DONE ? database.Image() : std::string();
    return bytes.empty() ? Outcome<std::string>(Failure { {}, 0, u"there isn't enough memory" })
                         : std::move(bytes);
}

/// Bytes cut off the last page would be read as zeros, and surplus ones ignored.
static int CheckSize(SqliteDatabase& database, StoreState const& state, std::size_t size)
{
    int page = 0;
    int const code = database.Ask("pragma page_size", page);
    auto const expected = static_cast<std::size_t>(page) * static_cast<std::size_t>(state.pages);
    return code == SQLITE_OK && size != expected ? SQLITE_CORRUPT : code;
}

Outcome<std::vector<SettingsStore::Entry>> ReadStoreImage(std::string_view bytes)
{
    SqliteDatabase database;
    database.StartClock({}, std::chrono::seconds(20));
    StoreState state;
    std::vector<SettingsStore::Entry> entries;
    int code = database.OpenImage(bytes);
    if (code == SQLITE_OK)
        code = ReadState(database, state);
    if (code == SQLITE_OK)
        code = CheckSchema(database, state);
    if (code == SQLITE_OK)
        code = CheckSize(database, state, bytes.size());
    if (code == SQLITE_OK)
        code = CheckWhole(database);
    if (code == SQLITE_OK)
        code = ReadEntries(database, entries);
    if (code != SQLITE_DONE)
        return Failure { {}, 0, u"it is damaged or not a settings file" };
    return entries;
}
