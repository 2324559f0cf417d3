// orderedWork.h - work on several threads, whose results come in order.
#pragma once

#include "system/quietThread.h"

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace cli {

/// Does a number of steps of the same work, several at a time, and hands their results over in the order of the steps.
/// No more results wait than there are threads, so memory stays bounded however slowly they are taken.
template<typename Result> class OrderedWork
{
public:
    using Work = std::function<Result(std::size_t step)>;

    /// @param threads  at most; without any, each step is done when its result is taken
    /// @param work     called in any thread; does not throw
    OrderedWork(std::size_t steps, std::size_t threads, Work work)
        : m_work(std::move(work))
        , m_results(steps)
        , m_maxWaiting(std::min(threads, steps))
    {
        try {
            while (m_threads.size() < m_maxWaiting)
                m_threads.push_back(os::startQuietThread([this] { doSteps(); }));
        } catch (const std::system_error&) {
            return; // those that could be started do the work, or else the one that takes the results
        }
    }
    ~OrderedWork() { stopThreads(); }
    OrderedWork(const OrderedWork&) = delete;
    OrderedWork& operator=(const OrderedWork&) = delete;
    OrderedWork(OrderedWork&&) = delete;
    OrderedWork& operator=(OrderedWork&&) = delete;

    /// The result of the next step; to be called once for each.
    [[nodiscard]] Result take()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const std::size_t step = m_taken++;
        m_changed.notify_all();
        if (m_threads.empty() && step == m_begun) {
            m_begun += 1;
            lock.unlock();
            return m_work(step);
        }
        m_changed.wait(lock, [&] { return m_results[step].has_value(); });
        Result result = std::move(*m_results[step]);
        m_results[step].reset();
        return result;
    }

    /// Waits for the steps that have begun. All others are done one at a time, when their results are taken.
    void stopThreads()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isStopping = true;
        }
        m_changed.notify_all();
        for (std::thread& thread : m_threads)
            thread.join();
        m_threads.clear();
    }

private:
    void doSteps()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        while (true) {
            m_changed.wait(lock, [this] { return m_isStopping || m_begun < m_taken + m_maxWaiting; });
            if (m_isStopping || m_begun >= m_results.size())
                return;
            const std::size_t step = m_begun++;
            lock.unlock();
            Result result = m_work(step);
            lock.lock();
            m_results[step] = std::move(result);
            m_changed.notify_all();
        }
    }

    Work m_work;
    std::vector<std::optional<Result>> m_results; ///< that wait to be taken, by step
    std::size_t m_maxWaiting;
    std::mutex m_mutex; ///< of all below
    std::condition_variable m_changed;
    std::size_t m_begun = 0; ///< steps
    std::size_t m_taken = 0; ///< results
    bool m_isStopping = false;
    std::vector<std::thread> m_threads;
};

} // namespace cli
