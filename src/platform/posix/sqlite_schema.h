#pragma once
// What makes a SQLite database a settings store (docs/formats/settings.md): its mark, its table,
// and the statements on that. Codes are SQLite's; for a database that isn't a store, SQLITE_NOTADB.

#include "platform/posix/sqlite_database.h"
#include "platform/settings_store.h"

/// What a database is, seen at one moment.
struct StoreState {
    int id = 0; ///< of the application that made it
    int tables = 0;
    int pages = 0;

    /// A database without tables that has pages may have lost them by damage: it isn't empty.
    bool IsEmpty() const { return tables == 0 && pages == 0; }
    /// True if it is a store of a newer version of this program.
    bool IsNewer() const;
};

int ReadState(SqliteDatabase& database, StoreState& state);

/// Makes sure that the database has our mark and our table as we make it, and nothing that could
/// compute, forbid or change something.
int CheckSchema(SqliteDatabase& database, StoreState const& state);

/// Looks through the whole file; SQLITE_CORRUPT if it is damaged.
int CheckWhole(SqliteDatabase& database);

/// Makes the table in an empty database and marks it as ours.
int MakeStore(SqliteDatabase& database);

/// True for a file that, by its beginning, isn't a store. It is read without a lock; with a journal
/// beside it, the answer means nothing.
bool BeginsAsForeign(SqliteDatabase& database);

/// Writes an entry; one that has a value which isn't empty is left alone if `Stays` is asked for.
int WriteEntry(SqliteDatabase& database, SettingsStore::Entry const& entry,
    SettingsStore::Existing existing = SettingsStore::Existing::Goes);

/// All entries, ordered by section, then key.
int ReadEntries(SqliteDatabase& database, std::vector<SettingsStore::Entry>& entries);
