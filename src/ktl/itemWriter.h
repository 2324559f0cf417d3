// itemWriter.h - the one road by which items reach a KTL file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <type_traits>
#include <vector>

/// Builds one item in memory and writes it with one call: the head, the records behind it, and the fill up to the size
/// that the head announces.
class ItemWriter
{
public:
    /// Starts the item with its head.
    /// @param head      record that begins with item type and item size, its fields final
    /// @param headSize  bytes of `head` that stand in the file before the records: all of them, or the offset of the
    ///                  one-element array that stands for the records
    template<typename Head>
    explicit ItemWriter(const Head& head, std::size_t headSize = sizeof(Head))
        : m_announcedSize(head.m_iSize)
        , m_headSize(headSize)
    {
        m_bytes.reserve(m_announcedSize);
        append(&head, headSize, std::is_trivially_copyable<Head>{});
    }

    /// Adds a record as it lies in memory.
    template<typename Record> void add(const Record& record)
    {
        append(&record, sizeof record, std::is_trivially_copyable<Record>{});
    }

    /// Fills the item up to its announced size and writes it.
    /// ODD, KEPT: the fill is a copy of the item's own first bytes and not zero: the fill was always taken from the
    /// head's memory, and checksums over exported files on the controllers in the field have it so. Behind the head's
    /// length the fill is zero. An item that is longer than announced gets no fill; its size stays as announced.
    /// @return  number of items written: 1, or 0 on a short write (disk full)
    std::size_t writeTo(std::FILE* out);

private:
    void append(const void* data, std::size_t size, std::true_type isPlainBytes);
    void fill();

    std::size_t m_announcedSize;
    std::size_t m_headSize;
    std::vector<unsigned char> m_bytes;
};
