// ktlDump.cpp - the text dump of a KTL file. It knows item heads only and interprets no records.
#include "ktl/format/ktlLayout.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/itemHeads.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

/// Words that the file does not hold are shown for an item up to this number: the size of a broken item may announce
/// billions of them.
constexpr std::int32_t maxMissingWords = 65536;

/// Writes the name of an item; a code without one, and the end item too, leaves a gap.
void dumpName(std::FILE* log, std::int32_t itemType)
{
    const auto type = static_cast<std::uint32_t>(itemType);
    if (type == KTL_ITEM_END || !isKnownItem(type))
        std::fputs("  \r\n  0x", log);
    else
        std::fprintf(log, " %s \r\n  0x", layoutOf(type).name);
}

/// Writes the words that an item announces after the end of the file: zeros, up to the limit.
void dumpMissingWords(std::FILE* log, std::int32_t words)
{
    for (std::int32_t index = 0; index < std::min(words, maxMissingWords); ++index)
        std::fputs("0 \t", log);
}

/// Writes the words of an item after its head. A word that the file does not hold is 0, and of one that the file ends
/// in, the missing bytes are 0. A last part of less than four bytes before the announced end stays unread.
/// @return  whether the file holds all that the item announces
bool dumpWords(std::FILE* log, std::FILE* ktl, std::int32_t itemSize)
{
    constexpr auto headSize = static_cast<std::int32_t>(sizeof(KtlItemHead));
    constexpr auto wordSize = static_cast<std::int32_t>(sizeof(std::uint32_t));
    const std::int32_t words = (itemSize - headSize) / wordSize;
    for (std::int32_t index = 0; index < words; ++index) {
        unsigned char bytes[sizeof(std::uint32_t)] = {};
        if (std::fread(bytes, 1, sizeof bytes, ktl) == 0) {
            dumpMissingWords(log, words - index);
            return false;
        }
        std::uint32_t word = 0;
        std::memcpy(&word, bytes, sizeof word);
        std::fprintf(log, "%x \t", word);
    }
    return true;
}

/// The loop over the items.
/// @return  false at an item head that cannot be
bool dumpItems(std::FILE* log, std::FILE* ktl)
{
    ItemHeads heads(ktl);
    while (heads.next()) {
        std::fprintf(log, "ItemHead-dec: %d,Len: %d   ", heads.type(), heads.size());
        dumpName(log, heads.type());
        const bool isWhole = dumpWords(log, ktl, heads.size());
        std::fputs("\r\n", log);
        if (!isWhole)
            return true; // the file has ended, or cannot be read any further
    }
    if (heads.endAtImpossibleHead())
        std::fprintf(log, "Err para: Id value-dec: %d,Len: %d\r\n  \r\n", heads.type(), heads.size());
    return !heads.endAtImpossibleHead();
}

} // namespace

bool KTL_write_log_devices(std::FILE* log, std::FILE* ktl, int* piErrorCode)
{
    if (piErrorCode != nullptr)
        *piErrorCode = 0;
    if (log == nullptr || ktl == nullptr)
        return false;
    static_cast<void>(std::fseek(ktl, 0, SEEK_SET)); // a stream that cannot seek is read from where it is
    std::fprintf(log, "KTL Version %s \n", versionText);
    return dumpItems(log, ktl);
}
