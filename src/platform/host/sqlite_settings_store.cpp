#include "platform/host/sqlite_settings_store.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <functional>

namespace fs = std::filesystem;

static constexpr int busyTimeout = 2000; // milliseconds: longer than any write of another copy, bearable for a user
static constexpr int applicationId = 0x53504631; // "SPF1", in the file's head, tells our stores from other databases

/// A text as the bytes of its 16-bit characters, the higher one first, so that bytes sort as characters do.
static std::string ToBytes(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (char16_t const character : text) {
        bytes.push_back(static_cast<char>(character >> 8));
        bytes.push_back(static_cast<char>(character & 0xFF));
    }
    return bytes;
}

static Text FromBytes(unsigned char const* bytes, int size)
{
    Text text;
    text.reserve(static_cast<std::size_t>(size) / 2);
    for (int i = 0; i + 1 < size; i += 2)
        text.push_back(static_cast<char16_t>(bytes[i] << 8 | bytes[i + 1]));
    return text;
}

static bool IsDamage(int code)
{
    return (code & 0xFF) == SQLITE_NOTADB || (code & 0xFF) == SQLITE_CORRUPT;
}

static Text ReasonFor(int code)
{
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"it is in use by another program";
    case SQLITE_READONLY:
        return u"it can't be written to";
    case SQLITE_FULL:
        return u"the disk is full";
    case SQLITE_CANTOPEN:
        return u"it can't be opened";
    default:
        return FromUtf8(sqlite3_errstr(code));
    }
}

class SqliteSettingsStore::Connection {
public:
    explicit Connection(fs::path file)
        : m_file(std::move(file))
    {
    }
    ~Connection() { Close(); }
    Connection(Connection const&) = delete;
    Connection& operator=(Connection const&) = delete;

    using Row = std::function<void(sqlite3_stmt*)>;

    /// Runs one statement with these texts bound in order, and hands on its rows. A file found damaged is set aside, and the
    /// statement runs on the new one.
    Outcome<Done> Run(char const* statement, std::initializer_list<TextView> texts, Row const& row = {})
    {
        int code = TryRun(statement, texts, row);
        if (IsDamage(code) && SetAside())
            code = TryRun(statement, texts, row);
        if (code == SQLITE_DONE)
            return Done {};
        return Failure { FromUtf8(m_file.string()), 0, ReasonFor(code) };
    }

