#pragma once
// A shell that opens nothing, keeps what it was given and fails on demand.

#include "platform/shell.h"

#include <utility>
#include <vector>

class MemoryShell final : public Shell {
public:
    /// While set, nothing can be handed over.
    bool failing = false;
    /// What was handed over: verb and file.
    std::vector<std::pair<Text, Text>> opened;

    bool Execute(TextView verb, TextView file) override
    {
        if (!failing)
            opened.emplace_back(verb, file);
        return !failing;
    }
};
