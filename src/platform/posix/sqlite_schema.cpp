#include "platform/posix/sqlite_schema.h"

/// "SPF1", in the head of the file.
static constexpr int applicationId = 0x53504631;

/// The definition of our table, as SQLite keeps it in the schema after "CREATE TABLE ".
static std::string const tableDefinition
    = "settings (section blob not null, key blob not null, value blob not null, primary key "
      "(section, key)) without rowid";

/// How many objects in the schema aren't ours: all but the table, and SQLite's own statistics and
/// indexes.
static std::string const countForeignObjects
    = "select count(*) from sqlite_master where not coalesce("
      "(type = 'table' and name = 'settings' and sql = 'CREATE TABLE "
    + tableDefinition
    + "')"
      " or (type = 'table' and name = 'sqlite_stat1' and sql = 'CREATE TABLE "
      "sqlite_stat1(tbl,idx,stat)')"
      " or (type = 'table' and name = 'sqlite_stat4' and sql = 'CREATE TABLE "
      "sqlite_stat4(tbl,idx,neq,nlt,ndlt,sample)')"
      " or (type = 'index' and name glob 'sqlite_autoindex_*' and sql is null), false)";

bool StoreState::IsNewer() const
{
    return id > applicationId && id >> 8 == applicationId >> 8;
}

int ReadState(SqliteDatabase& database, StoreState& state)
{
    // One transaction, since another copy may be making the store.
    int code = database.Execute("begin");
    if (code == SQLITE_OK)
        code = database.Ask("pragma application_id", state.id);
    if (code == SQLITE_OK)
        code = database.Ask("select count(*) from sqlite_master", state.tables);
    if (code == SQLITE_OK)
        code = database.Ask("pragma page_count", state.pages);
    database.Execute("commit");
    return code;
}

int CheckSchema(SqliteDatabase& database, StoreState const& state)
{
    if (state.id != applicationId || state.tables == 0)
        return SQLITE_NOTADB;
    int foreign = 0, entries = 0;
    if (int const code = database.Ask(countForeignObjects.c_str(), foreign); code != SQLITE_OK)
        return code;
    // A table that is only listed in the schema can't be read.
    bool const hasTable = foreign == 0
        && database.Ask(
               "select count(*) from (select section, key, value from settings limit 1)", entries)
            != SQLITE_ERROR;
    return hasTable ? SQLITE_OK : SQLITE_NOTADB;
}

int CheckWhole(SqliteDatabase& database)
{
    int faults = 0;
    int const code
        = database.Ask("select count(*) from pragma_quick_check where quick_check <> 'ok'", faults);
    return code == SQLITE_OK && faults > 0 ? SQLITE_CORRUPT : code;
}

int MakeStore(SqliteDatabase& database)
{
    static std::string const make = "begin immediate; create table if not exists " + tableDefinition
        + "; pragma application_id = " + std::to_string(applicationId) + "; commit";
    int const code = database.Execute(make.c_str());
    if (code != SQLITE_OK)
        database.Execute("rollback");
    return code;
}

bool BeginsAsForeign(SqliteDatabase& database)
{
    constexpr std::string_view mark { "SQLite format 3\0", 16 };
    std::string head(100, '\0');
    if (!database.ReadBeginning(head))
        return false;
    int id = 0;
    for (char const byte : head.substr(68, 4))
        id = id << 8 | static_cast<unsigned char>(byte);
    return !head.starts_with(mark) || id != applicationId;
}

int WriteEntry(
    SqliteDatabase& database, SettingsStore::Entry const& entry, SettingsStore::Existing existing)
{
    static std::string const replace
        = "insert into settings values (?, ?, ?) on conflict (section, key) do update set value = "
          "excluded.value";
    static auto const fill = replace + " where value = x''";
    auto const& statement = existing == SettingsStore::Existing::Goes ? replace : fill;
    return database.Run(statement.c_str(), { entry.section, entry.key, entry.value });
}

int ReadEntries(SqliteDatabase& database, std::vector<SettingsStore::Entry>& entries)
{
    entries.clear();
    return database.Run("select section, key, value from settings order by section, key", {},
        [&](sqlite3_stmt* row) {
            entries.push_back({ ColumnText(row, 0), ColumnText(row, 1), ColumnText(row, 2) });
        });
}
