#ifndef ORVANE_BENCHSUMMARY_H
#define ORVANE_BENCHSUMMARY_H

// Every benchmark reports each comparison with its peer through one of the
// two functions below: one line on standard output and, when the environment
// variable ORVANE_BENCH_SUMMARY names a file, one tab-separated row appended
// to it. `make bench` gathers the rows into the summary table
// (build-bench/bench-summary.md) that the README's performance section shows.

#include <cstdio>
#include <cstdlib>

namespace OrvaneBench {

namespace detail {

inline void record(const char *measurement, double ours, double peer, const char *unit, const char *peerName,
                   const char *better, const char *target)
{
    const double ratio = peer > 0 ? ours / peer : 0.0;
    std::printf("ratio: %s: %.4g %s against %s %.4g %s = %.2fx (%s is better%s%s)\n", measurement, ours, unit,
                peerName, peer, unit, ratio, better, *target ? "; target " : "", target);
    std::fflush(stdout);
    const char *path = std::getenv("ORVANE_BENCH_SUMMARY");
    if (!path || !*path)
        return;
    if (FILE *file = std::fopen(path, "a")) {
        std::fprintf(file, "%s\t%.4g %s\t%s\t%.4g %s\t%.2fx\t%s\t%s\n", measurement, ours, unit, peerName, peer, unit,
                     ratio, better, target);
        std::fclose(file);
    }
}

} // namespace detail

// A cost (time, CPU): ours / peer, lower is better.
inline void recordCost(const char *measurement, double ours, double peer, const char *unit, const char *peerName,
                       const char *target = "")
{
    detail::record(measurement, ours, peer, unit, peerName, "lower", target);
}

// A rate (throughput): ours / peer, higher is better.
inline void recordRate(const char *measurement, double ours, double peer, const char *unit, const char *peerName,
                       const char *target = "")
{
    detail::record(measurement, ours, peer, unit, peerName, "higher", target);
}

} // namespace OrvaneBench

#endif // ORVANE_BENCHSUMMARY_H
