#pragma once
// The settings store in one SQLite file. Every write is a transaction of its own, on the disk when it is reported as done; copies of
// the program that run together share the file. Sections, keys and values are kept as their 16-bit characters, so any text
// returns exactly. A file that is no settings store is set aside under another name, and a new one begun.

#include "platform/settings_store.h"

#include <filesystem>
#include <memory>

class SqliteSettingsStore final : public SettingsStore {
public:
    /// The file is opened, and made if it is missing, at the first use; if that fails, it is tried again at the next.
    explicit SqliteSettingsStore(std::filesystem::path file);
    ~SqliteSettingsStore() override;

    Outcome<std::optional<Text>> Read(TextView section, TextView key) const override;
    Outcome<Done> Write(TextView section, TextView key, TextView value) override;
    Outcome<Done> DeleteSection(TextView section) override;
    Outcome<std::vector<Entry>> All() const override;

    /// Opens the file if it isn't open. What the user is to be told: that his file had to be set aside.
    std::optional<Failure> OpeningReport();

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};
