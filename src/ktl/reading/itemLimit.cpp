#include "ktl/reading/itemLimit.h"

#include "ktl/format/ktlFormat.h"
#include "ktl/reading/ktlItemWalk.h"

std::size_t countItems(std::FILE* ktl)
{
    std::rewind(ktl);
    std::size_t count = 0;
    KtlItemHead head{};
    while (std::fread(&head, sizeof head, 1, ktl) == 1) {
        if (isImpossible(head))
            break;
        ++count;
        if (std::fseek(ktl, static_cast<long>(head.m_iSize - sizeof head), SEEK_CUR) != 0)
            break;
    }
    return count;
}
