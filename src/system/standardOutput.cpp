#include "system/standardOutput.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace os {

std::string StandardOutput::failure() const
{
    return std::generic_category().message(m_error);
}

StandardOutput::int_type StandardOutput::overflow(int_type character)
{
    if (sync() != 0)
        return traits_type::eof();
    if (!traits_type::eq_int_type(character, traits_type::eof()))
        sputc(traits_type::to_char_type(character));
    return traits_type::not_eof(character);
}

int StandardOutput::sync()
{
    const char* next = pbase();
    while (m_error == 0 && next < pptr()) {
        const ssize_t written = write(STDOUT_FILENO, next, static_cast<std::size_t>(pptr() - next));
        if (written >= 0)
            next += written;
        else if (errno != EINTR)
            m_error = errno;
    }
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    return m_error == 0 ? 0 : -1;
}

} // namespace os
