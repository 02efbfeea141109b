// Paints a window of 100 image buttons and the same window of 100
// QPushButtons whose style sheets draw the same gradient pills, in one run,
// and reports the time per paint of each and their ratio: all in the default
// stock style, shadows on and off, also with every button marked for
// repainting before each paint, then the three stock styles in turn. Also
// times building the 100 default-style buttons against building the 100
// style-sheet push buttons.

#include <Orvane/buttonstyles.h>
#include <Orvane/imagebutton.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QImage>
#include <QPushButton>
#include <QStringList>
#include <QWidget>

#include "benchsummary.h"
#include "widgets/buttonpeer.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int Rows = 10;
constexpr int Columns = 10;
constexpr int PaintsPerRound = 20;
constexpr int Rounds = 7;
constexpr int BuildRounds = 9;

using ButtonPeer::Factory;
using ButtonPeer::factories;
using ButtonPeer::styleSheetFor;

// A shown window of Rows x Columns buttons made by `make`.
std::unique_ptr<QWidget> makeWindow(const std::function<QWidget *(int, QWidget *)> &make)
{
    auto window = std::make_unique<QWidget>();
    auto *grid = new QGridLayout(window.get());
    grid->setContentsMargins(20, 20, 20, 20);
    grid->setSpacing(16);
    for (int i = 0; i < Rows * Columns; ++i)
        grid->addWidget(make(i, window.get()), i / Columns, i % Columns);
    window->show();
    QApplication::processEvents();
    return window;
}

// Milliseconds per paint of the whole window over one round. With
// `changed`, every button is marked for repainting before each paint, as
// when all of them changed state; the marking is timed on both sides.
double paintRound(QWidget &window, bool changed)
{
    QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
    const QList<QAbstractButton *> buttons = window.findChildren<QAbstractButton *>();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < PaintsPerRound; ++i) {
        if (changed) {
            for (QAbstractButton *b : buttons)
                b->update();
        }
        window.render(&image);
    }
    const double ms = double(timer.nsecsElapsed()) / 1e6 / PaintsPerRound;
    QApplication::processEvents(); // the marked repaints, untimed
    return ms;
}

// The median of `rounds` rounds of each measurement, taken in turn within
// each round so that a busy moment of the shared machine hits all of them.
std::vector<double> interleaved(const std::vector<std::function<double()>> &measurements, int rounds)
{
    for (const auto &measure : measurements)
        measure(); // warm-up: polish, layouts, caches, first-use costs
    std::vector<std::vector<double>> times(measurements.size());
    for (int r = 0; r < rounds; ++r) {
        for (size_t m = 0; m < measurements.size(); ++m)
            times[m].push_back(measurements[m]());
    }
    std::vector<double> medians;
    for (std::vector<double> &t : times) {
        std::sort(t.begin(), t.end());
        medians.push_back(t[t.size() / 2]);
    }
    return medians;
}

QString label(int i)
{
    return QStringLiteral("Button %1").arg(i + 1);
}

