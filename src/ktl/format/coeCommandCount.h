// coeCommandCount.h - how many startup commands a CoE item has.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "ktl/writing/itemWriter.h"

#include <cstddef>
#include <cstdint>

/// Number of commands that a CoE item announces, which may be more than it has bytes for. The count in its head has one
/// byte; 255 means that they are counted by the size.
/// ODD, KEPT: a size with room for more than 254 wins over any count, also where the room is taken by the values of
/// complete accesses, which are then read as commands. One would expect a count below 255 to be true. Pinned by
/// tst_KtlReadCoe::commandCount.
[[nodiscard]] inline std::size_t commandCount(const struct_KTL_COE& head)
{
    constexpr std::uint8_t countFromSize = 255;
    constexpr std::uint32_t mostCounted = 254;
    constexpr std::uint32_t headSize = headSizeOf<struct_KTL_COE, struct_KTL_InitCmd>;
    const std::uint32_t room =
        head.m_iSize < headSize ? 0 : (head.m_iSize - headSize) / std::uint32_t{sizeof(struct_KTL_InitCmd)};
    return head.m_iInitCmdCount == countFromSize || room > mostCounted ? room : head.m_iInitCmdCount;
}
