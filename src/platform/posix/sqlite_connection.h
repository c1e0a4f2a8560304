#pragma once
// The settings store's file while it is in use: opened when it is needed, checked, waited for, and
// set aside when it turns out to be damaged.

#include "platform/posix/sqlite_schema.h"
#include "platform/posix/store_file.h"

class SqliteConnection {
public:
    /// As SqliteSettingsStore.
    SqliteConnection(
        std::filesystem::path file, std::chrono::milliseconds patience, OnDamage onDamage);

    /// Does the work, which returns SQLITE_DONE if it succeeds. If the file turns out to be
    /// damaged, it is set aside and the work is done once more, on the new store.
    using Work = std::function<int(SqliteDatabase&)>;
    Outcome<Done> Do(Work const& work);

    std::filesystem::path const& File() const { return m_file; }
    std::optional<Failure> TakeReport() { return std::exchange(m_report, std::nullopt); }

private:
    int TryOnce(Work const& work);
    int Open();
    int CheckInTime();
    int Check();
    Outcome<Done> SetAside();

    std::filesystem::path m_file;
    OnDamage m_onDamage;
    std::chrono::milliseconds m_fullPatience, m_patience;
    SqliteDatabase m_database;
    FileIdentity m_identity {}; // of the file that is open
    Outcome<Done> m_opening = Done {};
    bool m_isSeenWhole = false;
    bool m_isNewer = false; // as far as its head tells
    std::optional<Failure> m_report;
};
