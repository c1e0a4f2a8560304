#include "dialogs/start_options.h"

StartOptions ChooseStartOptions(bool videoExists, TextView programFolder, bool installedCopyExists)
{
    bool const isInstalled = Contains(programFolder, u"Program");
    return { videoExists, !isInstalled && !installedCopyExists, !isInstalled, isInstalled };
}
