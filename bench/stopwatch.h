// stopwatch.h - time of one step, for benchmarks that compare two steps by themselves.
#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <vector>

/// Measures the processor time, system calls included, that the program has taken since the stopwatch was made. What is
/// measured here runs in one thread and reads from the file cache, so on an idle machine that is the time on the clock;
/// on a busy one it leaves out what other programs take.
class Stopwatch
{
public:
    [[nodiscard]] double seconds() const { return secondsOfProcess() - m_start; }

private:
    [[nodiscard]] static double secondsOfProcess()
    {
        constexpr double nanoseconds = 1e-9;
        std::timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * nanoseconds;
    }

    double m_start = secondsOfProcess();
};

/// The middle one of the values, the higher of the two for an even number of them; `values` must not be empty.
[[nodiscard]] inline double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