    std::optional<Failure> const& Report() const { return m_report; }

private:
    int TryRun(char const* statement, std::initializer_list<TextView> texts, Row const& row)
    {
        if (int const code = Open(); code != SQLITE_OK)
            return code;
        sqlite3_stmt* prepared = nullptr;
        if (int const code = sqlite3_prepare_v2(m_database, statement, -1, &prepared, nullptr); code != SQLITE_OK)
            return code;
        int place = 0;
        for (TextView text : texts) {
            auto const bytes = ToBytes(text);
            sqlite3_bind_blob64(prepared, ++place, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
        }
        int code = sqlite3_step(prepared);
        for (; code == SQLITE_ROW; code = sqlite3_step(prepared))
            if (row)
                row(prepared);
        sqlite3_finalize(prepared);
        return code;
    }

    int Open()
    {
        if (m_database)
            return SQLITE_OK;
        // Made here, so that it is the user's own from the first moment.
        if (int const fresh = ::open(m_file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600); fresh >= 0)
            ::close(fresh);
        int code = OpenWith("file:" + Escaped() , SQLITE_OPEN_READWRITE);
        bool const mayOnlyRead = (code & 0xFF) == SQLITE_READONLY || (code & 0xFF) == SQLITE_CANTOPEN;
        if (mayOnlyRead && fs::is_regular_file(m_file))
            code = OpenWith("file:" + Escaped() + "?immutable=1", SQLITE_OPEN_READONLY);
        return code;
    }

    int OpenWith(std::string const& address, int flags)
    {
        Close();
        int code = sqlite3_open_v2(address.c_str(), &m_database, flags | SQLITE_OPEN_URI, nullptr);
        if (code == SQLITE_OK) {
            sqlite3_busy_timeout(m_database, busyTimeout);
            code = flags == SQLITE_OPEN_READONLY ? Check() : Prepare();
        }
        if (code != SQLITE_OK)
            Close();
        return code;
    }

    /// Damage is the code of a database that is somebody else's.
    int Check()
    {
        int id = 0, tables = 0;
        if (int const code = Number("pragma application_id", id); code != SQLITE_OK)
            return code;
        if (int const code = Number("select count(*) from sqlite_master", tables); code != SQLITE_OK)
            return code;
        bool const isOurs = id == applicationId || (id == 0 && tables == 0);
        return isOurs ? SQLITE_OK : SQLITE_NOTADB;
    }

    int Prepare()
    {
        if (int const code = Check(); code != SQLITE_OK)
            return code;
        int present = 0;
        if (int const code = Number("select count(*) from sqlite_master where name = 'settings'", present); code != SQLITE_OK)
            return code;
        // A write-ahead log needs one flush a commit instead of three, and its readers never wait.
        sqlite3_exec(m_database, "pragma journal_mode = wal", nullptr, nullptr, nullptr);
        sqlite3_exec(m_database, "pragma synchronous = full", nullptr, nullptr, nullptr);
        if (present > 0)
            return SQLITE_OK;
        std::string const make = "begin immediate;"
                                 "create table if not exists settings (section blob not null, key blob not null,"
                                 " value blob not null, primary key (section, key)) without rowid;"
                                 "pragma application_id = "
            + std::to_string(applicationId) + "; commit";
        int const code = sqlite3_exec(m_database, make.c_str(), nullptr, nullptr, nullptr);
        if (code != SQLITE_OK)
            sqlite3_exec(m_database, "rollback", nullptr, nullptr, nullptr);
        return code;
    }

    int Number(char const* question, int& answer)
    {
        sqlite3_stmt* prepared = nullptr;
        int code = sqlite3_prepare_v2(m_database, question, -1, &prepared, nullptr);
        if (code == SQLITE_OK) {
            code = sqlite3_step(prepared);
            answer = sqlite3_column_int(prepared, 0);
            code = code == SQLITE_ROW ? SQLITE_OK : code;
        }
        sqlite3_finalize(prepared);
        return code;
    }

    /// Renames the file, and what SQLite keeps beside it, to the first free name.
    bool SetAside()
    {
        Close();
        fs::path aside;
        int number = 0;
        do
            aside = m_file.string() + ".damaged-" + std::to_string(++number);
        while (fs::exists(aside));
        std::error_code error, ignored;
        fs::rename(m_file, aside, error);
        if (error)
            return false;
        for (char const* companion : { "-wal", "-shm" })
            fs::rename(m_file.string() + companion, aside.string() + companion, ignored);
        m_report = Failure { FromUtf8(m_file.string()), 0,
            u"it was no settings store; it has been set aside as " + FromUtf8(aside.filename().string())
                + u", and a new one has been begun" };
        return true;
    }

    /// The path with what has a meaning in an address written as its code.
    std::string Escaped() const
    {
        static constexpr char digits[] = "0123456789ABCDEF";
        std::string escaped;
        for (char const byte : fs::absolute(m_file).string()) {
            bool const hasMeaning = byte == '?' || byte == '#' || byte == '%';
            if (hasMeaning)
                escaped.append({ '%', digits[static_cast<unsigned char>(byte) >> 4], digits[byte & 15] });
            else
                escaped.push_back(byte);
        }
        return escaped;
    }

    void Close()
    {
        sqlite3_close_v2(m_database);
        m_database = nullptr;
    }

    fs::path m_file;
    sqlite3* m_database = nullptr;
    std::optional<Failure> m_report;
};

static Text Column(sqlite3_stmt* row, int column)
{
    auto const* bytes = static_cast<unsigned char const*>(sqlite3_column_blob(row, column));
    return FromBytes(bytes, sqlite3_column_bytes(row, column));
}

SqliteSettingsStore::SqliteSettingsStore(fs::path file)
    : m_connection(std::make_unique<Connection>(std::move(file)))
{
}

SqliteSettingsStore::~SqliteSettingsStore() = default;

Outcome<std::optional<Text>> SqliteSettingsStore::Read(TextView section, TextView key) const
{
    std::optional<Text> value;
    auto const run = m_connection->Run("select value from settings where section = ? and key = ?", { section, key },
        [&](sqlite3_stmt* row) { value = Column(row, 0); });
    return run ? Outcome<std::optional<Text>>(std::move(value)) : run.failure();
}

Outcome<Done> SqliteSettingsStore::Write(TextView section, TextView key, TextView value)
{
    return m_connection->Run("insert into settings values (?, ?, ?)"
                             " on conflict (section, key) do update set value = excluded.value",
        { section, key, value });
}

Outcome<Done> SqliteSettingsStore::DeleteSection(TextView section)
{
    return m_connection->Run("delete from settings where section = ?", { section });
}

Outcome<std::vector<SettingsStore::Entry>> SqliteSettingsStore::All() const
{
    std::vector<Entry> entries;
    auto const run = m_connection->Run("select section, key, value from settings order by section, key", {},
        [&](sqlite3_stmt* row) { entries.push_back({ Column(row, 0), Column(row, 1), Column(row, 2) }); });
    return run ? Outcome<std::vector<Entry>>(std::move(entries)) : run.failure();
}

std::optional<Failure> SqliteSettingsStore::OpeningReport()
{
    static_cast<void>(m_connection->Run("select 1 from settings limit 1", {}));
    return m_connection->Report();
}
