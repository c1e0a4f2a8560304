#include "platform/posix/sqlite_settings_store.h"

#include "platform/posix/backup_file.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/folders.h"
#include "platform/posix/store_file.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <sqlite3.h>

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

static constexpr int applicationId
    = 0x53504631; // "SPF1", in the file's head, tells our stores from other databases
static constexpr std::chrono::milliseconds shortPatience { 50 };

/// What a store may be, of SQLite's limits: far above what ours are and what our statements need.
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

static void Limit(sqlite3* database)
{
    for (auto const& each : limits)
        sqlite3_limit(database, each.limit, each.most);
}

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

static Text FromBytes(unsigned char const* bytes, int size)
{
    Text text(static_cast<std::size_t>(size) / 2, u'\0');
    for (char16_t& character : text) {
        character = static_cast<char16_t>(bytes[0] << 8 | bytes[1]);
        bytes += 2;
    }
    return text;
}

static Text Column(sqlite3_stmt* row, int column)
{
    auto const* bytes = static_cast<unsigned char const*>(sqlite3_column_blob(row, column));
    return FromBytes(bytes, sqlite3_column_bytes(row, column));
}

/// A statement is interrupted only where it would never end, which no whole store of ours makes it
/// do.
static bool IsDamage(int code)
{
    return code == SQLITE_NOTADB || code == SQLITE_CORRUPT || code == SQLITE_INTERRUPT;
}

