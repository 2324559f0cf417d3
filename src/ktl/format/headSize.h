// headSize.h - how long the head of an item with records is.
#pragma once

#include <cstddef>

/// Bytes of an item's head that are in the file before its records: the one-element array at the end of the item is a
/// placeholder for them and does not count.
template<typename Item, typename Record> inline constexpr std::size_t headSizeOf = sizeof(Item) - sizeof(Record);
