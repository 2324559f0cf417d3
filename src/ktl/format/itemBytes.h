// itemBytes.h - the one road by which items leave a KTL file: records are taken out only as far as bytes are there.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <vector>

/// The bytes of one item, head included. They belong to the caller and must outlive this.
class ItemBytes
{
public:
    /// @param size  bytes that are really there; what the item's head announces is not believed
    ItemBytes(const unsigned char* bytes, std::size_t size)
        : m_bytes(bytes)
        , m_size(size)
    {}

    [[nodiscard]] std::size_t size() const { return m_size; }

    /// The record at an offset. Bytes of it that are not there are 0.
    template<typename Record> [[nodiscard]] Record at(std::size_t offset) const
    {
        static_assert(std::is_trivially_copyable_v<Record>, "a record is read as it lies in the file");
        Record record{};
        if (offset < m_size)
            std::memcpy(&record, m_bytes + offset, std::min(sizeof record, m_size - offset));
        return record;
    }

    /// Number of records after a head, `count` of them at most: a record of which no byte is there does not count.
    template<typename Record> [[nodiscard]] std::size_t recordCount(std::size_t headSize, std::size_t count) const
    {
        const std::size_t room = m_size > headSize ? m_size - headSize : 0;
        return std::min(count, (room + sizeof(Record) - 1) / sizeof(Record));
    }

    /// Appends what is made of each record after a head, in their order.
    /// @param count   of records at most, see `recordCount`
    /// @param makeOf  `makeOf(record, index)` gives the element
    template<typename Record, typename Element, typename MakeOf>
    void appendRecords(std::vector<Element>& to, std::size_t headSize, std::size_t count, MakeOf makeOf) const
    {
        const std::size_t records = recordCount<Record>(headSize, count);
        if (to.empty())
            to.reserve(records); // not after others: many short items would move them again and again
        for (std::size_t index = 0; index < records; ++index)
            to.push_back(makeOf(at<Record>(headSize + index * sizeof(Record)), index));
    }

private:
    const unsigned char* m_bytes;
    std::size_t m_size;
};
