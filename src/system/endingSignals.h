// endingSignals.h - INT, TERM and HUP, by which users and build servers end programs.
#pragma once

#include <functional>
#include <memory>
#include <mutex>

namespace os {

/// As long as it lives, these signals end the process as they do without it, but not before it has tidied up, and not
/// while they are held back. A thread of its own waits for them, so that they count in the middle of a slow write too.
/// Signals that the process was told to ignore stay ignored.
class EndingSignals
{
public:
    /// @param tidyUp  is called in the other thread before the process ends
    explicit EndingSignals(std::function<void()> tidyUp);
    ~EndingSignals();
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;
    EndingSignals(EndingSignals&&) = delete;
    EndingSignals& operator=(EndingSignals&&) = delete;

    /// Holds the signals back as long as the result lives. What `tidyUp` reads is to be changed under it only.
    [[nodiscard]] std::unique_lock<std::mutex> heldBack();

private:
    class Watch; // so that no word of the system is needed here

    std::unique_ptr<Watch> m_watch;
};

} // namespace os
