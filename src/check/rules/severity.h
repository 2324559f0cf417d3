// severity.h - how bad a finding is.
#pragma once

#include <cstdint>
#include <string_view>

namespace check {

/// In the order of their weight.
enum class Severity : std::uint8_t
{
    Error, ///< it will not work, or the controller or the workbench refuses it
    Warning, ///< it will probably not do what is meant
    Note,
};

/// Whether a finding is as bad as a threshold, or worse.
[[nodiscard]] constexpr bool reaches(Severity severity, Severity threshold) noexcept
{
    return severity <= threshold;
}

/// Name of a severity, as findings and options have it: "error".
[[nodiscard]] constexpr std::string_view nameOf(Severity severity) noexcept
{
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        break;
    }
    return "note";
}

} // namespace check
