// The spinning label against plain Qt: the cost of one frame (turn and cut)
// against QPixmap::transformed of the same picture, and the CPU time a
// spinning label takes per second of animation against a plain QLabel that
// shows QPixmap::transformed frames from an animation of its own.
#include <Orvane/rotationlabel.h>

#include "widgets/rotationlabel_p.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QTransform>
#include <QVariantAnimation>

#include <benchmark/benchmark.h>

#include "benchsummary.h"

#include <sys/resource.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

QPixmap picture(int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0x30, 0x70, 0xC0));
    painter.setPen(QPen(Qt::white, size / 10.0));
    painter.drawEllipse(QRectF(size * 0.1, size * 0.1, size * 0.8, size * 0.8));
    painter.fillRect(QRectF(size * 0.45, 0, size * 0.1, size * 0.3), Qt::red);
    painter.end();
    return QPixmap::fromImage(image);
}

// Angles visited in turn: every frame of a one-second turn at 60 Hz.
qreal angleOf(int frame)
{
    return (frame % 60) * 6.0 + 0.5;
}

void BM_LabelFrame(benchmark::State &state)
{
    const QPixmap source = picture(int(state.range(0)));
    int frame = 0;
    for (auto _ : state) {
        QPixmap shown = Orvane::rotatedFrame(source, angleOf(frame++));
        benchmark::DoNotOptimize(shown);
    }
}

void BM_PlainTransformed(benchmark::State &state)
{
    const QPixmap source = picture(int(state.range(0)));
    int frame = 0;
    for (auto _ : state) {
        QPixmap shown = source.transformed(QTransform().rotate(angleOf(frame++)), Qt::SmoothTransformation);
        benchmark::DoNotOptimize(shown);
    }
}

BENCHMARK(BM_LabelFrame)->Arg(32)->Arg(128)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PlainTransformed)->Arg(32)->Arg(128)->Unit(benchmark::kMicrosecond);

// Keeps each run's CPU time per iteration, by name, for the ratios: the
// machine is shared, and both sides run on this one thread.
class CollectingReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs)
            times[run.benchmark_name()] = run.GetAdjustedCPUTime();
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> times;
};

double processCpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// Counts the paints of a widget: one per frame shown.
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return QObject::eventFilter(watched, event);
    }
    int paints = 0;
};

struct CpuUse
{
    double cpuMsPerSecond = 0;
    double framesPerSecond = 0;
};

// Runs the event loop with `label` shown for `seconds` and measures the
// process's CPU time per second of wall time.
CpuUse measureCpu(QLabel *label, double seconds)
{
    PaintCounter counter;
    label->installEventFilter(&counter);
    label->show();
    QCoreApplication::processEvents();
    counter.paints = 0;

    QEventLoop loop;
    QElapsedTimer wall;
    const double cpuBefore = processCpuSeconds();
    wall.start();
    QTimer::singleShot(int(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
    const double elapsed = double(wall.nsecsElapsed()) / 1e9;
    const double cpu = processCpuSeconds() - cpuBefore;
    label->hide();
    label->removeEventFilter(&counter);
    return {cpu * 1000.0 / elapsed, counter.paints / elapsed};
}

void compareCpu(int size, double seconds)
{
    const QPixmap source = picture(size);

    QLabel still;
    still.setPixmap(source);
    const CpuUse idle = measureCpu(&still, seconds);

    Orvane::RotationLabel spinning;
    spinning.setPixmap(source);
    spinning.startRotating(1000);
    const CpuUse ours = measureCpu(&spinning, seconds);
    spinning.stopRotating();

    // The peer: a plain label showing the whole turned picture, centred.
    QLabel plain;
    plain.setAlignment(Qt::AlignCenter);
    plain.setFixedSize(source.size() * 2);
    QVariantAnimation animation;
    animation.setDuration(1000);
    animation.setStartValue(0.0f);
    animation.setEndValue(360.0f);
    animation.setLoopCount(-1);
    QObject::connect(&animation, &QVariantAnimation::valueChanged, &plain, [&plain, &source](const QVariant &value) {
        plain.setPixmap(source.transformed(QTransform().rotate(value.toReal()), Qt::SmoothTransformation));
    });
    plain.setPixmap(source);
    animation.start();
    const CpuUse peer = measureCpu(&plain, seconds);
    animation.stop();

    std::printf("CPU per second of animation, %d px: spinning label %.0f frames/s, plain QLabel %.0f frames/s, "
                "still label %.1f ms\n",
                size, ours.framesPerSecond, peer.framesPerSecond, idle.cpuMsPerSecond);
    const std::string label = "RotationLabel, CPU per second of spinning, " + std::to_string(size) + " px";
    OrvaneBench::recordCost(label.c_str(), ours.cpuMsPerSecond, peer.cpuMsPerSecond, "ms",
                            "a QLabel showing QPixmap::transformed frames");
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    for (int size : {32, 128}) {
        const std::string arg = "/" + std::to_string(size);
        const auto ours = reporter.times.find("BM_LabelFrame" + arg);
        const auto peer = reporter.times.find("BM_PlainTransformed" + arg);
        if (ours != reporter.times.end() && peer != reporter.times.end() && peer->second > 0) {
            const std::string label = "RotationLabel, one frame, " + std::to_string(size) + " px (CPU)";
            OrvaneBench::recordCost(label.c_str(), ours->second, peer->second, "us", "QPixmap::transformed");
        }
    }
    for (int size : {32, 128})
        compareCpu(size, 3.0);
    std::fflush(stdout);
    benchmark::Shutdown();
    return 0;
}
