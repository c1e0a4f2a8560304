#pragma once
// The system's own way to open a document: xdg-open, which picks the program for the file's kind.

#include "platform/shell.h"

class HostShell final : public Shell {
public:
    /// The only verb known is "open". Gives false for what is no file below the current directory,
    /// and where there is no xdg-open. Returns when the file has been handed over, without waiting
    /// for what becomes of it.
    bool Execute(TextView verb, TextView file) override;
};
