#include "dialogs/start_options.h"

StartOptions ChooseStartOptions(bool videoExists, TextView programFolder, bool installedCopyExists)
{
    StartOptions options;
    options.coverVideo = !videoExists;
    options.video = videoExists;
    if (Contains(programFolder, u"Program")) {
        options.coverInstall = true;
        options.coverRunFromCD = true;
        options.enter = true;
    } else {
        options.coverEnter = true;
        options.runFromCD = true;
        options.coverInstall = installedCopyExists;
        options.install = !installedCopyExists;
    }
    return options;
}
