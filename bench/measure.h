// What the benchmarks share: the time of several tries, their middle, and a line that says whether a bound is
// kept.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace measure {

/// Milliseconds of the wall that @p work takes.
inline double milliseconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// The same of several tries; each is told its number, from 0.
inline std::vector<double> milliseconds(int tries, const std::function<void(int)>& work)
{
    std::vector<double> times;
    for (int i = 0; i < tries; ++i)
        times.push_back(milliseconds([&] { work(i); }));
    return times;
}

/// The median; @p tries must not be empty.
inline double middle(std::vector<double> tries)
{
    std::ranges::sort(tries);
    return tries[tries.size() / 2];
}

/// Begins a line with the middle of @p times in milliseconds and whether it keeps the bound; 0 for none.
inline void printTime(const char* what, const std::vector<double>& times, double bound)
{
    const double time = middle(times);
    std::printf("%-58s %7.1f ms", what, time);
    if (bound > 0)
        std::printf("   (bound %.0f: %s)", bound, time <= bound ? "kept" : "MISSED");
}

/// printTime on a line of its own.
inline void report(const char* what, const std::vector<double>& times, double bound)
{
    printTime(what, times, bound);
    std::puts("");
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
