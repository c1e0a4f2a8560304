#pragma once
// What the start-up screen offers at the place where the program runs.

#include "base/text.h"

/// The choices that apply. Each other one is covered and can't be used.
struct StartOptions {
    bool video, install, runFromCD, enter;
};

/// `programFolder` is that of an installed copy if its path has "Program" in it, in exactly that
/// case. Exit is always offered.
StartOptions ChooseStartOptions(bool videoExists, TextView programFolder, bool installedCopyExists);
