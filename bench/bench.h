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

// Runs the body, which performs `operations` operations, `repetitions` times.
template <class Body>
Measure Time(Body body, unsigned long operations, int repetitions = 7)
{
    std::vector<double> perOperation;
    for (int run = 0; run < repetitions; ++run) {
        double start = Now();
        body();
        perOperation.push_back((Now() - start) / static_cast<double>(operations));
    }
    std::sort(perOperation.begin(), perOperation.end());
    double median = perOperation[perOperation.size() / 2];
    return {median, median > 0 ? (perOperation.back() - perOperation.front()) / median : 0};
}

struct Row {
    std::string name;
    std::string baseline;
    Measure ours;
    Measure theirs;
};

inline std::vector<Row>& Rows()
{
    static std::vector<Row> rows;
    return rows;
}

inline void Record(const std::string& name, const std::string& baseline, Measure ours, Measure theirs)
{
    Rows().push_back({name, baseline, ours, theirs});
}

// The table for a person, then one line per row for a script.
inline void Print()
{
    std::printf("%-28s %-26s %12s %12s %8s %8s\n", "measured", "baseline", "ours ns/op", "base ns/op", "ratio",
                "spread");
    for (const Row& row : Rows())
        std::printf("%-28s %-26s %12.1f %12.1f %8.2f %7.0f%%\n", row.name.c_str(), row.baseline.c_str(),
                    row.ours.median, row.theirs.median, row.ours.median / row.theirs.median,
                    100 * std::max(row.ours.spread, row.theirs.spread));
    for (const Row& row : Rows())
        std::printf("bench %s ratio=%.2f\n", row.name.c_str(), row.ours.median / row.theirs.median);
}

// Keeps the optimiser from dropping work whose result nothing reads.
template <class T>
inline void Keep(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

}  // namespace zkbench
