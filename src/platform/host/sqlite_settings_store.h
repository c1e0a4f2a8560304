#pragma once
// The settings store in one SQLite file. Every write is a transaction of its own, on the disk when
// it is reported as done; copies of the program that run together share the file. Sections, keys
// and values are kept as their 16-bit characters, so any text returns exactly. A file that is
// damaged or no settings store is set aside, as settings.db.damaged-1 and so on, and a new one
// begun; the operation that finds it so fails and says where it is. The file's form stands in
// docs/formats/settings.md.

#include "platform/settings_store.h"

#include <chrono>
#include <filesystem>
#include <memory>

class SqliteSettingsStore final : public SettingsStore {
public:
    /// What becomes of a file that is damaged or no settings store: set aside, or left as it is, for who only wants to read it; then
    /// everything fails.
    enum class Damaged { GoesAside, Stays };

    /// The file is opened, and made if it is missing, at the first use; if that fails, it is tried
    /// again at the next. `patience` is how long an operation waits for another program that holds
    /// the file: longer than any write of another copy, and bearable for a user. After a wait in
    /// vain the next ones wait shortly, until one succeeds.
    explicit SqliteSettingsStore(std::filesystem::path file,
        std::chrono::milliseconds patience = std::chrono::seconds(2), Damaged damaged = Damaged::GoesAside);
    ~SqliteSettingsStore() override;

    Outcome<std::optional<Text>> Read(TextView section, TextView key) const override;
    Outcome<Done> Write(TextView section, TextView key, TextView value) override;
    Outcome<Done> DeleteSection(TextView section) override;
    Outcome<std::vector<Entry>> All() const override;
    Outcome<Done> WriteAll(std::vector<Entry> const& entries, Existing existing) override;

    /// Opens the file, and looks through it once for damage. What the user is to be told: that his
    /// file had to be set aside.
    std::optional<Failure> OpeningReport();

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};
