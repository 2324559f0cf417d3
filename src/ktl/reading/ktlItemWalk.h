// ktlItemWalk.h - the items of a KTL file one after another, and the parts of each, as far as bytes are there. Unlike
// the reader it has no limit on the number of items, and says what is wrong with a file.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "ktl/format/ktlLayout.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// One item of a file.
struct KtlFileItem
{
    std::size_t offset; ///< in the file
    std::uint32_t type;
    std::uint32_t announcedSize; ///< by its head, at least 8
    ItemBytes bytes; ///< those that are there, at most as many as announced
};

/// How the items of a file end.
enum class KtlWalkEnd
{
    Whole, ///< with an End item
    NoEndItem, ///< with another item, so that the last run was cut short
    CutItem, ///< in the middle of the last item
    CutHead, ///< in the middle of a head
    ImpossibleHead, ///< at a head with a size below 8 or a negative type; the place of the next item is unknown
};

/// The items of a file.
struct KtlWalk
{
    std::vector<KtlFileItem> items;
    KtlWalkEnd end = KtlWalkEnd::Whole;
    std::size_t offset = 0; ///< where they end; that of the head for `CutHead` and `ImpossibleHead`
};

/// Whether the place of the next item is unknown: a head with a size below 8, or a negative size or type.
[[nodiscard]] bool isImpossible(const KtlItemHead& head);

/// Walks from item to item. A file without bytes ends in a head that is cut.
/// @param file  has to outlive the result
[[nodiscard]] KtlWalk walkItems(const std::vector<unsigned char>& file);
[[nodiscard]] KtlWalk walkItems(const unsigned char* bytes, std::size_t size); ///< as above

/// Follows the heads of a file that is still being read, so that nothing is read after one that makes no sense.
class KtlHeads
{
public:
    /// @param file  what is there by now, from the start of the file
    /// @return  false at an impossible head
    [[nodiscard]] bool goOn(const std::vector<unsigned char>& file);

private:
    std::size_t m_next = 0; ///< place of the next head; past the end where an item is not there whole
};

/// Where the parts of an item lie, as far as its bytes are there: offsets in the item, each the end of one part and the
/// start of the next. A field or record that is there in part only belongs to the rest, which goes up to the end.
struct KtlItemParts
{
    std::size_t headEnd = 0; ///< after the last field of the head that is there
    std::size_t records = 0; ///< number of records that are there
    std::size_t recordsEnd = 0;
    std::size_t tailEnd = 0; ///< of values, text or words
    std::size_t fillEnd = 0; ///< of bytes without a meaning, which an export puts there
};

[[nodiscard]] KtlItemParts partsOf(const KtlItemLayout& layout, const ItemBytes& item);

/// Number in a field of an item.
/// @param record  offset of the record in the item
/// @param index   place in an array
[[nodiscard]] std::int64_t numberIn(const ItemBytes& item, std::size_t record, const KtlField& field,
                                    std::size_t index = 0);
