#pragma once
// What is wrong with the input of a subcommand, collected so that one run reports all of it.

#include "base/failure.h"

#include <cstddef>
#include <string>
#include <vector>

struct Fault {
    std::string file; ///< as the user named it
    int line = 0; ///< counted from 1; 0 if the file as a whole is meant
    std::string message; ///< UTF-8, without a full stop
};

/// "file:line: message", or "file: message" without a line: one line, fit for a terminal
/// (base/printable.h).
std::string ToString(Fault const& fault);

using Faults = std::vector<Fault>;

/// A failure of the platform as a fault of the input.
Fault ToFault(Failure const& failure);
