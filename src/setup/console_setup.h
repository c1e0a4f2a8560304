#pragma once
// Setup without a window: reports on standard output, faults and progress on standard error.

#include "setup/install.h"

#include <functional>

/// Installs or uninstalls, and returns the exit status. `isEndRequested` is called often; true
/// cancels what can be cancelled.
int RunConsoleSetup(
    Task task, SetupPlaces const& places, std::function<bool()> const& isEndRequested);
