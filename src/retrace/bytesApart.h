// bytesApart.h - how far two device blocks are from each other.
#pragma once

#include <cstddef>
#include <vector>

namespace retrace {

/// How many bytes differ between two device blocks, item by item. Items of a type that are the same in both belong
/// together, wherever they are, and those that are left pair in the order of their bytes; an item that is left alone
/// differs in all of its bytes.
[[nodiscard]] std::size_t bytesApart(const std::vector<unsigned char>& left, const std::vector<unsigned char>& right);

} // namespace retrace
