#include "ktl/writing/itemWriter.h"

#include <algorithm>

void ItemWriter::append(const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    m_bytes.insert(m_bytes.end(), bytes, bytes + size);
}

/// As much of the head as the gap takes, and no more than the head has.
void ItemWriter::addCopyOfHead()
{
    const std::size_t length = std::min(m_announcedSize - m_bytes.size(), m_headSize);
    const std::vector<unsigned char> head(m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(length));
    m_bytes.insert(m_bytes.end(), head.begin(), head.end());
}

std::size_t ItemWriter::writeTo(std::FILE* out, ItemFill fill)
{
    if (m_bytes.size() < m_announcedSize && fill != ItemFill::Nothing) {
        if (fill == ItemFill::CopyOfHead)
            addCopyOfHead();
        m_bytes.resize(m_announcedSize, 0);
    }
    return std::fwrite(m_bytes.data(), m_bytes.size(), 1, out);
}
