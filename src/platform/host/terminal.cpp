#include "platform/host/terminal.h"

#include <unistd.h>

bool IsErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}