/// The time that this thread has spent computing; waiting for a slow disk doesn't count.
static std::chrono::nanoseconds ComputingTime()
{
    timespec spent {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return std::chrono::seconds(spent.tv_sec) + std::chrono::nanoseconds(spent.tv_nsec);
}

using Row = std::function<void(sqlite3_stmt*)>;

/// Runs one statement with these texts bound in order, and hands on its rows. Gives SQLITE_DONE if
/// it succeeds.
static int RunStatement(
    sqlite3* database, char const* statement, std::initializer_list<TextView> texts, Row const& row)
{
    sqlite3_stmt* prepared = nullptr;
    int code = sqlite3_prepare_v2(database, statement, -1, &prepared, nullptr);
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

/// The definition of our table, as SQLite keeps it in the schema behind "CREATE TABLE ".
static constexpr char const* tableDefinition
    = "settings (section blob not null, key blob not null, value blob not null, primary key "
      "(section, key)) without rowid";

/// How many objects the schema has that aren't ours: all but the table, and SQLite's own statistics
/// and indexes.
static constexpr char const* countForeignObjects
    = "select count(*) from sqlite_master where not coalesce("
      "(type = 'table' and name = 'settings' and sql = 'CREATE TABLE ' || ?1)"
      " or (type = 'table' and name = 'sqlite_stat1' and sql = 'CREATE TABLE "
      "sqlite_stat1(tbl,idx,stat)')"
      " or (type = 'table' and name = 'sqlite_stat4' and sql = 'CREATE TABLE "
      "sqlite_stat4(tbl,idx,neq,nlt,ndlt,sample)')"
      " or (type = 'index' and name glob 'sqlite_autoindex_*' and sql is null), false)";

/// Makes the table in an empty database and marks it as ours.
static int MakeStore(sqlite3* database)
{
    static std::string const make = std::string("begin immediate; create table if not exists ")
        + tableDefinition + "; pragma application_id = " + std::to_string(applicationId)
        + "; commit";
    int const code = sqlite3_exec(database, make.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        sqlite3_exec(database, "rollback", nullptr, nullptr, nullptr);
    return code;
}

static constexpr char const* replaceEntry
    = "insert into settings values (?, ?, ?) on conflict (section, key) do update set value = "
      "excluded.value";

class SqliteSettingsStore::Connection {
public:
    Connection(fs::path file, std::chrono::milliseconds patience, Damaged damaged)
        : m_file(std::move(file))
        , m_damaged(damaged)
        , m_fullPatience(patience)
        , m_patience(patience)
        , m_mostComputing(
              std::max<std::chrono::nanoseconds>(10 * patience, std::chrono::seconds(2)))
    {
    }
    ~Connection() { Close(); }
    Connection(Connection const&) = delete;
    Connection& operator=(Connection const&) = delete;

    /// Runs one statement with these texts bound in order.
    Outcome<Done> Run(char const* statement, std::initializer_list<TextView> texts)
    {
        return Try([&] { return RunStatement(statement, texts, {}); });
    }

    /// The same; what the rows tell is gathered in a result by `add`.
    template <class Result, class Add>
    Outcome<Result> Query(
        char const* statement, std::initializer_list<TextView> texts, Add const& add)
    {
        Result result;
        auto const run = Try([&] {
            result = {};
            return RunStatement(statement, texts, [&](sqlite3_stmt* row) { add(result, row); });
        });
        return run ? Outcome<Result>(std::move(result)) : run.failure();
    }

    /// Runs a statement for each entry, all in one transaction.
    Outcome<Done> RunForAll(char const* statement, std::vector<Entry> const& entries)
    {
        return Try([&] {
            return InTransaction([&] {
                int code = SQLITE_DONE;
                for (auto each = entries.begin(); code == SQLITE_DONE && each != entries.end();
                     ++each)
                    code = RunStatement(statement, { each->section, each->key, each->value }, {});
                return code;
            });
        });
    }

    /// Deletes a section in one transaction, behind its backup.
    Outcome<Done> DeleteSection(TextView section, Backup const& backup)
    {
        std::optional<Failure> failure;
        auto const deleted = Try([&] {
            return InTransaction([&] {
                std::vector<Entry> stored;
                int const code
                    = RunStatement("select key, value from settings where section = ? order by key",
                        { section }, [&](sqlite3_stmt* row) {
                            stored.push_back({ Text(section), Column(row, 0), Column(row, 1) });
                        });
                if (code != SQLITE_DONE)
                    return code;
                if (auto const kept = backup(stored); !kept.empty())
                    failure
                        = WriteBackupBeforeDelete({ kept, {} }, fs::absolute(m_file).parent_path());
                if (failure)
                    return SQLITE_ABORT;
                return RunStatement("delete from settings where section = ?", { section }, {});
            });
        });
        return failure ? *failure : deleted;
    }

    std::optional<Failure> TakeReport() { return std::exchange(m_report, std::nullopt); }

private:
    /// Work that gives SQLITE_DONE, as a transaction of its own; another code undoes it.
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

    /// Does the work, which gives SQLITE_DONE if it succeeds. Where the file turns out to be
    /// damaged, it is set aside and the work done once more, on the new store.
    Outcome<Done> Try(std::function<int()> const& work)
    {
        int code = SQLITE_DONE;
        for (int tries = 0; tries < 3; ++tries) {
            code = TryOnce(work);
            if (IsDamage(code)) {
                if (auto const failure = SetAside())
                    return *failure;
            } else if (code != SQLITE_ERROR) { // else the store was emptied while open
                break;
            }
        }
        if (code == SQLITE_CANTOPEN && m_obstacle)
            return *m_obstacle;
        return code == SQLITE_DONE ? Outcome<Done>(Done {}) : Fail(ReasonFor(code));
    }

    int TryOnce(std::function<int()> const& work)
    {
        m_deadline = Clock::now() + m_patience;
        m_endOfComputing = ComputingTime() + m_mostComputing;
        if (m_database && HasMoved()) {
            Close();
            m_isSeenWhole = false;
            m_report = Fail(
                u"it was removed or replaced by another file; what is on show has been stored in "
                u"the present one");
        }
        int code = Open();
        if (code == SQLITE_OK)
            code = work();
        // After one wait in vain, wait only briefly.
        m_patience = code == SQLITE_BUSY ? std::min(shortPatience, m_fullPatience) : m_fullPatience;
        // Opened anew next time: what stood in the way may be gone by then.
        if (code != SQLITE_DONE && code != SQLITE_BUSY)
            Close();
        return code;
    }

    int RunStatement(char const* statement, std::initializer_list<TextView> texts, Row const& row)
    {
        return ::RunStatement(m_database, statement, texts, row);
    }

    int Open()
    {
        if (m_database)
            return SQLITE_OK;
        // Made here, so that it is the user's own from the first moment. One that exists isn't
        // touched: closing it would drop the locks of every other connection within this process.
        static_cast<void>(
            MakeFolders(fs::absolute(m_file)
                            .parent_path())); // If this fails, so does opening, with the reason.
        Descriptor fresh(::open(m_file.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600));
        int const number = fresh || errno == EEXIST ? 0 : errno;
        fresh.Close();
        m_obstacle
            = number != 0 ? SystemFailure(FromUtf8(m_file.string()), number) : CheckKinds(m_file);
        if (m_obstacle)
            return SQLITE_CANTOPEN;
        m_identity = IdentityOf(m_file);
        if (NamesSuperJournal(m_file))
            return SQLITE_NOTADB;
        int code = sqlite3_open_v2(m_file.c_str(), &m_database, SQLITE_OPEN_READWRITE, nullptr);
        if (code == SQLITE_OK) {
            Harden();
            code = CheckInTime();
        }
        if (code != SQLITE_OK) {
            if (int const system = sqlite3_system_errno(m_database); system != 0)
                m_obstacle = SystemFailure(FromUtf8(m_file.string()), system);
            Close();
        }
        return code;
    }

    /// What a file brings along is never run, and can't make a statement run without end.
    void Harden()
    {
        sqlite3_busy_handler(m_database, &Connection::Wait, this);
        sqlite3_progress_handler(m_database, 1000, &Connection::HasComputedTooLong, this);
        for (int const off : { SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW,
                 SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_DQS_DML })
            sqlite3_db_config(m_database, off, 0, nullptr);
        sqlite3_db_config(m_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        Limit(m_database);
        Execute("pragma cell_size_check = on; pragma mmap_size = 0");
    }

    /// As Check. A file that isn't ours by its head isn't waited for long, and doesn't become ours
    /// by being locked.
    int CheckInTime()
    {
        bool const isForeign = HasForeignHead();
        if (isForeign)
            m_deadline = std::min(m_deadline, Clock::now() + shortPatience);
        int const code = Check();
        return code == SQLITE_BUSY && isForeign && HasForeignHead() ? SQLITE_NOTADB : code;
    }

    /// True for a file whose head, read without a lock, is that of something else. With a journal
    /// beside it that can't be told.
    bool HasForeignHead()
    {
        sqlite3_file* file = nullptr;
        sqlite3_file_control(
            m_database, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file));
        unsigned char head[100];
        if (HasJournal(m_file) || !file || !file->pMethods
            || file->pMethods->xRead(file, head, sizeof head, 0) != SQLITE_OK)
            return false;
        return std::string_view(reinterpret_cast<char const*>(head), 16)
            != std::string_view("SQLite format 3\0", 16)
            || (head[68] << 24 | head[69] << 16 | head[70] << 8 | head[71]) != applicationId;
    }

    /// Makes sure that the database is ours, makes it if it is empty, and sees once that it is
    /// whole. A database that is somebody else's counts as damage.
    int Check()
    {
        int id = 0, tables = 0, pages = 0;
        // Seen as they are at one moment, should another copy be making the store.
        int code = Execute("begin");
        if (code == SQLITE_OK)
            code = Ask("pragma application_id", id);
        if (code == SQLITE_OK)
            code = Ask("select count(*) from sqlite_master", tables);
        if (code == SQLITE_OK)
            code = Ask("pragma page_count", pages);
        Execute("commit");
        if (code != SQLITE_OK)
            return code;
        // A database without tables that has pages may have lost them by damage: it isn't filled
        // again.
        if (tables == 0 && pages == 0) {
            if (m_isSeenWhole)
                m_report = Fail(u"it was emptied; what is on show has been stored in it again");
            SetUp();
            code = MakeStore(m_database);
            m_isSeenWhole = code == SQLITE_OK;
            return code;
        }
        m_isNewer = id > applicationId && id >> 8 == applicationId >> 8;
        if (id != applicationId || tables == 0)
            return SQLITE_NOTADB;
        if ((code = CheckSchema()) != SQLITE_OK)
            return code;
        SetUp();
        return m_isSeenWhole ? SQLITE_OK : CheckWhole();
    }

    /// Makes sure that the file has our table as we make it, and nothing that could compute, forbid
    /// or change something.
    int CheckSchema()
    {
        int foreign = 0;
        sqlite3_stmt* prepared = nullptr;
        int code = sqlite3_prepare_v2(m_database, countForeignObjects, -1, &prepared, nullptr);
        if (code == SQLITE_OK)
            code = sqlite3_bind_text(prepared, 1, tableDefinition, -1, SQLITE_STATIC);
        if (code == SQLITE_OK && (code = sqlite3_step(prepared)) == SQLITE_ROW)
            foreign = sqlite3_column_int(prepared, 0);
        sqlite3_finalize(prepared);
        if (code != SQLITE_ROW)
            return code;
        int entries = 0;
        bool const hasTable = foreign == 0
            && Ask("select count(*) from (select section, key, value from settings limit 1)",
                   entries)
                != SQLITE_ERROR;
        return hasTable ? SQLITE_OK : SQLITE_NOTADB;
    }

    void SetUp()
    {
        // One file at rest, and a commit lasts once the folder has been flushed behind it. Each
        // takes milliseconds.
        Execute("pragma journal_mode = delete");
        Execute("pragma synchronous = extra");
    }

    int CheckWhole()
    {
        int faults = 0;
        int const code
            = Ask("select count(*) from pragma_quick_check where quick_check <> 'ok'", faults);
        m_isSeenWhole = code == SQLITE_OK && faults == 0;
        return code == SQLITE_OK && faults > 0 ? SQLITE_CORRUPT : code;
    }

    int Execute(char const* statements)
    {
        return sqlite3_exec(m_database, statements, nullptr, nullptr, nullptr);
    }

    int Ask(char const* question, int& answer)
    {
        sqlite3_stmt* prepared = nullptr;
        int code = sqlite3_prepare_v2(m_database, question, -1, &prepared, nullptr);
        if (code == SQLITE_OK && (code = sqlite3_step(prepared)) == SQLITE_ROW)
            answer = sqlite3_column_int(prepared, 0);
        sqlite3_finalize(prepared);
        return code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_OK : code;
    }

    /// SQLite's busy handler. The patience is for a whole operation, however many locks that takes.
    static int Wait(void* connection, int)
    {
        if (Clock::now() >= static_cast<Connection*>(connection)->m_deadline)
            return 0;
        sqlite3_sleep(10);
        return 1;
    }

    /// SQLite's progress handler: ends the statement if the operation has computed longer than any
    /// honest store makes it.
    static int HasComputedTooLong(void* connection)
    {
        return ComputingTime() > static_cast<Connection*>(connection)->m_endOfComputing;
    }

    /// True if the file that was opened stands under its name no more.
    bool HasMoved() const { return IdentityOf(m_file) != m_identity; }

    /// Renames the file, unless another copy of the program has done it. Gives the failure if the
    /// file has to stay.
    std::optional<Failure> SetAside()
    {
        Close();
        if (m_damaged == Damaged::Stays)
            return Fail(m_isNewer ? u"it was made by a newer version of this program"
                                  : u"it is damaged or no settings store");
        auto const aside = SetStoreAside(m_file, m_identity, m_deadline);
        if (!aside) {
            m_patience = std::min(shortPatience, m_fullPatience);
            return aside.failure();
        }
        m_isSeenWhole = false;
        if (*aside)
            m_report = Fail(u"it is damaged or no settings store; it has been set aside as "
                + FromUtf8((*aside)->filename().string()) + u", and a new one begun");
        return std::nullopt;
    }

    Failure Fail(Text reason) const { return { FromUtf8(m_file.string()), 0, std::move(reason) }; }

    Text ReasonFor(int code) const
    {
        switch (code) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"it is in use by another program";
        case SQLITE_READONLY:
            return u"it can't be written to";
        case SQLITE_FULL:
            return u"the disk is full";
        case SQLITE_TOOBIG:
            return u"the text is too long";
        case SQLITE_CANTOPEN:
            return u"it can't be opened";
        default:
            return FromUtf8(sqlite3_errstr(code));
        }
    }

    void Close()
    {
        sqlite3_close_v2(m_database);
        m_database = nullptr;
    }

    fs::path m_file;
    Damaged m_damaged;
    std::chrono::milliseconds m_fullPatience;
    std::chrono::milliseconds m_patience;
    Clock::time_point m_deadline {};
    std::chrono::nanoseconds m_mostComputing; // by one operation
    std::chrono::nanoseconds m_endOfComputing {};
    sqlite3* m_database = nullptr;
    FileIdentity m_identity {};
    std::optional<Failure> m_obstacle; // why the file couldn't be opened
    bool m_isSeenWhole = false;
    bool m_isNewer = false; // as far as its head tells
    std::optional<Failure> m_report;
};

SqliteSettingsStore::SqliteSettingsStore(
    fs::path file, std::chrono::milliseconds patience, Damaged damaged)
    : m_connection(std::make_unique<Connection>(std::move(file), patience, damaged))
{
}

SqliteSettingsStore::~SqliteSettingsStore() = default;

Outcome<std::optional<Text>> SqliteSettingsStore::Read(TextView section, TextView key) const
{
    return m_connection->Query<std::optional<Text>>(
        "select value from settings where section = ? and key = ?", { section, key },
        [](auto& value, sqlite3_stmt* row) { value = Column(row, 0); });
}

Outcome<Done> SqliteSettingsStore::Write(TextView section, TextView key, TextView value)
{
    return m_connection->Run(replaceEntry, { section, key, value });
}

Outcome<Done> SqliteSettingsStore::DeleteSection(TextView section, Backup const& backup)
{
    return m_connection->DeleteSection(section, backup);
}

Outcome<std::vector<SettingsStore::Entry>> SqliteSettingsStore::InSection(TextView section) const
{
    return m_connection->Query<std::vector<Entry>>(
        "select key, value from settings where section = ? order by key", { section },
        [section](auto& entries, sqlite3_stmt* row) {
            entries.push_back({ Text(section), Column(row, 0), Column(row, 1) });
        });
}

Outcome<std::vector<Text>> SqliteSettingsStore::Sections() const
{
    return m_connection->Query<std::vector<Text>>(
        "select distinct section from settings order by section", {},
        [](auto& sections, sqlite3_stmt* row) { sections.push_back(Column(row, 0)); });
}

Outcome<std::vector<SettingsStore::Entry>> SqliteSettingsStore::All() const
{
    return m_connection->Query<std::vector<Entry>>(
        "select section, key, value from settings order by section, key", {},
        [](auto& entries, sqlite3_stmt* row) {
            entries.push_back({ Column(row, 0), Column(row, 1), Column(row, 2) });
        });
}

Outcome<Done> SqliteSettingsStore::WriteAll(std::vector<Entry> const& entries, Existing existing)
{
    static auto const fillEntry = std::string(replaceEntry) + " where value = x''";
    return m_connection->RunForAll(
        existing == Existing::Goes ? replaceEntry : fillEntry.c_str(), entries);
}

std::optional<Failure> SqliteSettingsStore::TakeReport()
{
    return m_connection->TakeReport();
}

std::optional<Failure> SqliteSettingsStore::OpeningReport()
{
    static_cast<void>(m_connection->Run("select 1 from settings limit 1", {}));
    return TakeReport();
}

std::optional<std::string> BytesOfStore(std::vector<SettingsStore::Entry> const& entries)
{
    sqlite3* database = nullptr;
    int code = sqlite3_open(":memory:", &database);
    Limit(database); // What couldn't be read again isn't written.
    if (code == SQLITE_OK && (code = MakeStore(database)) == SQLITE_OK)
        code = SQLITE_DONE;
    for (auto each = entries.begin(); code == SQLITE_DONE && each != entries.end(); ++each)
        code = RunStatement(database, replaceEntry, { each->section, each->key, each->value }, {});
    std::optional<std::string> bytes;
    sqlite3_int64 size = 0;
    if (code == SQLITE_DONE)
        if (auto* const image = sqlite3_serialize(database, "main", &size, 0)) {
            bytes.emplace(reinterpret_cast<char const*>(image), static_cast<std::size_t>(size));
            sqlite3_free(image);
        }
    sqlite3_close(database);
    return bytes;
}
