#pragma once
// Opening documents through the system.

#include "base/text.h"

class Shell {
public:
    virtual ~Shell() = default;

    /// Hands a document to the system to open or start. `file` is relative to the current
    /// directory. Gives false if it can't be handed over; what it then does is out of the program's
    /// sight.
    virtual bool Execute(TextView verb, TextView file) = 0;
};
