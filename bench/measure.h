// What the benchmarks share: a middle of several tries, and a line that says whether a bound is kept.
#pragma once

#include <algorithm>
#include <cstdio>
#include <vector>

namespace measure {

/// The median; @p tries must not be empty.
inline double middle(std::vector<double> tries)
{
    std::ranges::sort(tries);
    return tries[tries.size() / 2];
}

/// Prints the middle of @p ratios with all of them, so that a reader sees how far they lie apart.
inline void printRatios(const char* what, const std::vector<double>& ratios, double bound)
{
    const double ratio = middle(ratios);
    std::printf("%-28s %5.2f   (bound %.1f: %s; measured", what, ratio, bound,
                ratio <= bound ? "kept" : "MISSED");
    for (const double one : ratios)
        std::printf(" %.2f", one);
    std::puts(")");
}

} // namespace measure
