// terminal.h - whether a person reads along.
#pragma once

/// Whether standard output is a terminal.
[[nodiscard]] bool isOutputTerminal();
