// Paints a window of 100 stock-style image buttons and the same window of
// 100 QPushButtons whose style sheets draw the same gradient pills, in one
// run, and prints the time per paint of each and their ratio.

#include <Orvane/buttonstyles.h>
#include <Orvane/imagebutton.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QImage>
#include <QPushButton>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int Rows = 10;
constexpr int Columns = 10;
constexpr int PaintsPerRound = 20;
constexpr int Rounds = 5;

using Factory = QSharedPointer<Orvane::ImageButtonStyle> (*)();
const Factory factories[] = {&Orvane::makeBtnStyle_Default, &Orvane::makeBtnStyle_Orange,
                             &Orvane::makeBtnStyle_Ring};

QString gradient(const QColor &from, const QColor &to)
{
    return QStringLiteral("qlineargradient(x1:0, y1:0, x2:1, y2:0, stop:0 %1, stop:1 %2)")
        .arg(from.name(QColor::HexArgb), to.name(QColor::HexArgb));
}

// The peer's style sheet, read from the same record so that both windows
// draw the same pills: per-state gradient fill, radius, outline, text colour.
QString styleSheetFor(const Orvane::ImageButtonStyle &s)
{
    // Padded as the image button pads them when it applies the record.
    QVector<QColor> bg = s.bgColors;
    while (bg.size() < 8)
        bg.append(bg.last());
    QString border = QStringLiteral("none");
    if (s.borderWidth > 0 && s.borderColors.size() >= 2)
        border = QStringLiteral("%1px solid %2").arg(s.borderWidth).arg(gradient(s.borderColors.at(0), s.borderColors.at(1)));
    const QString text = s.textColors.value(0, Qt::black).name();
    return QStringLiteral("QPushButton { color: %1; border: %2; border-radius: %3px; min-width: %4px;"
                          " min-height: %5px; padding: 0 %6px; background: %7; }"
                          " QPushButton:hover { border: none; background: %8; }"
                          " QPushButton:pressed { border: none; background: %9; }"
                          " QPushButton:disabled { border: none; background: %10; }")
        .arg(text, border)
        .arg(s.radius)
        .arg(s.minimumSize.width() - 2 * s.margins.left())
        .arg(s.minimumSize.height())
        .arg(s.margins.left())
        .arg(gradient(bg.at(0), bg.at(1)), gradient(bg.at(2), bg.at(3)), gradient(bg.at(4), bg.at(5)),
             gradient(bg.at(6), bg.at(7)));
}

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

// Milliseconds per paint of the whole window: the median of the rounds.
double timePaint(QWidget &window)
{
    QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
    window.render(&image); // warm-up: polish, layouts, caches
    std::vector<double> rounds;
    for (int r = 0; r < Rounds; ++r) {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < PaintsPerRound; ++i)
            window.render(&image);
        rounds.push_back(double(timer.nsecsElapsed()) / 1e6 / PaintsPerRound);
    }
    std::sort(rounds.begin(), rounds.end());
    return rounds[rounds.size() / 2];
}

QString label(int i)
{
    return QStringLiteral("Button %1").arg(i + 1);
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    auto imageButton = [](bool shadows) {
        return [shadows](int i, QWidget *parent) -> QWidget * {
            QSharedPointer<Orvane::ImageButtonStyle> style = factories[i % 3]();
            if (!shadows)
                style->shadows.clear();
            auto *b = new Orvane::ImageButton(style, parent);
            b->setText(label(i));
            return b;
        };
    };
    auto pushButton = [](int i, QWidget *parent) -> QWidget * {
        auto *b = new QPushButton(label(i), parent);
        b->setStyleSheet(styleSheetFor(*factories[i % 3]()));
        return b;
    };

    const auto images = makeWindow(imageButton(true));
    const auto plain = makeWindow(imageButton(false));
    const auto pushes = makeWindow(pushButton);

    // With ORVANE_LOOK_DIR set, both windows are saved there to compare looks.
    const QString lookDir = qEnvironmentVariable("ORVANE_LOOK_DIR");
    if (!lookDir.isEmpty()) {
        images->grab().save(lookDir + QStringLiteral("/bench-imagebuttons.png"));
        pushes->grab().save(lookDir + QStringLiteral("/bench-pushbuttons.png"));
    }

    const double imageMs = timePaint(*images);
    const double plainMs = timePaint(*plain);
    const double pushMs = timePaint(*pushes);

    std::printf("bench_imagebutton: one paint of a window of %d buttons (%dx%d px; peer %dx%d px),"
                " median of %d rounds of %d\n",
                Rows * Columns, images->width(), images->height(), pushes->width(), pushes->height(), Rounds,
                PaintsPerRound);
    std::printf("  ImageButton, stock styles            %8.3f ms\n", imageMs);
    std::printf("  ImageButton, stock styles, no shadow %8.3f ms\n", plainMs);
    std::printf("  QPushButton, equivalent style sheet  %8.3f ms\n", pushMs);
    std::printf("  ratio ImageButton / QPushButton: %.2f (without shadows: %.2f)\n", imageMs / pushMs,
                plainMs / pushMs);
    return 0;
}
