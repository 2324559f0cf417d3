// showJson.h - values as JSON.
#pragma once

#include "show/showValue.h"

#include <functional>
#include <iosfwd>

namespace show {

/// Writes a value as JSON in UTF-8, without a line feed at the end. A value without a list of objects in it goes
/// on one line; others are spread over indented lines. The same value gives the same bytes.
void writeJson(std::ostream& out, const Value& value);

/// As above, for an object whose last member is known only when the others are written.
/// @param lastMember  gets whether the others could be written
/// @throws std::bad_alloc if they could not; what is written is valid JSON all the same, with null for what is
///         missing
void writeJson(std::ostream& out, const Object& object, const std::function<Member(bool isWhole)>& lastMember);

} // namespace show
