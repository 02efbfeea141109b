// The slice catalogue against the bare cost of the same work:
// - reading a catalogue of 64 sheets (constructing a SliceManager, which
//   runs loadConfig()) against decoding the same 64 sheets into QPixmaps;
// - slice() on a cache hit against a plain QMap<QString, QPixmap> lookup.
// Debug lines go to a handler that drops them, so the log's own cost is
// left out. Qt's pixmap cache is cleared before each read, so every sheet is
// really decoded.
#include <Orvane/slicemanager.h>

#include <benchmark/benchmark.h>

#include "benchsummary.h"

#include <QApplication>
#include <QFile>
#include <QMap>
#include <QPixmapCache>
#include <QResource>
#include <QStringList>

#include <cstdio>
#include <map>
#include <string>

namespace {

QStringList sheetPaths()
{
    QStringList paths;
    for (int i = 0; i < 64; ++i)
        paths << QStringLiteral(":/bench/sheet_%1.png").arg(i, 2, 10, QLatin1Char('0'));
    return paths;
}

const QString hitName = QStringLiteral("s31_r2_e");

void LoadConfig64Sheets(benchmark::State &state)
{
    for (auto _ : state) {
        QPixmapCache::clear();
        Orvane::SliceManager catalogue;
        benchmark::DoNotOptimize(&catalogue);
    }
}

void DecodeSheetsAlone(benchmark::State &state)
{
    const QStringList paths = sheetPaths();
    for (auto _ : state) {
        QPixmapCache::clear();
        QList<QPixmap> sheets;
        for (const QString &path : paths)
            sheets.append(QPixmap(path));
        benchmark::DoNotOptimize(sheets);
    }
}

void SliceCacheHit(benchmark::State &state)
{
    Orvane::SliceManager &catalogue = Orvane::SliceManager::sharedInstance();
    if (catalogue.slice(hitName).isNull())
        state.SkipWithError("the benchmark catalogue has no slice to hit");
    for (auto _ : state) {
        QPixmap pixmap = catalogue.slice(hitName);
        benchmark::DoNotOptimize(pixmap);
    }
}

void MapLookupAlone(benchmark::State &state)
{
    // A map of the catalogue's size, every entry a shared copy of one cut.
    Orvane::SliceManager &catalogue = Orvane::SliceManager::sharedInstance();
    const QPixmap cut = catalogue.slice(hitName);
    QMap<QString, QPixmap> cache;
    for (int sheet = 0; sheet < 64; ++sheet)
        for (int row = 0; row < 4; ++row)
            for (char item = 'a'; item <= 'h'; ++item)
                cache.insert(QStringLiteral("s%1_r%2_%3").arg(sheet).arg(row).arg(QLatin1Char(item)), cut);
    for (auto _ : state) {
        QPixmap pixmap = cache.value(hitName);
        benchmark::DoNotOptimize(pixmap);
    }
}

BENCHMARK(LoadConfig64Sheets)->Unit(benchmark::kMillisecond);
BENCHMARK(DecodeSheetsAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(SliceCacheHit)->Unit(benchmark::kNanosecond);
BENCHMARK(MapLookupAlone)->Unit(benchmark::kNanosecond);

// Keeps each benchmark's CPU time per iteration, in seconds: CPU time, not
// wall time, because the machines we measure on are shared.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs)
            if (!run.error_occurred && run.iterations > 0)
                seconds[run.benchmark_name()] = run.cpu_accumulated_time / double(run.iterations);
        ConsoleReporter::ReportRuns(runs);
    }

    void printRatio(const char *label, const std::string &ours, const std::string &floor, const char *peerName,
                    double scale, const char *unit) const
    {
        const auto a = seconds.find(ours);
        const auto b = seconds.find(floor);
        if (a == seconds.end() || b == seconds.end() || b->second <= 0)
            return;
        OrvaneBench::recordCost(label, a->second * scale, b->second * scale, unit, peerName);
    }

    std::map<std::string, double> seconds;
};

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (!QResource::registerResource(QStringLiteral(BENCH_SLICES_RCC))
        || !QFile::exists(QStringLiteral(":/slices.json"))) {
        std::fprintf(stderr, "cannot register %s\n", BENCH_SLICES_RCC);
        return 1;
    }
    qInstallMessageHandler(dropMessage);

    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nslice catalogue against its floor (CPU time):\n");
    reporter.printRatio("SliceManager::loadConfig, 64 sheets (CPU)", "LoadConfig64Sheets", "DecodeSheetsAlone",
                        "decoding the sheets with QPixmap", 1e3, "ms");
    reporter.printRatio("SliceManager::slice, cache hit (CPU)", "SliceCacheHit", "MapLookupAlone",
                        "a QMap<QString, QPixmap> lookup", 1e9, "ns");
    benchmark::Shutdown();
    return 0;
}
