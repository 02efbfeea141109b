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
#include <time.h>

#include <algorithm>
#include <cstdio>
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

double threadCpuMicroseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

constexpr int FrameRounds = 15;
constexpr int FramesPerRound = 240;

struct FrameTimes
{
    double ours = 0;
    double peer = 0;
};

// Microseconds of CPU per frame, ours and the peer's, each the median of
// rounds taken in turn over the same angles.
FrameTimes compareFrames(int size)
{
    const QPixmap source = picture(size);
    std::vector<double> ours;
    std::vector<double> peer;
    for (int r = 0; r <= FrameRounds; ++r) {
        double start = threadCpuMicroseconds();
        for (int frame = 0; frame < FramesPerRound; ++frame) {
            QPixmap shown = Orvane::rotatedFrame(source, angleOf(frame));
            benchmark::DoNotOptimize(shown);
        }
        const double oursUs = (threadCpuMicroseconds() - start) / FramesPerRound;
        start = threadCpuMicroseconds();
        for (int frame = 0; frame < FramesPerRound; ++frame) {
            QPixmap shown = source.transformed(QTransform().rotate(angleOf(frame)), Qt::SmoothTransformation);
            benchmark::DoNotOptimize(shown);
        }
        const double peerUs = (threadCpuMicroseconds() - start) / FramesPerRound;
        if (r == 0)
            continue; // warm-up
        ours.push_back(oursUs);
        peer.push_back(peerUs);
    }
    std::sort(ours.begin(), ours.end());
    std::sort(peer.begin(), peer.end());
    return {ours[ours.size() / 2], peer[peer.size() / 2]};
}

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

constexpr int CpuRounds = 6;

CpuUse medianUse(std::vector<CpuUse> uses)
{
    std::sort(uses.begin(), uses.end(), [](const CpuUse &a, const CpuUse &b) { return a.cpuMsPerSecond < b.cpuMsPerSecond; });
    return uses[uses.size() / 2];
}

void compareCpu(int size, double seconds)
{
    const QPixmap source = picture(size);

    QLabel still;
    still.setPixmap(source);
    const CpuUse idle = measureCpu(&still, seconds);

    Orvane::RotationLabel spinning;

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

    // Interleaved rounds, each side spinning alone in its turn; medians.
    std::vector<CpuUse> oursRounds;
    std::vector<CpuUse> peerRounds;
    for (int r = 0; r < CpuRounds; ++r) {
        spinning.setPixmap(source); // upright again: a start takes what is shown
        spinning.startRotating(1000);
        oursRounds.push_back(measureCpu(&spinning, seconds / CpuRounds));
        spinning.stopRotating();

        plain.setPixmap(source);
        animation.start();
        peerRounds.push_back(measureCpu(&plain, seconds / CpuRounds));
        animation.stop();
    }
    const CpuUse ours = medianUse(oursRounds);
    const CpuUse peer = medianUse(peerRounds);

    std::printf("CPU per second of animation, %d px: spinning label %.0f frames/s, plain QLabel %.0f frames/s, "
                "still label %.1f ms\n",
                size, ours.framesPerSecond, peer.framesPerSecond, idle.cpuMsPerSecond);
    const std::string label = "RotationLabel, CPU per second of spinning, " + std::to_string(size) + " px";
    OrvaneBench::recordCost(label.c_str(), ours.cpuMsPerSecond, peer.cpuMsPerSecond, "ms",
                            "a QLabel showing QPixmap::transformed frames", "<= 0.5x");
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();

    // The ratio comes from interleaved rounds of both sides (the runs above
    // are one after the other, and the machine is shared), medians of each.
    for (int size : {32, 128}) {
        const FrameTimes times = compareFrames(size);
        std::printf("one frame, %d px, interleaved: %.2f us against %.2f us (medians of %d rounds of %d frames)\n",
                    size, times.ours, times.peer, FrameRounds, FramesPerRound);
        const std::string label = "RotationLabel, one frame, " + std::to_string(size) + " px (CPU)";
        OrvaneBench::recordCost(label.c_str(), times.ours, times.peer, "us", "QPixmap::transformed",
                                size == 128 ? "<= 1.0x" : "");
    }
    for (int size : {32, 128})
        compareCpu(size, 6.0);
    std::fflush(stdout);
    benchmark::Shutdown();
    return 0;
}
