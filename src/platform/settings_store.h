#pragma once
// The user's settings store: text values addressed by section and key, all of one application. Whatever was
// written survives the program and a power cut. Texts return exactly as they were written, line ends, empty
// texts and any 16-bit characters included; sections and keys are compared exactly.

#include "base/failure.h"
#include "base/text.h"

#include <optional>
#include <vector>

class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The stored value; nothing if the key was never written. A failure is one of the store itself.
    virtual Outcome<std::optional<Text>> Read(TextView section, TextView key) const = 0;

    virtual Outcome<Done> Write(TextView section, TextView key, TextView value) = 0;

    /// Removes the section with all its keys. No failure if there is none.
    virtual Outcome<Done> DeleteSection(TextView section) = 0;

    struct Entry {
        Text section, key, value;
    };
    /// Everything stored, ordered by section, then key.
    virtual Outcome<std::vector<Entry>> All() const = 0;

    enum class Existing { Stays, Goes };
    /// Writes all of them or none. Where `Stays` is asked for, a value that is there and not empty isn't touched.
    virtual Outcome<Done> WriteAll(std::vector<Entry> const& entries, Existing existing) = 0;
};
