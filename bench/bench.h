#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace zkbench {

// Nanoseconds per operation over repeated runs: the median and the spread
// (slowest less fastest, as a share of the median).
struct Measure {
    double median;
    double spread;
};

inline double Now()
{
    static LARGE_INTEGER frequency = [] {
        LARGE_INTEGER f;
        QueryPerformanceFrequency(&f);
        return f;
    }();
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return static_cast<double>(count.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

// The median of some runs and their spread: slowest less fastest, as a
// share of the median.
inline Measure Summary(std::vector<double> runs)
{
    std::sort(runs.begin(), runs.end());
    double median = runs[runs.size() / 2];
    return {median, median > 0 ? (runs.back() - runs.front()) / median : 0};
}

// Nanoseconds per operation of one run of a body that performs `operations`.
template <class Body>
double Once(Body& body, unsigned long operations)
{
    double start = Now();
    body();
    return (Now() - start) / static_cast<double>(operations);
}

// Our side and the baseline in the same run, ours and theirs by turns so that
// a change in the machine's pace meets both alike.
struct Comparison {
    Measure ours;
    Measure theirs;
    Measure ratio;
};

// Each turn runs both bodies, each performing `operations` operations; the
// ratio is the median of the turns' own ratios.
template <class Ours, class Theirs>
Comparison Compare(Ours ours, Theirs theirs, unsigned long operations, int turns = 7)
{
    std::vector<double> mine, base, ratios;
    for (int turn = 0; turn < turns; ++turn) {
        mine.push_back(Once(ours, operations));
        base.push_back(Once(theirs, operations));
        ratios.push_back(base.back() > 0 ? mine.back() / base.back() : 0);
    }
    return {Summary(mine), Summary(base), Summary(ratios)};
}

struct Row {
    std::string name;
    std::string baseline;
    Comparison figures;
};

inline std::vector<Row>& Rows()
{
    static std::vector<Row> rows;
    return rows;
}

inline void Record(const std::string& name, const std::string& baseline, const Comparison& figures)
{
    Rows().push_back({name, baseline, figures});
}

// The table for a person, then one line per row for a script.
inline void Print()
{
    std::printf("%-30s %-28s %12s %12s %8s %8s\n", "measured", "baseline", "ours ns/op", "base ns/op", "ratio",
                "spread");
    for (const Row& row : Rows())
        std::printf("%-30s %-28s %12.1f %12.1f %8.2f %7.0f%%\n", row.name.c_str(), row.baseline.c_str(),
                    row.figures.ours.median, row.figures.theirs.median, row.figures.ratio.median,
                    100 * row.figures.ratio.spread);
    for (const Row& row : Rows())
        std::printf("bench %s ratio=%.2f\n", row.name.c_str(), row.figures.ratio.median);
}

// Keeps the optimiser from dropping work whose result nothing reads.
template <class T>
inline void Keep(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

}  // namespace zkbench
