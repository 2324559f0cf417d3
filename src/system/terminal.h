// terminal.h - whether a person reads along, and how wide a line that person sees.
#pragma once

#include <cstddef>
#include <optional>

namespace os {

/// A stream that a terminal may show.
enum class OutputStream
{
    Results, ///< standard output
    Messages, ///< standard error
};

/// Whether a stream goes to a terminal.
[[nodiscard]] bool isTerminal(OutputStream stream);

/// Columns of the terminal that a stream goes to, 80 if it does not say; nothing if that is no terminal.
[[nodiscard]] std::optional<std::size_t> terminalWidth(OutputStream stream);

} // namespace os
