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

/// Without this, SQLite would read bytes that are cut off the last page as zeros, and ignore
/// surplus ones.
static bool IsOfSize(SqliteDatabase& database, StoreState const& state, std::size_t size)
{
    int page = 0;
    return database.Ask("pragma page_size", page) == SQLITE_OK
        && static_cast<std::size_t>(page) * static_cast<std::size_t>(state.pages) == size;
}

Outcome<std::vector<SettingsStore::Entry>> ReadStoreImage(std::string_view bytes)
{
    SqliteDatabase database;
    database.StartClock({}, std::chrono::seconds(20));
    StoreState state;
    std::vector<SettingsStore::Entry> entries;
    if (database.OpenImage(bytes) == SQLITE_OK && ReadState(database, state) == SQLITE_OK
        && CheckSchema(database, state) == SQLITE_OK && IsOfSize(database, state, bytes.size())
        && CheckWhole(database) == SQLITE_OK && ReadEntries(database, entries) == SQLITE_DONE)
        return entries;
    return Failure { {}, 0, u"it is damaged or not a settings file" };
}
