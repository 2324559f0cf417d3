// patience.h - waiting that is told after a while and ends.
#pragma once

#include <chrono>
#include <functional>

/// How long something is waited for.
struct Patience
{
    std::chrono::milliseconds tellAfter = std::chrono::seconds(2);
    std::chrono::milliseconds limit = std::chrono::seconds(30);
    std::function<void()> tell = [] {}; ///< called once, when the waiting begins to be long
};

/// Asks again and again, and at least once, whether something has come.
/// @return  false if it has not come within the limit
[[nodiscard]] bool waitFor(const Patience& patience, const std::function<bool()>& hasCome);
