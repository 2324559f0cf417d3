// patience.h - waiting that is announced after a while, and ends.
#pragma once

#include <chrono>
#include <functional>

namespace cli {

/// How long to wait for something.
struct Patience
{
    std::chrono::milliseconds notifyAfter = std::chrono::seconds(2);
    std::chrono::milliseconds limit = std::chrono::seconds(30);
    std::function<void()> notify = [] {}; ///< called once, when the waiting gets long
};

/// Asks again and again, and at least once, whether something has come.
/// @return  false if it has not come within the limit
[[nodiscard]] bool waitFor(const Patience& patience, const std::function<bool()>& hasCome);

} // namespace cli
