// standardOutput.h - standard output that can say why it cannot be written.
#pragma once

#include <array>
#include <streambuf>
#include <string>

namespace os {

/// The buffer of a stream that writes to standard output. After the first failure nothing more is written.
class StandardOutput final : public std::streambuf
{
public:
    StandardOutput() { setp(m_buffer.data(), m_buffer.data() + m_buffer.size()); }

    /// Why it cannot be written, in the system's words.
    [[nodiscard]] std::string failure() const;

protected:
    int_type overflow(int_type character) override;
    int sync() override;

private:
    std::array<char, 65536> m_buffer{};
    int m_error = 0; ///< of the system; 0 as long as all was written
};

} // namespace os
