#include "ratioLimits.h"

#include "stopwatch.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ostream>

namespace {

struct CheckedRatio
{
    std::string what;
    double ratio = 0;
    double limit = 0;

    [[nodiscard]] bool isKept() const { return ratio <= limit; }
};

/// The one list of the program: benchmarks are called one after the other, and they have no result of their own.
std::vector<CheckedRatio>& checkedRatios()
{
    static std::vector<CheckedRatio> ratios;
    return ratios;
}

} // namespace

void checkRatio(benchmark::State& state, const std::string& what, const std::vector<double>& ratios, double limit)
{
    const double ratio = medianOf(ratios);
    const auto [lowest, highest] = std::minmax_element(ratios.cbegin(), ratios.cend());
    state.counters["ratio"] = ratio;
    state.counters["lowest"] = *lowest;
    state.counters["highest"] = *highest;
    state.counters["limit"] = limit;
    checkedRatios().push_back({what, ratio, limit});
}

bool limitsAreKept(std::ostream& verdict)
{
    bool areKept = true;
    for (const CheckedRatio& checked : checkedRatios()) {
        verdict << (checked.isKept() ? "kept:   " : "BROKEN: ") << checked.what << " is " << checked.ratio
                << ", the limit is " << checked.limit << '\n';
        areKept = areKept && checked.isKept();
    }
    return areKept;
}
