#include "cli/patience.h"

#include <thread>

namespace cli {

bool waitFor(const Patience& patience, const std::function<bool()>& hasCome)
{
    constexpr std::chrono::milliseconds interval(20);
    const auto start = std::chrono::steady_clock::now();
    bool isNotified = false;
    while (!hasCome()) {
        const auto waited = std::chrono::steady_clock::now() - start;
        if (waited >= patience.limit)
            return false;
        if (waited >= patience.notifyAfter && !isNotified) {
            patience.notify();
            isNotified = true;
        }
        std::this_thread::sleep_for(interval);
    }
    return true;
}

} // namespace cli
