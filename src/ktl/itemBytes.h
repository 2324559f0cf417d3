// itemBytes.h - the one road by which items leave a KTL file: records are taken out only as far as bytes are there.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// The bytes of one item, head included. They belong to somebody else and must outlive this.
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

    /// Calls `visit(record, index)` for each record behind a head, `count` of them at most: a record of which no byte
    /// is there is not read.
    template<typename Record, typename Visitor>
    void forEachRecord(std::size_t headSize, std::size_t count, Visitor visit) const
    {
        for (std::size_t index = 0; index < count; ++index) {
            const std::size_t offset = headSize + index * sizeof(Record);
            if (offset >= m_size)
                return;
            visit(at<Record>(offset), index);
        }
    }

private:
    const unsigned char* m_bytes;
    std::size_t m_size;
};
