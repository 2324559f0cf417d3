#include "ktl/itemLimit.h"

#include "ktl/ktlFormat.h"

#include <limits>

std::size_t countItems(std::FILE* ktl)
{
    constexpr auto maxNumber = static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max());
    std::rewind(ktl);
    std::size_t count = 0;
    KtlItemHead head{};
    while (std::fread(&head, sizeof head, 1, ktl) == 1) {
        const std::uint32_t type = head.m_iItemType;
        const std::uint32_t size = head.m_iSize;
        if (size < sizeof head || size > maxNumber || type > maxNumber)
            break;
        ++count;
        if (std::fseek(ktl, static_cast<long>(size - sizeof head), SEEK_CUR) != 0)
            break;
    }
    return count;
}