// Milliseconds to build Rows x Columns buttons made by `make` in a hidden
// parent. Deleting them is not timed.
double buildRound(const std::function<QWidget *(int, QWidget *)> &make)
{
    auto parent = std::make_unique<QWidget>();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < Rows * Columns; ++i)
        make(i, parent.get());
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    // Buttons in the style of `factory`, or of the three stock styles in turn.
    auto imageButton = [](Factory factory, bool shadows) {
        return [factory, shadows](int i, QWidget *parent) -> QWidget * {
            QSharedPointer<Orvane::ImageButtonStyle> style = factory ? factory() : factories[i % 3]();
            if (!shadows)
                style->shadows.clear();
            auto *b = new Orvane::ImageButton(style, parent);
            b->setText(label(i));
            return b;
        };
    };
    const QString defaultSheet = styleSheetFor(*Orvane::makeBtnStyle_Default());
    auto pushButton = [&defaultSheet](Factory factory) {
        QStringList sheets;
        for (Factory f : factories)
            sheets << styleSheetFor(*f());
        return [factory, sheets, &defaultSheet](int i, QWidget *parent) -> QWidget * {
            auto *b = new QPushButton(label(i), parent);
            b->setStyleSheet(factory ? defaultSheet : sheets.at(i % 3));
            return b;
        };
    };

    const Factory stock = &Orvane::makeBtnStyle_Default;
    const auto makeImage = imageButton(stock, true);
    const auto makePush = pushButton(stock);
    const std::vector<double> build = interleaved({[&] { return buildRound(makeImage); }, [&] { return buildRound(makePush); }},
                                                  BuildRounds);
    const double imageBuildMs = build[0];
    const double pushBuildMs = build[1];

    const auto images = makeWindow(imageButton(stock, true));
    const auto plain = makeWindow(imageButton(stock, false));
    const auto pushes = makeWindow(pushButton(stock));
    const auto mixedImages = makeWindow(imageButton(nullptr, true));
    const auto mixedPlain = makeWindow(imageButton(nullptr, false));
    const auto mixedPushes = makeWindow(pushButton(nullptr));

    // With ORVANE_LOOK_DIR set, the windows are saved there to compare looks.
    const QString lookDir = qEnvironmentVariable("ORVANE_LOOK_DIR");
    if (!lookDir.isEmpty()) {
        images->grab().save(lookDir + QStringLiteral("/bench-imagebuttons.png"));
        pushes->grab().save(lookDir + QStringLiteral("/bench-pushbuttons.png"));
        mixedImages->grab().save(lookDir + QStringLiteral("/bench-imagebuttons-mixed.png"));
        mixedPushes->grab().save(lookDir + QStringLiteral("/bench-pushbuttons-mixed.png"));
    }

    const std::vector<double> paint = interleaved({[&] { return paintRound(*images, false); },
                                                   [&] { return paintRound(*plain, false); },
                                                   [&] { return paintRound(*pushes, false); },
                                                   [&] { return paintRound(*images, true); },
                                                   [&] { return paintRound(*pushes, true); },
                                                   [&] { return paintRound(*mixedImages, false); },
                                                   [&] { return paintRound(*mixedPlain, false); },
                                                   [&] { return paintRound(*mixedPushes, false); }},
                                                  Rounds);
    const double imageMs = paint[0];
    const double plainMs = paint[1];
    const double pushMs = paint[2];
    const double changedImageMs = paint[3];
    const double changedPushMs = paint[4];
    const double mixedImageMs = paint[5];
    const double mixedPlainMs = paint[6];
    const double mixedPushMs = paint[7];

    std::printf("bench_imagebutton: one paint of a window of %d buttons (%dx%d px; peer %dx%d px),"
                " median of %d rounds of %d; building %d buttons, median of %d rounds\n",
                Rows * Columns, images->width(), images->height(), pushes->width(), pushes->height(), Rounds,
                PaintsPerRound, Rows * Columns, BuildRounds);
    const char *peer = "QPushButton, equivalent style sheet";
    OrvaneBench::recordCost("ImageButton x100, makeBtnStyle_Default with shadows, one repaint", imageMs, pushMs, "ms",
                            peer, "1.5x");
    OrvaneBench::recordCost("ImageButton x100, makeBtnStyle_Default with shadows, repaint after every button changed",
                            changedImageMs, changedPushMs, "ms", peer, "<= 1.0x");
    OrvaneBench::recordCost("ImageButton x100, makeBtnStyle_Default without shadows, one repaint", plainMs, pushMs,
                            "ms", peer);
    OrvaneBench::recordCost("ImageButton x100, the three stock styles with shadows, one repaint", mixedImageMs,
                            mixedPushMs, "ms", peer);
    OrvaneBench::recordCost("ImageButton x100, the three stock styles without shadows, one repaint", mixedPlainMs,
                            mixedPushMs, "ms", peer);
    OrvaneBench::recordCost("ImageButton x100, makeBtnStyle_Default, building", imageBuildMs, pushBuildMs, "ms", peer,
                            "1.0x");
    return 0;
}
