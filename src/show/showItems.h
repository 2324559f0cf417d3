// showItems.h - the items of a KTL file, field by field.
#pragma once

#include "ktl/reading/ktlItemWalk.h"
#include "show/showValue.h"

#include <cstddef>
#include <iosfwd>

namespace show {

/// Members of an item: every byte of it is in one of them.
/// @param item  has to outlive the result
[[nodiscard]] Object itemMembers(const KtlFileItem& item);

/// Writes an item for people: a line for each field with its offset in the item, decimal and hexadecimal.
/// @param lineWidth  columns of a line, `anyWidth` where lines may be as long as they are
void writeItemText(std::ostream& out, const KtlFileItem& item, std::size_t lineWidth);

} // namespace show
