// ktlLayout.h - the items of a KTL file as tables: every field of every record, made from the packed records, so that
// what is shown of a file cannot differ from what is written.
#pragma once

#include "ktl/format/itemBytes.h"

#include <array>
#include <cstddef>
#include <cstdint>

/// What the number in a field means.
enum class KtlMeaning
{
    Number,
    DeviceType, ///< a value of enum_KTL_DEVICE_TYPE
    Direction, ///< a value of enum_KTL_SMFMMU_TYPE
    Link, ///< a value of enum_KTL_PDO_TYPE
    Transition, ///< an NMTOKEN
    Access, ///< an NMTOKEN
    AssignActivate, ///< bits of the distributed clocks
};

/// One field of a record.
struct KtlField
{
    const char* name; ///< as the packed record names it
    std::size_t offset; ///< in the record
    std::size_t width; ///< bytes of one value: 1, 2 or 4
    std::size_t count; ///< values of an array; 1 for a field that is none
    bool isSigned;
    KtlMeaning meaning;

    [[nodiscard]] constexpr std::size_t end() const { return offset + width * count; }

    /// The same field, for a number with a meaning.
    [[nodiscard]] constexpr KtlField as(KtlMeaning what) const { return {name, offset, width, count, isSigned, what}; }
};

/// All fields of a record, in their order and without a gap.
class KtlFields
{
public:
    constexpr KtlFields() = default;
    template<std::size_t Size>
    constexpr explicit KtlFields(const std::array<KtlField, Size>& fields)
        : m_first(fields.data())
        , m_count(Size)
    {}

    [[nodiscard]] constexpr const KtlField* begin() const { return m_first; }
    [[nodiscard]] constexpr const KtlField* end() const { return m_first + m_count; }
    /// Bytes of the record.
    [[nodiscard]] constexpr std::size_t size() const { return m_count == 0 ? 0 : m_first[m_count - 1].end(); }

private:
    const KtlField* m_first = nullptr;
    std::size_t m_count = 0;
};

/// What follows the records of an item.
enum class KtlTail
{
    Nothing,
    AccessValues, ///< 32-bit values of the complete accesses, then a fill
    Text, ///< UTF-8, then zeros
    Words, ///< of unknown meaning: 32-bit words
};

/// One kind of item.
struct KtlItemLayout
{
    std::uint32_t type; ///< a code of enum_KTL_ITEM_TYPE
    const char* name; ///< as the text dump names it
    KtlFields head; ///< what precedes the records
    KtlFields record; ///< of the records after the head; empty if there are none
    /// Number of records that the item announces. It is not to be believed; null if there are none.
    std::size_t (*announcedRecords)(const ItemBytes& item);
    KtlTail tail;
};

/// The layout of an item type. One that is not known has the head that all items have, no name, and words after it.
[[nodiscard]] const KtlItemLayout& layoutOf(std::uint32_t itemType);

/// Whether an item type has a code of its own in this version of the format.
[[nodiscard]] bool isKnownItem(std::uint32_t itemType);
