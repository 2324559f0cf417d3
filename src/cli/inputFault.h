// inputFault.h - why a file that the user names cannot be used.
#pragma once

#include "cli/messages.h"
#include "esi/esiFile.h"

#include <QString>

#include <cstdint>

namespace cli {

/// What kind of fault it is.
enum class InputFaultKind : std::uint8_t
{
    Unreadable,
    NotWellFormed, ///< or beyond a limit
    NoVendor, ///< XML, but no ESI file
    OtherKind, ///< none of those that are taken
};

/// Why a file cannot be used.
struct InputFault
{
    InputFaultKind kind;
    QString text;
    int line = 0; ///< from 1; 0 if it is about no place
    int column = 0; ///< from 1; 0 if it is about no place
};

/// @param reason  in the system's words
[[nodiscard]] InputFault unreadable(const QString& reason);
[[nodiscard]] InputFault noMemory();

/// Why an ESI file was not loaded.
/// @param status  not `Loaded`
[[nodiscard]] InputFault faultOf(EsiLoadStatus status, const EsiLoadReason& reason);

/// Reports a fault.
/// @param path  of the file
void report(const InputFault& fault, const QString& path, Messages& messages);

} // namespace cli
