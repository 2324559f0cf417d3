#include "system/quietThread.h"

#include <csignal>

namespace os {

namespace {

/// Holds all signals back from the calling thread, and from those that it starts, as long as it lives.
class AllSignalsBlocked
{
public:
    AllSignalsBlocked()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~AllSignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    AllSignalsBlocked(const AllSignalsBlocked&) = delete;
    AllSignalsBlocked& operator=(const AllSignalsBlocked&) = delete;
    AllSignalsBlocked(AllSignalsBlocked&&) = delete;
    AllSignalsBlocked& operator=(AllSignalsBlocked&&) = delete;

private:
    sigset_t m_before{};
};

} // namespace

std::thread startQuietThread(const std::function<void()>& work)
{
    const AllSignalsBlocked blocked; // a new thread begins with the mask of the one that starts it
    return std::thread(work);
}

} // namespace os
