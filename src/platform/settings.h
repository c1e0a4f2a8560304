#pragma once
// Preferences in the settings store, with the default that a caller names. A store that fails now
// costs no more than a preference, so failures are silent.

#include "platform/settings_store.h"

/// The stored value, or `fallback` if there is none or the store can't be read.
Text ReadSetting(SettingsStore const& settings, TextView section, TextView key, TextView fallback);

/// Doesn't wait for the disk (SettingsStore::WriteUnwatched).
void WriteSetting(SettingsStore& settings, TextView section, TextView key, TextView value);
