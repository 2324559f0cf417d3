// exitCode.h - what the script that called the command gets back.
#pragma once

namespace cli {

/// Exit status of the command.
enum class ExitCode
{
    Done = 0,
    DoneWithWarnings = 1, ///< done, but there were warnings, and the caller wants to know (`--strict`)
    DoneWithFindings = DoneWithWarnings, ///< checked, and there are findings of the severity that the caller named
    Different = DoneWithWarnings, ///< compared, and something differs
    NothingFound = DoneWithWarnings, ///< looked through, and nothing fits
    Unusable = 2, ///< input or arguments cannot be used
    NotWritten = 3, ///< an output cannot be written: a full disk, a closed pipe, a missing permission
};

} // namespace cli
