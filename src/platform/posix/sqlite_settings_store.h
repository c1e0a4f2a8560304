#pragma once
// The settings store in one SQLite file. Every write is a transaction of its own, on the disk when
// it is reported as done; copies of the program that run together share the file. Sections, keys
// and values are kept as their 16-bit characters, so any text returns exactly. Whichever operation
// finds the file damaged, or not a settings store, renames it to settings.db.damaged-1 and so on,
// and then works on a new file; TakeReport tells of it. The format is described in
// docs/formats/settings.md. For one thread at a time.

#include "platform/posix/store_file.h"
#include "platform/settings_store.h"

#include <memory>

class SqliteConnection;

class SqliteSettingsStore final : public SettingsStore {
public:
    /// The file is opened, and made with its folder if it is missing, at the first use; if that
    /// fails, it is tried again at the next. `patience` is how long an operation waits for another
    /// program that holds the file: longer than any write of another copy, and bearable for a user.
    /// After one timeout the next operations wait only briefly, until one succeeds.
    explicit SqliteSettingsStore(std::filesystem::path file,
        std::chrono::milliseconds patience = std::chrono::seconds(2),
        OnDamage onDamage = OnDamage::SetAside);
    ~SqliteSettingsStore() override;

    Outcome<std::optional<Text>> Read(TextView section, TextView key) const override;
    Outcome<Done> Write(TextView section, TextView key, TextView value) override;
    /// The backup becomes before-delete-N.backup beside the file (backup_file.h).
    Outcome<Done> DeleteSection(TextView section, Backup const& backup) override;
    Outcome<std::vector<Entry>> InSection(TextView section) const override;
    Outcome<std::vector<Text>> Sections() const override;
    Outcome<std::vector<Entry>> All() const override;
    Outcome<Done> WriteAll(std::vector<Entry> const& entries, Existing existing) override;
    std::optional<Failure> TakeReport() override;

    /// Opens the file, and looks through it once for damage. What the user is to be told, as from
    /// TakeReport.
    std::optional<Failure> OpeningReport();

private:
    std::unique_ptr<SqliteConnection> m_connection;
};
