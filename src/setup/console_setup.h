#pragma once
// Setup as text: what is done on standard output, faults and progress on standard error.

#include "setup/options.h"
#include "setup/places.h"

#include <functional>

/// Installs or uninstalls. `isEndRequested` is asked often, and true cancels what can be cancelled.
/// Gives the exit status.
int RunConsoleSetup(
    Task task, SetupPlaces const& places, std::function<bool()> const& isEndRequested);
