// The first message box of a process, the one a user waits for: from the
// moment QApplication is built to the end of the box's first paint, with
// nothing warmed up before (fonts, style, pictures, the library's resources).
// The box is the success note with one "OK" button, against QMessageBox with
// the same text and button.
//
// Each measurement is a fresh process: this program starts itself again with
// "--child ours" or "--child peer", and the child prints its figure. The
// children of the two sides alternate, so both see the same machine, and each
// side's figure is the median of its runs, in CPU time of the child process
// (the machines we measure on are shared); the wall time is printed beside it.

#include <Orvane/omessagebox.h>

#include "benchsummary.h"
#include "dialogs/paintcounter.h"

#include <QApplication>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <vector>

namespace {

constexpr int Runs = 15;

const QString note = QStringLiteral("The file was saved.");

using OrvaneBench::PaintCounter;

double cpuMs()
{
    return double(std::clock()) * 1e3 / CLOCKS_PER_SEC;
}

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
}

// One fresh process: builds the application, then the box, and prints the
// CPU and wall milliseconds until the box's first paint has been processed.
int child(int argc, char *argv[], bool ours)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt's start-up notes and the box's debug line are not part of the output.
    qInstallMessageHandler(dropMessage);
    QApplication app(argc, argv);
    QElapsedTimer wall;
    wall.start();
    const double start = cpuMs();

    QDialog *box = nullptr;
    if (ours) {
        box = new Orvane::OMessageBox(Orvane::Success, QStringList(QStringLiteral("OK")), note);
    } else {
        auto *peer = new QMessageBox(QMessageBox::Information, QString(), note, QMessageBox::Ok);
        peer->setAttribute(Qt::WA_DeleteOnClose);
        box = peer;
    }
    PaintCounter counter;
    box->installEventFilter(&counter);
    box->show();
    QElapsedTimer patience;
    patience.start();
    while (counter.paints == 0 && patience.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    const double cpu = cpuMs() - start;
    const double elapsed = wall.nsecsElapsed() / 1e6;
    if (counter.paints == 0) {
        std::fprintf(stderr, "bench_firstbox: the %s box was not painted\n", ours ? "library's" : "peer's");
        return 1;
    }
    std::printf("%.4f %.4f\n", cpu, elapsed);
    std::fflush(stdout);
    box->close();
    return 0;
}

// Runs one child; false when it failed or printed nothing usable.
bool runChild(const QString &program, const char *side, double *cpu, double *wall)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {QStringLiteral("--child"), QString::fromLatin1(side)});
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return false;
    const QByteArray out = process.readAllStandardOutput();
    return std::sscanf(out.constData(), "%lf %lf", cpu, wall) == 2;
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc >= 3 && std::strcmp(argv[1], "--child") == 0)
        return child(argc, argv, std::strcmp(argv[2], "ours") == 0);

    QCoreApplication app(argc, argv);
    const QString program = QCoreApplication::applicationFilePath();
    std::printf("bench_firstbox: QApplication built to the first box's first paint, one process per run; "
                "median of %d runs per side (CPU time)\n",
                Runs);
    std::vector<double> oursCpu, peerCpu, oursWall, peerWall;
    for (int r = 0; r < Runs; ++r) {
        double cpu = 0, wall = 0;
        if (!runChild(program, "ours", &cpu, &wall)) {
            std::fprintf(stderr, "bench_firstbox: a child with the library's box failed\n");
            return 1;
        }
        oursCpu.push_back(cpu);
        oursWall.push_back(wall);
        if (!runChild(program, "peer", &cpu, &wall)) {
            std::fprintf(stderr, "bench_firstbox: a child with QMessageBox failed\n");
            return 1;
        }
        peerCpu.push_back(cpu);
        peerWall.push_back(wall);
    }
    std::printf("wall time, medians: ours %.4g ms, peer %.4g ms\n", median(oursWall), median(peerWall));
    OrvaneBench::recordCost("OMessageBox, the first box of a fresh process, success, one button: QApplication built to "
                            "first paint (CPU)",
                            median(oursCpu), median(peerCpu), "ms", "QMessageBox's first box, same text and button",
                            "<= 1.0x");
    return 0;
}
