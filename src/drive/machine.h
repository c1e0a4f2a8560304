#pragma once
// What the commands act on: the program on the headless host, and what is recorded beside it.

#include "controls/input.h"
#include "controls/screen.h"
#include "drive/json.h"
#include "headless/headless_host.h"
#include "platform/settings_store.h"
#include "platform/shell.h"

#include <set>
#include <vector>

/// A shell that opens nothing and keeps what it was given.
class RecordingShell final : public Shell {
public:
    bool Execute(TextView verb, TextView file) override
    {
        opened.push_back({ Text(verb), Text(file) });
        return true;
    }

    struct Document {
        Text verb, file;
    };
    std::vector<Document> opened;
};

struct Machine {
    HeadlessHost& host;
    Screen& screen;
    SettingsStore& settings;
    RecordingShell& shell;
    Input input { screen };

    std::set<PropertyBase const*> watched {};
    std::vector<Json> changes {}; ///< of watched properties, not yet asked for
};
