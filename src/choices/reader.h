// reader.h - reads choices from JSON and holds them against the form of a choices file, not yet against devices.
#pragma once

#include "choices/choices.h"
#include "choices/problems.h"
#include "json/jsonValue.h"

namespace choices {

/// The choices of a file, in its order. A device whose choices are not in the form is told and left out.
[[nodiscard]] FileChoices choicesFrom(const json::Value& file, Problems& problems);

} // namespace choices
