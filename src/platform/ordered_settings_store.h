#pragma once
// A settings store that is used beside a writer: everything that is asked of it comes after what
// the writer was given before, so the program sees one order of events. Preferences are
// written by the writer too.

#include "platform/settings_store.h"
#include "platform/writer.h"

class OrderedSettingsStore final : public SettingsStore {
public:
    /// Both outlive this object. `store` is used through it alone.
    OrderedSettingsStore(SettingsStore& store, Writer& writer)
        : m_store(store)
        , m_writer(writer)
    {
    }

    Outcome<std::optional<Text>> Read(TextView section, TextView key) const override
    {
        return InOrder().Read(section, key);
    }
    Outcome<Done> Write(TextView section, TextView key, TextView value) override
    {
        return InOrder().Write(section, key, value);
    }
    void WriteUnwatched(TextView section, TextView key, TextView value) override
    {
        m_writer.Later([this, section = Text(section), key = Text(key), value = Text(value)] {
            static_cast<void>(m_store.Write(section, key, value));
        });
    }
    Outcome<Done> DeleteSection(TextView section, Backup const& backup) override
    {
        return InOrder().DeleteSection(section, backup);
    }
    Outcome<std::vector<Entry>> InSection(TextView section) const override
    {
        return InOrder().InSection(section);
    }
    Outcome<std::vector<Text>> Sections() const override { return InOrder().Sections(); }
    Outcome<std::vector<Entry>> All() const override { return InOrder().All(); }
    Outcome<Done> WriteAll(std::vector<Entry> const& entries, Existing existing) override
    {
        return InOrder().WriteAll(entries, existing);
    }
    /// Nothing while the writer is at work.
    std::optional<Failure> TakeReport() override
    {
        return m_writer.IsIdle() ? m_store.TakeReport() : std::nullopt;
    }

private:
    SettingsStore& InOrder() const
    {
        m_writer.Wait();
        return m_store;
    }

    SettingsStore& m_store;
    Writer& m_writer;
};
