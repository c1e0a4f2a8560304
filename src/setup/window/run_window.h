#pragma once
// Setup in a window.

#include "setup/install.h"

#include <functional>

/// Shows the window until it is closed, and returns the exit status. `isEndRequested` is called
/// several times a second; true closes the window. Of the program's `words` only the first is used.
int RunSetupWindow(Task task, SetupPlaces const& places,
    std::function<bool()> const& isEndRequested, char** words);
