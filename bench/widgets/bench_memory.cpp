// Memory of the image buttons and of the library's picture caches.
//
// 1. The resident memory 100 shadowed stock buttons add to a shown window
//    once they are shown and painted, against 100 QPushButtons whose style
//    sheets draw the same pills. Each side is measured in a process of its
//    own (this program started again with "--side image" or "--side push"),
//    in interleaved rounds, and the medians are compared: a process never
//    gives freed memory back reliably, so two sides in one process would
//    measure each other.
// 2. What the shadow cache holds after 1,000 message boxes of twenty sizes
//    and 1,000 buttons of fifty sizes were shown, painted and closed,
//    against the cache's documented bound; and how much the process grew
//    over the last 900 of each, which any cache without a bound (the
//    message box's tinted icons included) would show. The heap in use
//    (glibc's count, which freed memory the process keeps does not blur) is
//    reported beside it, and what emptying QPixmapCache gives back: Qt
//    keeps every box's close image there, a fresh copy per box, until the
//    cache's own limit.

#include <Orvane/buttonstyles.h>
#include <Orvane/imagebutton.h>
#include <Orvane/omessagebox.h>

#include "widgets/cachedshadoweffect_p.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QPixmapCache>
#include <QProcess>
#include <QPushButton>
#include <QStringList>
#include <QWidget>

#include "benchsummary.h"
#include "widgets/buttonpeer.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <vector>

namespace {

constexpr int Buttons = 100;
constexpr int Rounds = 5;

// Resident set size in KiB, from /proc/self/statm.
double residentKiB()
{
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    return double(resident) * double(sysconf(_SC_PAGESIZE)) / 1024.0;
}

// Heap memory allocated and not freed, in KiB (glibc's count).
double heapInUseKiB()
{
    return double(mallinfo2().uordblks) / 1024.0;
}

void settle(QWidget &window)
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
    window.repaint();
    QApplication::processEvents();
}

QWidget *makeButton(bool image, int i, QWidget *parent)
{
    const QString text = QStringLiteral("Button %1").arg(i + 1);
    if (image) {
        auto *b = new Orvane::ImageButton(Orvane::makeBtnStyle_Default(), parent);
        b->setText(text);
        return b;
    }
    static const QString sheet = ButtonPeer::styleSheetFor(*Orvane::makeBtnStyle_Default());
    auto *b = new QPushButton(text, parent);
    b->setStyleSheet(sheet);
    return b;
}

