#pragma once
// What the start-up screen offers at the place where the program runs.

#include "base/text.h"

struct StartOptions {
    // Covers over the choices that don't apply.
    bool coverInstall = false, coverVideo = false, coverRunFromCD = false, coverEnter = false;
    // The click areas that can be used.
    bool install = false, video = false, runFromCD = false, enter = false;
};

/// `programFolder` is the folder of the program file: one whose path holds "Program", in exactly
/// that case, is that of an installed copy. Exit is always offered.
StartOptions ChooseStartOptions(bool videoExists, TextView programFolder, bool installedCopyExists);
