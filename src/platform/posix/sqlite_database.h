#pragma once
// A database that SQLite has open, and the running of statements on it. Views, triggers and the
// like in a file never run, and no statement waits or computes without end. SQLite is known to the
// files sqlite_* of this folder alone. Codes are SQLite's result codes.

#include "base/text.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <string>

#include <sqlite3.h>

/// The text in a column of a row.
Text ColumnText(sqlite3_stmt* row, int column);

class SqliteDatabase {
public:
    using Clock = std::chrono::steady_clock;
    using Row = std::function<void(sqlite3_stmt*)>;

    SqliteDatabase() = default;
    ~SqliteDatabase() { Close(); }
    SqliteDatabase(SqliteDatabase const&) = delete;
    SqliteDatabase& operator=(SqliteDatabase const&) = delete;

    /// Opens an existing file for reading and writing. After a failure the database has to be
    /// closed; until then SystemError tells the system's error number, if it was the system's.
    int Open(std::filesystem::path const& file);
    /// Opens a new database in memory.
    int OpenInMemory();
    /// Opens the bytes of a file, which must outlive the database, for reading.
    int OpenImage(std::string_view bytes);
    void Close();
    bool IsOpen() const { return m_database != nullptr; }
    int SystemError() const { return sqlite3_system_errno(m_database); }

    /// From now on, all statements together wait `patience` for locks, and compute for
    /// `mostComputing` (waiting for a slow disk doesn't count), then fail with SQLITE_BUSY and
    /// SQLITE_INTERRUPT. Unless this is called, they don't wait, and compute without a limit.
    void StartClock(std::chrono::milliseconds patience, std::chrono::nanoseconds mostComputing);
    void ShortenPatience(std::chrono::milliseconds patience);
    /// When the patience ends.
    Clock::time_point Deadline() const { return m_deadline; }

    /// Runs statements without results. SQLITE_OK on success.
    int Execute(char const* statements);
    /// Runs a statement with these texts bound in order, and passes each row on. SQLITE_DONE on
    /// success.
    int Run(char const* statement, std::initializer_list<TextView> texts, Row const& row = {});
    /// Runs a statement that has one number as result. SQLITE_OK on success.
    int Ask(char const* question, int& answer);
    /// Does work that returns SQLITE_DONE, as one transaction; any other code undoes it.
    template <class Work> int InTransaction(Work const& work)
    {
        int code = Execute("begin immediate");
        if (code == SQLITE_OK)
            code = work();
        if (code == SQLITE_DONE)
            code = Execute("commit");
        if (code != SQLITE_OK)
            Execute("rollback");
        return code == SQLITE_OK ? SQLITE_DONE : code;
    }

    /// The beginning of the open file, read without a lock. False if that can't be read.
    bool ReadBeginning(std::string& bytes);
    /// The bytes of a database in memory; empty if there isn't enough memory.
    std::string Image();

private:
    int Harden(int code);
    static int Wait(void* database, int);
    static int HasComputedTooLong(void* database);

    sqlite3* m_database = nullptr;
    Clock::time_point m_deadline {};
    std::chrono::nanoseconds m_endOfComputing = std::chrono::nanoseconds::max();
};
