#include "platform/posix/sqlite_connection.h"

#include "platform/posix/descriptor.h"

#include <algorithm>

namespace fs = std::filesystem;

static constexpr std::chrono::milliseconds shortPatience { 50 };

/// No intact store of ours makes a statement compute so long that it is interrupted.
static bool IsDamage(int code)
{
    return code == SQLITE_NOTADB || code == SQLITE_CORRUPT || code == SQLITE_INTERRUPT;
}

static Text ReasonFor(int code)
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

SqliteConnection::SqliteConnection(
    fs::path file, std::chrono::milliseconds patience, OnDamage onDamage)
    : m_file(std::move(file))
    , m_onDamage(onDamage)
    , m_fullPatience(patience)
    , m_patience(patience)
{
}

Outcome<Done> SqliteConnection::Do(Work const& work)
{
    int code = SQLITE_DONE;
    for (int tries = 0; tries < 3; ++tries) {
        code = TryOnce(work);
        if (IsDamage(code)) {
            if (auto const aside = SetAside(); !aside)
                return aside;
        } else if (code != SQLITE_ERROR) { // else the store was emptied while open
            break;
        }
    }
    if (code == SQLITE_CANTOPEN && !m_opening)
        return m_opening;
    return code == SQLITE_DONE ? Outcome<Done>(Done {}) : FileFailure(m_file, ReasonFor(code));
}

int SqliteConnection::TryOnce(Work const& work)
{
    m_database.StartClock(m_patience,
        std::max<std::chrono::nanoseconds>(10 * m_fullPatience, std::chrono::seconds(2)));
    if (m_database.IsOpen() && IdentityOf(m_file) != m_identity) {
        m_database.Close();
        m_isSeenWhole = false;
        m_report = FileFailure(m_file,
            u"it was removed or replaced; what the program shows now is stored in the new file");
    }
    int code = Open();
    if (code == SQLITE_OK)
        code = work(m_database);
    // After one timeout, wait only briefly.
    m_patience = code == SQLITE_BUSY ? std::min(shortPatience, m_fullPatience) : m_fullPatience;
    // Opened again next time: by then the cause may be gone.
    if (code != SQLITE_DONE && code != SQLITE_BUSY)
        m_database.Close();
    return code;
}

int SqliteConnection::Open()
{
    if (m_database.IsOpen())
        return SQLITE_OK;
    m_opening = PrepareStoreFile(m_file);
    if (!m_opening)
        return SQLITE_CANTOPEN;
    m_identity = IdentityOf(m_file);
    if (NamesSuperJournal(m_file))
        return SQLITE_NOTADB;
    int code = m_database.Open(m_file);
    if (code == SQLITE_OK)
        code = CheckInTime();
    if (code != SQLITE_OK) {
        if (int const system = m_database.SystemError(); system != 0)
            m_opening = FileFailure(m_file, system);
        m_database.Close();
    }
    return code;
}

/// As Check. A file that isn't ours by its head isn't waited for long, and doesn't become ours by
/// being locked.
int SqliteConnection::CheckInTime()
{
    auto const isForeign = [this] { return !HasJournal(m_file) && BeginsAsForeign(m_database); };
    bool const wasForeign = isForeign();
    if (wasForeign)
        m_database.ShortenPatience(shortPatience);
    int const code = Check();
    return code == SQLITE_BUSY && wasForeign && isForeign() ? SQLITE_NOTADB : code;
}

/// Makes sure that the database is ours, makes it if it is empty, and checks once that it is whole.
int SqliteConnection::Check()
{
    StoreState state;
    int code = ReadState(m_database, state);
    if (code != SQLITE_OK)
        return code;
    bool const isEmpty = state.IsEmpty();
    if (isEmpty && m_isSeenWhole)
        m_report = FileFailure(
            m_file, u"it was emptied; what the program shows now is stored in it again");
    m_isNewer = state.IsNewer();
    if (!isEmpty && (code = CheckSchema(m_database, state)) != SQLITE_OK)
        return code;
    // One file at rest, and a commit lasts once the folder has been flushed after it. Each takes
    // milliseconds.
    m_database.Execute("pragma journal_mode = delete");
    m_database.Execute("pragma synchronous = extra");
    if (isEmpty || !m_isSeenWhole)
        code = isEmpty ? MakeStore(m_database) : CheckWhole(m_database);
    m_isSeenWhole = code == SQLITE_OK;
    return code;
}

/// Renames the file, unless another copy of the program has done it. Fails if the file has to stay.
Outcome<Done> SqliteConnection::SetAside()
{
    m_database.Close();
    if (m_onDamage == OnDamage::Fail)
        return FileFailure(m_file,
            m_isNewer ? u"it was made by a newer version of this program"
                      : u"it is damaged or not a settings file");
    auto const aside = SetStoreAside(m_file, m_identity, m_database.Deadline());
    if (!aside) {
        m_patience = std::min(shortPatience, m_fullPatience);
        return aside.failure();
    }
    m_isSeenWhole = false;
    if (*aside)
        m_report = FileFailure(m_file,
            u"it is damaged or not a settings file; it was renamed to "
                + FromUtf8((*aside)->filename().string()) + u", and a new file was started");
    return Done {};
}
