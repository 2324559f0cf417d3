#include "system/endingSignals.h"

#include <csignal>
#include <cstdint>
#include <initializer_list>
#include <system_error>
#include <thread>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace os {

namespace {

bool isIgnored(int signalNumber)
{
    struct sigaction action = {};
    return sigaction(signalNumber, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

/// Blocks the signals, and the thread that waits for them.
class EndingSignals::Watch
{
public:
    explicit Watch(std::function<void()> tidyUp);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    Watch(Watch&&) = delete;
    Watch& operator=(Watch&&) = delete;

    [[nodiscard]] std::unique_lock<std::mutex> heldBack() { return std::unique_lock<std::mutex>(m_mutex); }

private:
    void startThread();
    void waitForSignal();

    std::function<void()> m_tidyUp;
    sigset_t m_signals{};
    sigset_t m_before{};
    int m_arrived = -1; ///< readable when a signal has come
    int m_end = -1; ///< readable when the thread has to end
    std::mutex m_mutex;
    std::thread m_thread;
};

EndingSignals::Watch::Watch(std::function<void()> tidyUp)
    : m_tidyUp(std::move(tidyUp))
{
    sigemptyset(&m_signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        if (!isIgnored(number))
            sigaddset(&m_signals, number);
    pthread_sigmask(SIG_BLOCK, &m_signals, &m_before);
    m_arrived = signalfd(-1, &m_signals, SFD_CLOEXEC);
    m_end = eventfd(0, EFD_CLOEXEC);
    if (m_arrived >= 0 && m_end >= 0)
        startThread();
}

EndingSignals::Watch::~Watch()
{
    if (m_thread.joinable()) {
        const std::uint64_t one = 1;
        static_cast<void>(write(m_end, &one, sizeof one) == sizeof one); // it cannot be full
        m_thread.join();
    }
    for (const int file : {m_arrived, m_end})
        if (file >= 0)
            close(file);
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

/// Where no thread can be started, the signals wait until the end of this object.
void EndingSignals::Watch::startThread()
{
    try {
        m_thread = std::thread(&Watch::waitForSignal, this);
    } catch (const std::system_error&) {
        return;
    }
}

void EndingSignals::Watch::waitForSignal()
{
    pollfd events[] = {{m_arrived, POLLIN, 0}, {m_end, POLLIN, 0}};
    while (poll(events, std::size(events), -1) < 0)
        continue; // interrupted
    if (events[0].revents == 0)
        return;
    const std::unique_lock<std::mutex> held = heldBack();
    m_tidyUp();
    pthread_sigmask(SIG_UNBLOCK, &m_signals, nullptr); // the signal is still there, and ends the process here
}

EndingSignals::EndingSignals(std::function<void()> tidyUp)
    : m_watch(std::make_unique<Watch>(std::move(tidyUp)))
{}

EndingSignals::~EndingSignals() = default;

std::unique_lock<std::mutex> EndingSignals::heldBack()
{
    return m_watch->heldBack();
}

} // namespace os
