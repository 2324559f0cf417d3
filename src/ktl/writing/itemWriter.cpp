#include "ktl/writing/itemWriter.h"

#include <algorithm>

void ItemWriter::appendToRest(const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    m_rest.insert(m_rest.end(), bytes, bytes + size);
}

void ItemWriter::addFill(ItemFill fill)
{
    const std::size_t length = m_roomUsed + m_rest.size();
    if (length >= m_announcedSize || fill == ItemFill::Nothing)
        return;
    std::size_t gap = m_announcedSize - length;
    if (fill == ItemFill::CopyOfHead) {
        const std::size_t copied = std::min(gap, m_headSize); // no more than the head has
        append(m_room.data(), copied);
        gap -= copied;
    }
    m_rest.resize(m_rest.size() + gap, 0);
}

std::size_t ItemWriter::writeTo(std::FILE* out, ItemFill fill)
{
    addFill(fill);
    const std::size_t items = std::fwrite(m_room.data(), m_roomUsed, 1, out);
    return m_rest.empty() ? items : std::min(items, std::fwrite(m_rest.data(), m_rest.size(), 1, out));
}