// One side, in its own process: prints the KiB the buttons added.
int measureSide(bool image)
{
    // First use of fonts, styles and style sheets, not counted.
    {
        QWidget warm;
        auto *grid = new QGridLayout(&warm);
        for (int i = 0; i < 3; ++i)
            grid->addWidget(makeButton(image, i, &warm), 0, i);
        warm.show();
        settle(warm);
    }
    QWidget window;
    window.setFixedSize(1284, 484);
    auto *grid = new QGridLayout(&window);
    grid->setContentsMargins(20, 20, 20, 20);
    grid->setSpacing(16);
    window.show();
    settle(window);
    const double before = residentKiB();
    for (int i = 0; i < Buttons; ++i)
        grid->addWidget(makeButton(image, i, &window), i / 10, i % 10);
    settle(window);
    std::printf("%.0f\n", residentKiB() - before);
    return 0;
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

void compareButtons(const QString &self)
{
    std::vector<double> image;
    std::vector<double> push;
    for (int r = 0; r < Rounds; ++r) {
        for (bool side : {true, false}) {
            QProcess child;
            child.start(self, {QStringLiteral("--side"), side ? QStringLiteral("image") : QStringLiteral("push")});
            child.waitForFinished(120000);
            const double kib = child.readAllStandardOutput().trimmed().toDouble();
            (side ? image : push).push_back(kib);
        }
    }
    std::printf("bench_memory: resident memory added by %d buttons, shown and painted, median of %d processes each"
                " (ImageButton:", Buttons, Rounds);
    for (double v : image)
        std::printf(" %.0f", v);
    std::printf(" KiB; QPushButton:");
    for (double v : push)
        std::printf(" %.0f", v);
    std::printf(" KiB)\n");
    OrvaneBench::recordCost("Memory added by 100 shadowed stock buttons (makeBtnStyle_Default), shown and painted (RSS)",
                            median(image) / 1024.0, median(push) / 1024.0, "MiB",
                            "100 QPushButtons, equivalent style sheet", "<= 1.2x");
}

void measureCaches()
{
    Orvane::CachedShadowEffect::dropSharedShadows();
    double afterFirst = 0;
    double heapAfterFirst = 0;
    double peak = 0;
    std::printf("bench_memory: resident KiB every 100 message boxes:");
    // Message boxes of twenty sizes (the message's length sets the width).
    for (int i = 0; i < 1000; ++i) {
        if (i == 100) {
            afterFirst = residentKiB();
            heapAfterFirst = heapInUseKiB();
        }
        if (i % 100 == 0)
            std::printf(" %.0f", residentKiB());
        const QString text = QStringLiteral("The export finished. ") + QString(4 * (i % 20), QLatin1Char('x'));
        auto *box = new Orvane::OMessageBox(i % 2 ? Orvane::Success : Orvane::Attention,
                                            {QStringLiteral("Cancel"), QStringLiteral("OK")}, text,
                                            QStringLiteral("Heading"), -1, QString(), nullptr, nullptr,
                                            Qt::WindowFlags());
        box->show();
        box->grab();
        QApplication::processEvents();
        box->close(); // the box deletes itself
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        peak = std::max(peak, double(Orvane::CachedShadowEffect::sharedShadowBytes()));
    }
    std::printf("\n");
    const double afterBoxes = residentKiB();
    const double heapAfterBoxes = heapInUseKiB();
    // Buttons of fifty sizes, shown in windows of fifty, painted, closed.
    double afterFirstButtons = 0;
    for (int batch = 0; batch < 20; ++batch) {
        if (batch == 2)
            afterFirstButtons = residentKiB();
        QWidget window;
        auto *grid = new QGridLayout(&window);
        for (int i = 0; i < 50; ++i) {
            auto *b = static_cast<Orvane::ImageButton *>(makeButton(true, i, &window));
            b->setFixedSize(110 + 2 * i, 30 + i % 10);
            grid->addWidget(b, i / 10, i % 10);
        }
        window.show();
        settle(window);
        peak = std::max(peak, double(Orvane::CachedShadowEffect::sharedShadowBytes()));
    }
    QApplication::processEvents();
    const double end = residentKiB();
    const double heapEnd = heapInUseKiB();
    QPixmapCache::clear();
    std::printf("bench_memory: %.0f KiB resident, %.0f KiB after emptying QPixmapCache (limit %d KiB)\n", end,
                residentKiB(), QPixmapCache::cacheLimit());
    std::printf("bench_memory: heap in use grew %.0f KiB over message boxes 100 to 1000; emptying QPixmapCache at"
                " the end freed %.0f KiB of the heap\n",
                heapAfterBoxes - heapAfterFirst, heapEnd - heapInUseKiB());
    const double held = peak / 1048576.0;
    const double bound = double(Orvane::CachedShadowEffect::SharedShadowByteLimit) / 1048576.0;
    std::printf("bench_memory: shadow cache after 1000 message boxes and 1000 buttons of 50 sizes: %d shadows,"
                " at most %.2f MiB on the way (bound %d shadows, %.0f MiB)\n",
                Orvane::CachedShadowEffect::sharedShadowCount(), held, Orvane::CachedShadowEffect::SharedShadowLimit,
                bound);
    OrvaneBench::recordCost("Memory held by the shared shadow cache after 1,000 message boxes and 1,000 buttons of 50 sizes",
                            held, bound, "MiB", "the cache's bound (16 shadows, 16 MiB)", "<= 1.0x");
    std::printf("bench_memory: resident growth over message boxes 100 to 1000: %.0f KiB; over buttons 100 to 1000:"
                " %.0f KiB\n",
                afterBoxes - afterFirst, end - afterFirstButtons);
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The message boxes' debug lines are not what is measured.
    qputenv("QT_LOGGING_RULES", "*.debug=false");
    QApplication app(argc, argv);
    const QStringList args = QApplication::arguments();
    const int side = args.indexOf(QStringLiteral("--side"));
    if (side > 0 && side + 1 < args.size())
        return measureSide(args.at(side + 1) == QStringLiteral("image"));
    compareButtons(QApplication::applicationFilePath());
    measureCaches();
    return 0;
}
