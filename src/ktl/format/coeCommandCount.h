// coeCommandCount.h - how many startup commands a CoE item has.
#pragma once

#include "ktl/format/headSize.h"
#include "ktl/format/ktlFormat.h"

#include <cstddef>
#include <cstdint>

/// Count in the head of a CoE item, where it has one byte, that means: count the commands by the size of the item.
inline constexpr std::uint8_t countFromSize = 255;

/// Number of commands that a CoE item announces, which may be more than it has bytes for.
/// ODD, KEPT: a size with room for `countFromSize` commands or more wins over any count, also where the values of
/// complete accesses take the room, which are then read as commands. One would expect a lower count to be true. Pinned
/// by tst_KtlReadCoe::commandCount.
[[nodiscard]] inline std::size_t commandCount(const struct_KTL_COE& head)
{
    constexpr std::uint32_t headSize = headSizeOf<struct_KTL_COE, struct_KTL_InitCmd>;
    const std::uint32_t room =
        head.m_iSize < headSize ? 0 : (head.m_iSize - headSize) / std::uint32_t{sizeof(struct_KTL_InitCmd)};
    return head.m_iInitCmdCount == countFromSize || room >= countFromSize ? room : head.m_iInitCmdCount;
}
