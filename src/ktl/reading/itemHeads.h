// itemHeads.h - the heads of a KTL file one after another, as the reader and the dump take them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

/// Reads the heads of a file. What an item holds after its head is read by the caller.
class ItemHeads
{
public:
    /// @param ktl  open for reading, where its first item begins; must outlive this
    explicit ItemHeads(std::FILE* ktl)
        : m_ktl(ktl)
    {}

    /// Reads the next head.
    /// @return  false at the end of the file, at a head that cannot be, and after `maxReadItems` items
    [[nodiscard]] bool next();

    /// Of the last head that was read.
    [[nodiscard]] std::int32_t type() const { return m_type; }
    [[nodiscard]] std::int32_t size() const { return m_size; } ///< bytes, head included, as announced

    /// Whether the items end at a head that cannot be: a size that does not hold the head itself, or a negative type.
    [[nodiscard]] bool endAtImpossibleHead() const { return m_isImpossible; }

private:
    std::FILE* m_ktl;
    std::size_t m_count = 0;
    std::int32_t m_type = 0;
    std::int32_t m_size = 0;
    bool m_isImpossible = false;
};
