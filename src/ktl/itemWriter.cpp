#include "ktl/itemWriter.h"

#include <algorithm>

void ItemWriter::append(const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    m_bytes.insert(m_bytes.end(), bytes, bytes + size);
}

void ItemWriter::fill()
{
    if (m_bytes.size() >= m_announcedSize)
        return;
    const std::size_t gap = m_announcedSize - m_bytes.size();
    const std::vector<unsigned char> head(m_bytes.begin(),
                                          m_bytes.begin() + static_cast<std::ptrdiff_t>(std::min(gap, m_headSize)));
    m_bytes.insert(m_bytes.end(), head.begin(), head.end());
    m_bytes.resize(m_announcedSize, 0);
}

std::size_t ItemWriter::writeTo(std::FILE* out)
{
    fill();
    return std::fwrite(m_bytes.data(), m_bytes.size(), 1, out);
}
