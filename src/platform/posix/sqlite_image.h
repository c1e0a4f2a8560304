#pragma once
// A settings store as the bytes of its file, made and read in memory. A file read in this way can't
// change, bring a journal, or be set aside.

#include "platform/settings_store.h"

#include <string>
#include <string_view>

/// Fails if there isn't enough memory, or for entries that couldn't be read again.
Outcome<std::string> WriteStoreImage(std::vector<SettingsStore::Entry> const& entries);

/// The entries, ordered by section, then key. Fails if the bytes aren't those of a whole store, by
/// the rules for the settings store's file.
Outcome<std::vector<SettingsStore::Entry>> ReadStoreImage(std::string_view bytes);
