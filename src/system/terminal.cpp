#include "system/terminal.h"

#include <unistd.h>

bool isOutputTerminal()
{
    return isatty(STDOUT_FILENO) != 0;
}
