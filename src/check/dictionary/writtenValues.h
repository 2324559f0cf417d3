// writtenValues.h - defaults and limits of a dictionary as values that can be compared.
#pragma once

#include "check/factNames.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace check {

/// A number in an order that is the same for all kinds: of two of one kind the greater one has the greater place.
struct OrderedNumber
{
    std::uint64_t place = 0;
};

/// The number that is meant by a default or limit.
/// @return  nothing if it is none, or cannot be a value of the type
[[nodiscard]] std::optional<OrderedNumber> numberOf(const WrittenValue& value, const TypeShape& shape);

/// The number as people write it.
/// @param kind  that it was read for
[[nodiscard]] QString numberText(const OrderedNumber& number, DataKind kind);

/// Bytes that a default takes.
/// @return  nothing if it has no length by itself: it is a number, or no data
[[nodiscard]] std::optional<std::size_t> bytesOf(const WrittenValue& value);

} // namespace check
