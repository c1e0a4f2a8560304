#include "platform/posix/sqlite_database.h"

#include <algorithm>
#include <ctime>

/// How large the parts of a database may be, by SQLite's limits: far above what our stores and
/// statements need.
static constexpr struct {
    int limit, most;
} limits[] = {
    { SQLITE_LIMIT_LENGTH, 128 << 20 }, // bytes of a row
    { SQLITE_LIMIT_SQL_LENGTH, 10'000 }, // bytes; the texts in a file's schema count too
    { SQLITE_LIMIT_COLUMN, 100 },
    { SQLITE_LIMIT_EXPR_DEPTH, 50 },
    { SQLITE_LIMIT_COMPOUND_SELECT, 3 },
    { SQLITE_LIMIT_VDBE_OP, 25'000 },
    { SQLITE_LIMIT_FUNCTION_ARG, 8 },
    { SQLITE_LIMIT_ATTACHED, 0 },
    { SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 50 },
    { SQLITE_LIMIT_VARIABLE_NUMBER, 10 },
    { SQLITE_LIMIT_TRIGGER_DEPTH, 1 },
    { SQLITE_LIMIT_WORKER_THREADS, 0 },
};

/// A text as the bytes of its 16-bit characters, the higher one first, so that bytes sort as
/// characters do.
static std::string ToBytes(TextView text)
{
    std::string bytes(text.size() * 2, '\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        bytes[2 * i] = static_cast<char>(text[i] >> 8);
        bytes[2 * i + 1] = static_cast<char>(text[i] & 0xFF);
    }
    return bytes;
}

Text ColumnText(sqlite3_stmt* row, int column)
{
    auto const* bytes = static_cast<unsigned char const*>(sqlite3_column_blob(row, column));
    Text text(static_cast<std::size_t>(sqlite3_column_bytes(row, column)) / 2, u'\0');
    for (char16_t& character : text) {
        character = static_cast<char16_t>(bytes[0] << 8 | bytes[1]);
        bytes += 2;
    }
    return text;
}

/// How long this thread has been computing.
static std::chrono::nanoseconds ComputingTime()
{
    timespec spent {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return std::chrono::seconds(spent.tv_sec) + std::chrono::nanoseconds(spent.tv_nsec);
}

int SqliteDatabase::Open(std::filesystem::path const& file)
{
    return Harden(sqlite3_open_v2(file.c_str(), &m_database, SQLITE_OPEN_READWRITE, nullptr));
}

int SqliteDatabase::OpenInMemory()
{
    return Harden(sqlite3_open(":memory:", &m_database));
}

int SqliteDatabase::OpenImage(std::string_view bytes)
{
    int const code = OpenInMemory();
    auto* const image = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
    auto const size = static_cast<sqlite3_int64>(bytes.size());
    return code != SQLITE_OK
        ? code
        : sqlite3_deserialize(m_database, "main", image, size, size, SQLITE_DESERIALIZE_READONLY);
}

void SqliteDatabase::Close()
{
    sqlite3_close_v2(m_database);
    m_database = nullptr;
}

/// What a file contains is never run, and can't make a statement run without end.
int SqliteDatabase::Harden(int code)
{
    if (code != SQLITE_OK)
        return code;
    sqlite3_busy_handler(m_database, &SqliteDatabase::Wait, this);
    sqlite3_progress_handler(m_database, 1000, &SqliteDatabase::HasComputedTooLong, this);
    for (int const off : { SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW,
             SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_DQS_DML })
        sqlite3_db_config(m_database, off, 0, nullptr);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    for (auto const& each : limits)
        sqlite3_limit(m_database, each.limit, each.most);
    Execute("pragma cell_size_check = on; pragma mmap_size = 0");
    return SQLITE_OK;
}

void SqliteDatabase::StartClock(
    std::chrono::milliseconds patience, std::chrono::nanoseconds mostComputing)
{
    m_deadline = Clock::now() + patience;
    m_endOfComputing = ComputingTime() + mostComputing;
}

void SqliteDatabase::ShortenPatience(std::chrono::milliseconds patience)
{
    m_deadline = std::min(m_deadline, Clock::now() + patience);
}

/// SQLite's busy handler.
int SqliteDatabase::Wait(void* database, int)
{
    if (Clock::now() >= static_cast<SqliteDatabase*>(database)->m_deadline)
        return 0;
    sqlite3_sleep(10);
    return 1;
}

/// SQLite's progress handler.
int SqliteDatabase::HasComputedTooLong(void* database)
{
    return ComputingTime() > static_cast<SqliteDatabase*>(database)->m_endOfComputing;
}

int SqliteDatabase::Execute(char const* statements)
{
    return sqlite3_exec(m_database, statements, nullptr, nullptr, nullptr);
}

int SqliteDatabase::Run(
    char const* statement, std::initializer_list<TextView> texts, Row const& row)
{
    sqlite3_stmt* prepared = nullptr;
    int code = sqlite3_prepare_v2(m_database, statement, -1, &prepared, nullptr);
    int place = 0;
    for (TextView text : texts) {
        auto const bytes = ToBytes(text);
        if (code == SQLITE_OK)
            code = sqlite3_bind_blob64(
                prepared, ++place, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
    }
    if (code == SQLITE_OK)
        while ((code = sqlite3_step(prepared)) == SQLITE_ROW)
            if (row)
                row(prepared);
    sqlite3_finalize(prepared);
    return code;
}

int SqliteDatabase::Ask(char const* question, int& answer)
{
    int const code
        = Run(question, {}, [&](sqlite3_stmt* row) { answer = sqlite3_column_int(row, 0); });
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

bool SqliteDatabase::ReadBeginning(std::string& bytes)
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_database, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file));
    return file && file->pMethods
        && file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0)
        == SQLITE_OK;
}

std::string SqliteDatabase::Image()
{
    sqlite3_int64 size = 0;
    auto* const image = sqlite3_serialize(m_database, "main", &size, 0);
    std::string const bytes(reinterpret_cast<char const*>(image), image ? std::size_t(size) : 0);
    sqlite3_free(image);
    return bytes;
}
