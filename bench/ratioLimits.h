// ratioLimits.h - the limits that ratios of times have to keep, and the verdict at the end of the program.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace benchmark {
class State;
}

/// Shows the median of some ratios as the counter "ratio" of a benchmark, with the lowest and the highest beside it and
/// its limit, and remembers it for `limitsAreKept`.
/// @param what    the two times that are compared, as words for the verdict
/// @param ratios  one per pair of runs, at least one
void checkRatio(benchmark::State& state, const std::string& what, const std::vector<double>& ratios, double limit);

/// Writes one line per ratio that was checked so far.
/// @return  whether all of them kept their limits; true if none was checked
[[nodiscard]] bool limitsAreKept(std::ostream& verdict);
