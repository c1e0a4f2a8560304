#pragma once
// Setup in a window.

#include "setup/options.h"
#include "setup/places.h"

#include <functional>

/// Shows the window until it is closed; true from `isEndRequested`, asked some times a second,
/// closes it. `words` are the program's, of which only the first is looked at. Gives the exit
/// status.
int RunSetupWindow(Task task, SetupPlaces const& places,
    std::function<bool()> const& isEndRequested, char** words);
