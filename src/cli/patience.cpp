#include "cli/patience.h"

#include <thread>

bool waitFor(const Patience& patience, const std::function<bool()>& hasCome)
{
    constexpr std::chrono::milliseconds interval(20);
    const auto start = std::chrono::steady_clock::now();
    bool isTold = false;
    while (!hasCome()) {
        const auto waited = std::chrono::steady_clock::now() - start;
        if (waited >= patience.limit)
            return false;
        if (waited >= patience.tellAfter && !isTold) {
            patience.tell();
            isTold = true;
        }
        std::this_thread::sleep_for(interval);
    }
    return true;
}
