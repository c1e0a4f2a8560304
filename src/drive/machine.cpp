#include "drive/machine.h"

bool RecordingShell::Execute(TextView verb, TextView file)
{
    opened.push_back({ Text(verb), Text(file) });
    return true;
}
