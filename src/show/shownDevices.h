// shownDevices.h - the devices of a file that is shown, one at a time.
#pragma once

#include "show/shownDevice.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>

namespace show {

/// A list whose devices are made when they are asked for. Only the last one is kept: all of a file would take several
/// times the memory of the file.
class ShownDevices
{
public:
    using Maker = std::function<ShownDevice(std::size_t index)>;

    ShownDevices() = default;
    ShownDevices(std::size_t count, Maker maker)
        : m_count(count)
        , m_maker(std::move(maker))
    {}

    [[nodiscard]] std::size_t size() const { return m_count; }

    /// @return  valid until another device of the list is asked for
    [[nodiscard]] const ShownDevice& operator[](std::size_t index) const
    {
        if (!m_last.has_value() || m_lastIndex != index) {
            m_last.reset(); // before the next one takes memory
            m_last.emplace(m_maker(index));
            m_lastIndex = index;
        }
        return *m_last;
    }

private:
    std::size_t m_count = 0;
    Maker m_maker;
    mutable std::optional<ShownDevice> m_last;
    mutable std::size_t m_lastIndex = 0;
};

} // namespace show
