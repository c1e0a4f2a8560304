#include "platform/settings.h"

Text ReadSetting(SettingsStore const& settings, TextView section, TextView key, TextView fallback)
{
    auto const value = settings.Read(section, key);
    return value && *value ? **value : Text(fallback);
}

void WriteSetting(SettingsStore& settings, TextView section, TextView key, TextView value)
{
    settings.WriteUnwatched(section, key, value);
}
