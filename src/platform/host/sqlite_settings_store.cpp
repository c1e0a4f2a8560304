#include "platform/host/sqlite_settings_store.h"

#include "platform/host/backup_file.h"
#include "platform/host/descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

static constexpr int applicationId
    = 0x53504631; // "SPF1", in the file's head, tells our stores from other databases
static constexpr std::chrono::milliseconds shortPatience { 50 };

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

static bool IsDamage(int code)
{
    return code == SQLITE_NOTADB || code == SQLITE_CORRUPT;
}

using Row = std::function<void(sqlite3_stmt*)>;

/// Runs one statement with these texts bound in order, and hands on its rows. Gives SQLITE_DONE if it succeeds.
static int RunStatement(
    sqlite3* database, char const* statement, std::initializer_list<TextView> texts, Row const& row)
{
    sqlite3_stmt* prepared = nullptr;
    int code = sqlite3_prepare_v2(database, statement, -1, &prepared, nullptr);
    int place = 0;
    for (TextView text : texts) {
        auto const bytes = ToBytes(text);
        if (code == SQLITE_OK)
            code = sqlite3_bind_blob64(prepared, ++place, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
    }
    if (code == SQLITE_OK)
        while ((code = sqlite3_step(prepared)) == SQLITE_ROW)
            if (row)
                row(prepared);
    sqlite3_finalize(prepared);
    return code;
}

/// Makes the table in an empty database and marks it as ours.
static int MakeStore(sqlite3* database)
{
    static std::string const make
        = "begin immediate;"
          "create table if not exists settings (section blob not null, key blob not null,"
          " value blob not null, primary key (section, key)) without rowid;"
          "pragma application_id = "
        + std::to_string(applicationId) + "; commit";
    int const code = sqlite3_exec(database, make.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        sqlite3_exec(database, "rollback", nullptr, nullptr, nullptr);
    return code;
}

static constexpr char const* replaceEntry
    = "insert into settings values (?, ?, ?) on conflict (section, key) do update set value = excluded.value";

class SqliteSettingsStore::Connection {
public:
    Connection(fs::path file, std::chrono::milliseconds patience, Damaged damaged)
        : m_file(std::move(file))
        , m_damaged(damaged)
        , m_fullPatience(patience)
        , m_patience(patience)
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
    Outcome<Result> Query(char const* statement, std::initializer_list<TextView> texts, Add const& add)
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
                for (auto each = entries.begin(); code == SQLITE_DONE && each != entries.end(); ++each)
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
                    = RunStatement("select key, value from settings where section = ? order by key", { section },
                        [&](sqlite3_stmt* row) { stored.push_back({ Text(section), Column(row, 0), Column(row, 1) }); });
                if (code != SQLITE_DONE)
                    return code;
                if (auto const kept = backup(stored); !kept.empty())
                    failure = WriteBackupBeforeDelete({ kept, {} }, fs::absolute(m_file).parent_path());
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

    /// Does the work, which gives SQLITE_DONE if it succeeds. Where the file turns out to be damaged, it is set aside and the
    /// work done once more, on the new store.
    Outcome<Done> Try(std::function<int()> const& work)
    {
        int code = SQLITE_DONE;
        for (int tries = 0; tries < 3; ++tries) {
            code = TryOnce(work);
            if (IsDamage(code)) {
                if (auto const failure = SetAside())
                    return *failure;
            } else if (code != SQLITE_ERROR) { // the code for a store that was emptied while it was open
                break;
            }
        }
        return code == SQLITE_DONE ? Outcome<Done>(Done {}) : Fail(ReasonFor(code));
    }

    int TryOnce(std::function<int()> const& work)
    {
        m_deadline = Clock::now() + m_patience;
        if (m_database && HasMoved()) {
            Close();
            m_isSeenWhole = false;
            m_report = Fail(u"it was removed or replaced by another file; what is on show has been stored in the present one");
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
        std::error_code ignored; // If this fails, so does opening, with the reason.
        fs::create_directories(fs::absolute(m_file).parent_path(), ignored);
        Descriptor fresh(::open(m_file.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600));
        m_systemError = fresh || errno == EEXIST ? 0 : errno;
        fresh.Close();
        if (m_systemError != 0)
            return SQLITE_CANTOPEN;
        m_identity = IdentityOnDisk();
        int code = sqlite3_open_v2(m_file.c_str(), &m_database, SQLITE_OPEN_READWRITE, nullptr);
        if (code == SQLITE_OK) {
            sqlite3_busy_handler(m_database, &Connection::Wait, this);
            // Triggers and views that a file brings along are never run.
            sqlite3_db_config(m_database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
            sqlite3_db_config(m_database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
            code = Check();
        }
        if (code != SQLITE_OK) {
            m_systemError = sqlite3_system_errno(m_database);
            Close();
        }
        return code;
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
        // A database without tables that has pages may have lost them by damage: it isn't filled again.
        if (tables == 0 && pages == 0) {
            if (m_isSeenWhole)
                m_report = Fail(u"it was emptied; what is on show has been stored in it again");
            SetUp();
            code = MakeStore(m_database);
            m_isSeenWhole = code == SQLITE_OK;
            return code;
        }
        int entries = 0;
        bool const isOurs = id == applicationId
            && Ask("select count(*) from (select section, key, value from settings limit 1)",
                   entries)
                != SQLITE_ERROR;
        m_isNewer = id > applicationId && id >> 8 == applicationId >> 8;
        if (!isOurs)
            return SQLITE_NOTADB;
        SetUp();
        return m_isSeenWhole ? SQLITE_OK : CheckWhole();
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

    using Identity = std::pair<dev_t, ino_t>;
    Identity IdentityOnDisk() const
    {
        struct stat status { };
        return ::stat(m_file.c_str(), &status) == 0 ? Identity(status.st_dev, status.st_ino)
                                                    : Identity();
    }
    /// True if the file that was opened stands under its name no more.
    bool HasMoved() const { return IdentityOnDisk() != m_identity; }

    /// Renames the file to the first free name. A journal beside it has been played by now, or is dropped by SQLite as soon
    /// as it meets the new file. Gives the failure if the file has to stay.
    std::optional<Failure> SetAside()
    {
        Close();
        if (m_damaged == Damaged::Stays)
            return Fail(m_isNewer ? u"it was made by a newer version of this program"
                                  : u"it is damaged or no settings store");
        // Only the holder of the old file's lock renames it, so that no copy sets aside another's new one.
        Descriptor const old(::open(m_file.c_str(), O_RDONLY | O_CLOEXEC));
        if (!old || ::flock(old.Number(), LOCK_EX) != 0)
            return Fail(SystemFailure({}).reason);
        m_isSeenWhole = false;
        if (HasMoved())
            return std::nullopt; // another copy has done it
        std::error_code error, ignored;
        fs::path aside;
        int number = 0;
        do
            aside = m_file.string() + ".damaged-" + std::to_string(++number);
        while (fs::exists(fs::symlink_status(aside, ignored)));
        fs::rename(m_file, aside, error);
        if (error)
            return Fail(u"it is damaged or no settings store, and can't be set aside: "
                + FromUtf8(error.message()));
        m_report = Fail(u"it is damaged or no settings store; it has been set aside as "
            + FromUtf8(aside.filename().string()) + u", and a new one begun");
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
            return m_systemError != 0 ? SystemFailure({}, m_systemError).reason
                                      : Text(u"it can't be opened");
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
    sqlite3* m_database = nullptr;
    Identity m_identity {};
    int m_systemError = 0; // why the file couldn't be opened
    bool m_isSeenWhole = false;
    bool m_isNewer = false; // as far as its head tells
    std::optional<Failure> m_report;
};

SqliteSettingsStore::SqliteSettingsStore(fs::path file, std::chrono::milliseconds patience, Damaged damaged)
    : m_connection(std::make_unique<Connection>(std::move(file), patience, damaged))
{
}

SqliteSettingsStore::~SqliteSettingsStore() = default;

Outcome<std::optional<Text>> SqliteSettingsStore::Read(TextView section, TextView key) const
{
    return m_connection->Query<std::optional<Text>>("select value from settings where section = ? and key = ?",
        { section, key }, [](auto& value, sqlite3_stmt* row) { value = Column(row, 0); });
}

Outcome<Done> SqliteSettingsStore::Write(TextView section, TextView key, TextView value)
{
    return m_connection->Run(replaceEntry, { section, key, value });
}

Outcome<Done> SqliteSettingsStore::DeleteSection(TextView section, Backup const& backup)
{
    return m_connection->DeleteSection(section, backup);
}

Outcome<std::vector<Text>> SqliteSettingsStore::Sections() const
{
    return m_connection->Query<std::vector<Text>>("select distinct section from settings order by section", {},
        [](auto& sections, sqlite3_stmt* row) { sections.push_back(Column(row, 0)); });
}

Outcome<std::vector<SettingsStore::Entry>> SqliteSettingsStore::All() const
{
    return m_connection->Query<std::vector<Entry>>(
        "select section, key, value from settings order by section, key", {}, [](auto& entries, sqlite3_stmt* row) {
            entries.push_back({ Column(row, 0), Column(row, 1), Column(row, 2) });
        });
}

Outcome<Done> SqliteSettingsStore::WriteAll(std::vector<Entry> const& entries, Existing existing)
{
    static auto const fillEntry = std::string(replaceEntry) + " where value = x''";
    return m_connection->RunForAll(existing == Existing::Goes ? replaceEntry : fillEntry.c_str(), entries);
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
