#pragma once
// The system's own ways to open a file: a program is started, and for a document xdg-open picks the
// program for its kind.

#include "platform/shell.h"

class PosixShell final : public Shell {
public:
    /// The only verb known is "open". A file that may be executed and can be is started, without
    /// arguments and in the current directory; any other is a document. Gives false for what is no
    /// file below the current directory, and for a document where there is no xdg-open. Returns
    /// when the file has been handed over, without waiting for what becomes of it.
    bool Execute(TextView verb, TextView file) override;
};
