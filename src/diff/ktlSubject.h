// ktlSubject.h - devices of KTL files as they are compared.
#pragma once

#include "diff/subject.h"
#include "facts/ktlFacts.h"

#include <cstddef>

namespace diff {

/// A device of a KTL file. It refers to the facts.
/// @param index  of the device in the file
[[nodiscard]] Subject ktlSubjectOf(const facts::KtlFacts& facts, std::size_t index);

} // namespace diff
