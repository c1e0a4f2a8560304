#pragma once
// A settings store in memory that fails on demand.

#include "platform/settings_store.h"

#include <map>
#include <utility>

class MemorySettingsStore final : public SettingsStore {
public:
    /// The `call`-th call from now on (1: the next one) fails; 0 for none.
    void FailAt(int call) { m_failAt = call == 0 ? 0 : m_calls + call; }
    /// While set, every call fails; every reading one; every writing one.
    bool failing = false, unreadable = false, unwritable = false;
    std::size_t longest = Text::npos; ///< a longer value can't be written
    bool failsToBackUp = false;
    std::vector<std::vector<Entry>> backups; ///< written before deletions
    int writes = 0; ///< tried so far
    /// Loses everything: the next call finds the store damaged and begins it anew.
    void Damage() { m_isDamaged = true; }

    int Calls() const { return m_calls; }
    /// The stored value, "(none)" without one.
    Text Value(TextView section, TextView key) const
    {
        auto const found = m_values.find({ Text(section), Text(key) });
        return found == m_values.end() ? Text(u"(none)") : found->second;
    }

    Outcome<std::optional<Text>> Read(TextView section, TextView key) const override
    {
        if (CantRead())
            return Unusable();
        auto const found = m_values.find({ Text(section), Text(key) });
        return found == m_values.end() ? std::optional<Text>() : std::optional<Text>(found->second);
    }
    Outcome<Done> Write(TextView section, TextView key, TextView value) override
    {
        if (CantWrite() || value.size() > longest)
            return Unusable();
        m_values[{ Text(section), Text(key) }] = value;
        return Done {};
    }
    Outcome<Done> DeleteSection(TextView section, Backup const& backup) override
    {
        if (CantWrite())
            return Unusable();
        std::vector<Entry> stored;
        for (auto const& [place, value] : m_values)
            if (place.first == section)
                stored.push_back({ place.first, place.second, value });
        if (auto kept = backup(stored); !kept.empty()) {
            if (failsToBackUp)
                return Failure { u"before-delete-1.backup", 0, u"the disk is full" };
            backups.push_back(std::move(kept));
        }
        std::erase_if(m_values, [&](auto const& entry) { return entry.first.first == section; });
        return Done {};
    }
    Outcome<std::vector<Entry>> InSection(TextView section) const override
    {
        if (CantRead())
            return Unusable();
        std::vector<Entry> entries;
        for (auto const& [place, value] : m_values)
            if (place.first == section)
                entries.push_back({ place.first, place.second, value });
        return entries;
    }
    Outcome<std::vector<Text>> Sections() const override
    {
        if (CantRead())
            return Unusable();
        std::vector<Text> sections;
        for (auto const& [place, value] : m_values)
            if (sections.empty() || sections.back() != place.first)
                sections.push_back(place.first);
        return sections;
    }
    Outcome<std::vector<Entry>> All() const override
    {
        if (CantRead())
            return Unusable();
        std::vector<Entry> entries;
        for (auto const& [place, value] : m_values)
            entries.push_back({ place.first, place.second, value });
        return entries;
    }

    Outcome<Done> WriteAll(std::vector<Entry> const& entries, Existing existing) override
    {
        if (CantWrite())
            return Unusable();
        for (auto const& entry : entries) {
            Text& value = m_values[{ entry.section, entry.key }];
            if (existing == Existing::Goes || value.empty())
                value = entry.value;
        }
        return Done {};
    }
    std::optional<Failure> TakeReport() override { return std::exchange(m_report, std::nullopt); }

private:
    static Failure Unusable() { return { u"settings.db", 0, u"the store is locked" }; }
    bool Fails() const
    {
        if (std::exchange(m_isDamaged, false)) {
            m_values.clear();
            m_report = Failure { u"settings.db", 0,
                u"it is damaged; it has been set aside as settings.db.damaged-1" };
        }
        return ++m_calls == m_failAt || failing;
    }
    bool CantRead() const { return Fails() || unreadable; }
    bool CantWrite() { return ++writes, Fails() || unwritable; }

    mutable std::map<std::pair<Text, Text>, Text> m_values;
    mutable std::optional<Failure> m_report;
    mutable bool m_isDamaged = false;
    mutable int m_calls = 0;
    int m_failAt = 0;
};
