// itemLimit.h - how many items of a KTL file the workbench reads.
#pragma once

#include <cstddef>
#include <cstdio>

/// ODD, KEPT: the workbench reads this many items of a file, end items included, and a dump shows as many; both then
/// stop as if the file ended there and say nothing. One would expect them to go on: the format has no limit. Pinned by
/// tst_KtlReader::itemLimit.
constexpr std::size_t maxReadItems = 2000;

/// Number of items in a KTL file, by their heads, up to its end or to a head that cannot be.
/// @param ktl  open for reading; read from its start, not closed
[[nodiscard]] std::size_t countItems(std::FILE* ktl);
