#pragma once
// A settings store in memory that fails on demand.

#include "platform/settings_store.h"

#include <map>
#include <utility>

class MemorySettingsStore final : public SettingsStore {
public:
    /// The `call`-th call from now on (1: the next one) fails; 0 for none.
    void FailAt(int call) { m_failAt = call == 0 ? 0 : m_calls + call; }
    /// While set, every call fails.
    bool failing = false;
    int Calls() const { return m_calls; }
    /// The stored value, "(none)" without one.
    Text Value(TextView section, TextView key) const
    {
        auto const found = m_values.find({ Text(section), Text(key) });
        return found == m_values.end() ? Text(u"(none)") : found->second;
    }

    Outcome<std::optional<Text>> Read(TextView section, TextView key) const override
    {
        if (Fails())
            return Unusable();
        auto const found = m_values.find({ Text(section), Text(key) });
        return found == m_values.end() ? std::optional<Text>() : std::optional<Text>(found->second);
    }
    Outcome<Done> Write(TextView section, TextView key, TextView value) override
    {
        if (Fails())
            return Unusable();
        m_values[{ Text(section), Text(key) }] = value;
        return Done {};
    }
    Outcome<Done> DeleteSection(TextView section) override
    {
        if (Fails())
            return Unusable();
        std::erase_if(m_values, [&](auto const& entry) { return entry.first.first == section; });
        return Done {};
    }
    Outcome<std::vector<Entry>> All() const override
    {
        if (Fails())
            return Unusable();
        std::vector<Entry> entries;
        for (auto const& [place, value] : m_values)
            entries.push_back({ place.first, place.second, value });
        return entries;
    }

    Outcome<Done> WriteAll(std::vector<Entry> const& entries, Existing existing) override
    {
        if (Fails())
            return Unusable();
        for (auto const& entry : entries) {
            Text& value = m_values[{ entry.section, entry.key }];
            if (existing == Existing::Goes || value.empty())
                value = entry.value;
        }
        return Done {};
    }

private:
    static Failure Unusable() { return { u"settings.db", 0, u"the store is locked" }; }
    bool Fails() const { return ++m_calls == m_failAt || failing; }

    std::map<std::pair<Text, Text>, Text> m_values;
    mutable int m_calls = 0;
    int m_failAt = 0;
};
