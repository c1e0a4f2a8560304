#include "platform/posix/sqlite_settings_store.h"

#include "platform/posix/backup_file.h"
#include "platform/posix/sqlite_connection.h"

namespace fs = std::filesystem;

/// Runs `query` on the store; it returns SQLITE_DONE and fills the result.
template <class Result, class Query>
static Outcome<Result> ReadFrom(SqliteConnection& connection, Query const& query)
{
    Result result;
    auto const done = connection.Do([&](SqliteDatabase& database) {
        result = {};
        return query(database, result);
    });
    return done ? Outcome<Result>(std::move(result)) : done.failure();
}

static int ReadSection(
    SqliteDatabase& database, TextView section, std::vector<SettingsStore::Entry>& entries)
{
    return database.Run("select key, value from settings where section = ? order by key",
        { section }, [&](sqlite3_stmt* row) {
            entries.push_back({ Text(section), ColumnText(row, 0), ColumnText(row, 1) });
        });
}

SqliteSettingsStore::SqliteSettingsStore(
    fs::path file, std::chrono::milliseconds patience, OnDamage onDamage)
    : m_connection(std::make_unique<SqliteConnection>(std::move(file), patience, onDamage))
{
}

SqliteSettingsStore::~SqliteSettingsStore() = default;

Outcome<std::optional<Text>> SqliteSettingsStore::Read(TextView section, TextView key) const
{
    return ReadFrom<std::optional<Text>>(
        *m_connection, [&](SqliteDatabase& database, std::optional<Text>& value) {
            return database.Run("select value from settings where section = ? and key = ?",
                { section, key }, [&](sqlite3_stmt* row) { value = ColumnText(row, 0); });
        });
}

Outcome<Done> SqliteSettingsStore::Write(TextView section, TextView key, TextView value)
{
    Entry const entry { Text(section), Text(key), Text(value) };
    return m_connection->Do([&](SqliteDatabase& database) { return WriteEntry(database, entry); });
}

Outcome<Done> SqliteSettingsStore::DeleteSection(TextView section, Backup const& backup)
{
    Outcome<Done> saved = Done {};
    auto const deleteFrom = [&](SqliteDatabase& database) {
        std::vector<Entry> stored;
        if (int const code = ReadSection(database, section, stored); code != SQLITE_DONE)
            return code;
        if (auto const kept = backup(stored); !kept.empty())
            saved = WriteBackupBeforeDelete(
                { kept, {} }, fs::absolute(m_connection->File()).parent_path());
        return saved ? database.Run("delete from settings where section = ?", { section })
                     : SQLITE_ABORT;
    };
    auto const deleted = m_connection->Do([&](SqliteDatabase& database) {
        return database.InTransaction([&] { return deleteFrom(database); });
    });
    return saved ? deleted : saved;
}

Outcome<std::vector<SettingsStore::Entry>> SqliteSettingsStore::InSection(TextView section) const
{
    return ReadFrom<std::vector<Entry>>(
        *m_connection, [&](SqliteDatabase& database, std::vector<Entry>& entries) {
            return ReadSection(database, section, entries);
        });
}

Outcome<std::vector<Text>> SqliteSettingsStore::Sections() const
{
    return ReadFrom<std::vector<Text>>(
        *m_connection, [](SqliteDatabase& database, std::vector<Text>& sections) {
            return database.Run("select distinct section from settings order by section", {},
                [&](sqlite3_stmt* row) { sections.push_back(ColumnText(row, 0)); });
        });
}

Outcome<std::vector<SettingsStore::Entry>> SqliteSettingsStore::All() const
{
    return ReadFrom<std::vector<Entry>>(*m_connection, ReadEntries);
}

Outcome<Done> SqliteSettingsStore::WriteAll(std::vector<Entry> const& entries, Existing existing)
{
    return m_connection->Do([&](SqliteDatabase& database) {
        return database.InTransaction([&] {
            int code = SQLITE_DONE;
            for (auto each = entries.begin(); code == SQLITE_DONE && each != entries.end(); ++each)
                code = WriteEntry(database, *each, existing);
            return code;
        });
    });
}

std::optional<Failure> SqliteSettingsStore::TakeReport()
{
    return m_connection->TakeReport();
}

std::optional<Failure> SqliteSettingsStore::OpeningReport()
{
    static_cast<void>(m_connection->Do([](SqliteDatabase&) { return SQLITE_DONE; }));
    return TakeReport();
}
