#pragma once
// The user's settings store: text values addressed by section and key, all of one application.
// Whatever was written survives the program and a power cut. Texts return exactly as they were
// written, line ends, empty texts and any 16-bit characters included; sections and keys are
// compared exactly.

#include "base/failure.h"
#include "base/text.h"

#include <functional>
#include <optional>
#include <vector>

class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The stored value; nothing if the key was never written. A failure is one of the store
    /// itself.
    virtual Outcome<std::optional<Text>> Read(TextView section, TextView key) const = 0;

    virtual Outcome<Done> Write(TextView section, TextView key, TextView value) = 0;
    /// The same for a value whose failure nobody would be told: the caller may be spared the wait
    /// for the disk. Whatever is asked of the store afterwards sees the value.
    virtual void WriteUnwatched(TextView section, TextView key, TextView value)
    {
        static_cast<void>(Write(section, key, value));
    }

    struct Entry {
        Text section, key, value;
    };
    /// Given what a section holds, gives what a backup of it is to hold; nothing for no backup.
    using Backup = std::function<std::vector<Entry>(std::vector<Entry> const& stored)>;
    static std::vector<Entry> NoBackup(std::vector<Entry> const&) { return {}; }
    /// Removes the section with all its keys, in one transaction, after its backup has been written
    /// to a file of its own beside the store. If the backup can't be written, nothing is removed.
    /// No failure if there is no such section.
    virtual Outcome<Done> DeleteSection(TextView section, Backup const& backup) = 0;

    /// What a section holds, ordered by key; empty if there is no such section.
    virtual Outcome<std::vector<Entry>> InSection(TextView section) const = 0;
    /// The names of all sections.
    virtual Outcome<std::vector<Text>> Sections() const = 0;

    /// Everything stored, ordered by section, then key.
    virtual Outcome<std::vector<Entry>> All() const = 0;

    enum class Existing { Stays, Goes };
    /// Writes all of them or none. Where `Stays` is asked for, a value that is there and not empty
    /// isn't touched.
    virtual Outcome<Done> WriteAll(std::vector<Entry> const& entries, Existing existing) = 0;

    /// What the user is to be told of the store itself, once: that it was found damaged, where it
    /// has been put, and that a new one was begun. Never waits.
    virtual std::optional<Failure> TakeReport() = 0;
};
