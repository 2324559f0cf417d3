// itemWriter.h - the one road by which items reach a KTL file.
#pragma once

#include "ktl/format/headSize.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <type_traits>
#include <vector>

/// What comes between the last record of an item and the size that the item announces. An item that is as long as
/// announced, or longer, gets no fill, and its size stays as announced.
enum class ItemFill
{
    /// ODD, KEPT: the fill is a copy of the item's own first bytes, where one would expect zeros. It is zero only after
    /// as many bytes as the head has. Pinned by tst_CompleteAccess::fillComesFromTheHead.
    CopyOfHead,
    Zeros,
    Nothing, ///< the item stays as short as it is
};

/// Builds one item in memory and writes it as a whole: the head, the records after it, and the fill up to the size that
/// the head announces. Items are many and short, so only a long one takes memory besides the writer's own.
class ItemWriter
{
public:
    /// Starts the item with its head.
    /// @param head      record that begins with item type and item size, its fields final
    /// @param headSize  bytes of `head` that are in the file, see `headSizeOf`
    template<typename Head>
    explicit ItemWriter(const Head& head, std::size_t headSize = sizeof(Head))
        : m_announcedSize(head.m_iSize)
        , m_headSize(headSize)
    {
        static_assert(std::is_trivially_copyable_v<Head>, "a head is written as it lies in memory");
        static_assert(sizeof(Head) <= roomSize, "a fill is copied from the head in the room");
        append(&head, headSize);
    }

    /// Adds a record as it lies in memory.
    template<typename Record> void add(const Record& record)
    {
        static_assert(std::is_trivially_copyable_v<Record>, "a record is written as it lies in memory");
        append(&record, sizeof record);
    }

    /// Fills the item up to its announced size and writes it.
    /// @return  number of items written: 1, or 0 on a short write (disk full)
    std::size_t writeTo(std::FILE* out, ItemFill fill = ItemFill::CopyOfHead);

private:
    static constexpr std::size_t roomSize = 4096;

    /// Inline, so that a record is a copy of known length.
    void append(const void* data, std::size_t size)
    {
        if (size > roomSize - m_roomUsed || !m_rest.empty())
            return appendToRest(data, size);
        std::memcpy(m_room.data() + m_roomUsed, data, size);
        m_roomUsed += size;
    }
    void appendToRest(const void* data, std::size_t size);
    void addFill(ItemFill fill);

    std::size_t m_announcedSize;
    std::size_t m_headSize;
    std::size_t m_roomUsed = 0;
    std::array<unsigned char, roomSize> m_room; ///< the item's first bytes; left unset beyond `m_roomUsed`
    std::vector<unsigned char> m_rest; ///< all bytes from the first record on that found no room
};

/// Writes an item that is a list of records after its head; the item's size follows from the records.
/// @param head      all fields but the size
/// @param sources   what the records are made from, in order
/// @param recordOf  the record of one source
template<typename Item, typename Source, typename RecordOf>
void writeListItem(std::FILE* out, Item head, const std::vector<Source>& sources, RecordOf recordOf)
{
    using Record = std::decay_t<decltype(recordOf(sources.front()))>;
    constexpr std::size_t headSize = headSizeOf<Item, Record>;
    head.m_iSize = static_cast<std::uint32_t>(headSize + sources.size() * sizeof(Record));
    ItemWriter item(head, headSize);
    for (const Source& source : sources)
        item.add(recordOf(source));
    item.writeTo(out);
}

/// As above, for records that are ready to be written.
template<typename Item, typename Record>
void writeListItem(std::FILE* out, const Item& head, const std::vector<Record>& records)
{
    writeListItem(out, head, records, [](const Record& record) { return record; });
}
