#include "ktl/reading/itemHeads.h"

#include "ktl/format/ktlFormat.h"
#include "ktl/reading/itemLimit.h"

namespace {

void readNumber(std::FILE* ktl, std::int32_t& number)
{
    std::int32_t value = 0;
    if (std::fread(&value, sizeof value, 1, ktl) == 1)
        number = value;
}

} // namespace

/// ODD, KEPT: a number that the file does not hold whole is that of the item before, 0 before the first, and the head
/// is judged by it; so an empty file is an error. One would expect a cut head to be the end of the file. Pinned by
/// tst_KtlReader::failure and tst_KtlDump::brokenFile.
bool ItemHeads::next()
{
    constexpr auto smallestItem = static_cast<std::int32_t>(sizeof(KtlItemHead));
    if (m_count == maxReadItems || std::feof(m_ktl) != 0)
        return false;
    readNumber(m_ktl, m_type);
    readNumber(m_ktl, m_size);
    m_isImpossible = m_size < smallestItem || m_type < 0;
    if (m_isImpossible || std::feof(m_ktl) != 0)
        return false;
    ++m_count;
    return true;
}
