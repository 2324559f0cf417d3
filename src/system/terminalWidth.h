// terminalWidth.h - how wide the terminal is that results go to.
#pragma once

#include <cstddef>
#include <optional>

/// Columns of the terminal that standard output goes to, 80 if it does not say; nothing if that is no terminal.
[[nodiscard]] std::optional<std::size_t> widthOfOutputTerminal();
