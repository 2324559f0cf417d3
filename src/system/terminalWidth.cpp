#include "system/terminalWidth.h"

#include <sys/ioctl.h>
#include <unistd.h>

std::optional<std::size_t> widthOfOutputTerminal()
{
    constexpr std::size_t usualColumns = 80;
    if (isatty(STDOUT_FILENO) == 0)
        return std::nullopt;
    winsize size{};
    const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usualColumns;
}
