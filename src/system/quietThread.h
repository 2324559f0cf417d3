// quietThread.h - threads that no signal interrupts.
#pragma once

#include <functional>
#include <thread>

namespace os {

/// Starts a thread that gets no signals: whether one has to wait is for the thread that does the work to decide.
/// @throws std::system_error if no thread can be started
[[nodiscard]] std::thread startQuietThread(const std::function<void()>& work);

} // namespace os
