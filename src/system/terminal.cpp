#include "system/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace os {

namespace {

int descriptorOf(OutputStream stream)
{
    return stream == OutputStream::Results ? STDOUT_FILENO : STDERR_FILENO;
}

} // namespace

bool isTerminal(OutputStream stream)
{
    return isatty(descriptorOf(stream)) != 0;
}

std::optional<std::size_t> terminalWidth(OutputStream stream)
{
    constexpr std::size_t usualColumns = 80;
    if (!isTerminal(stream))
        return std::nullopt;
    winsize size{};
    const bool isKnown = ioctl(descriptorOf(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usualColumns;
}

} // namespace os
