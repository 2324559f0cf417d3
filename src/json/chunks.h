// chunks.h - text on its way to a stream, in large pieces.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <ostream>
#include <string_view>

namespace json {

/// Gathers short texts for a stream: the stream alone takes longer over one than most of them take to be copied.
class Chunks
{
public:
    /// @param out  has to outlive this
    explicit Chunks(std::ostream& out)
        : m_out(out)
    {}

    void add(char character) { add(std::string_view(&character, 1)); }
    void add(std::string_view text)
    {
        if (text.size() > m_chunk.size() - m_size)
            flush();
        if (text.size() > m_chunk.size()) {
            m_out.write(text.data(), static_cast<std::streamsize>(text.size()));
            return;
        }
        std::copy(text.begin(), text.end(), m_chunk.data() + m_size);
        m_size += text.size();
    }

    /// Gives the stream what it does not have yet.
    void flush()
    {
        m_out.write(m_chunk.data(), static_cast<std::streamsize>(m_size));
        m_size = 0;
    }

private:
    std::ostream& m_out;
    std::array<char, 8192> m_chunk{};
    std::size_t m_size = 0;
};

} // namespace json
