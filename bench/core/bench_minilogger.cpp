// The cost of one logged message: a qDebug() through the log handler into
// the log file (formatted with the time stamp, appended in one write, and
// copied to the standard error stream, which points to /dev/null here),
// against the plainest durable C logging, fprintf + fflush to a file.

#include <Orvane/minilogger.h>

#include <QCoreApplication>
#include <QDebug>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "benchsummary.h"

#include <cstdio>
#include <map>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

FILE *peerFile = nullptr;

void BM_LogHandler(benchmark::State &state)
{
    int i = 0;
    for (auto _ : state)
        qDebug("benchmark message %d", ++i);
}
BENCHMARK(BM_LogHandler);

void BM_FprintfFflush(benchmark::State &state)
{
    int i = 0;
    for (auto _ : state) {
        fprintf(peerFile, "benchmark message %d\n", ++i);
        fflush(peerFile);
    }
}
BENCHMARK(BM_FprintfFflush);

// Keeps each benchmark's time per iteration for the ratio.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration)
                times[run.benchmark_name()] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> times;
};

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);

    QTemporaryDir dir;
    if (!dir.isValid())
        return 1;
    Orvane::initMiniLogger(QStringLiteral("bench_"), dir.path());
    peerFile = fopen(qPrintable(dir.filePath(QStringLiteral("peer.txt"))), "a");
    if (!peerFile)
        return 1;

    // The handler's copy on the standard error stream goes nowhere.
    fflush(stderr);
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, STDERR_FILENO);
    close(null);

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    fclose(peerFile);

    const auto ours = reporter.times.find("BM_LogHandler");
    const auto peer = reporter.times.find("BM_FprintfFflush");
    // Times are in nanoseconds, wall clock: the cost a caller of qDebug() waits.
    if (ours != reporter.times.end() && peer != reporter.times.end() && peer->second > 0)
        OrvaneBench::recordCost("initMiniLogger handler, one qDebug() line to the log file (and stderr)",
                                ours->second / 1000.0, peer->second / 1000.0, "us", "fprintf + fflush to a file");
    return 0;
}
