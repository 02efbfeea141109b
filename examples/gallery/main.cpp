// The gallery: a host application that shows what the library offers, built
// the way the maker's own applications are: it logs to a file, reads its
// language pack at start, hands the library its product ids, provides
// ":/slices.json" and its sheets in its resources and an "images" folder
// beside its executable.
//
// With a display it opens its window. Without one (no DISPLAY and no
// WAYLAND_DISPLAY, as on CI), or with --shots DIR, it runs offscreen, writes
// one PNG per page and per skin into DIR (default: gallery-shots/ under the
// working directory), prints their paths and exits.
#include "gallerywindow.h"
#include "pages.h"
#include "shots.h"

#include <Orvane/Orvane.h>

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QSettings>
#include <QStandardPaths>
#include <QTextStream>

namespace {

bool hasDisplay()
{
#ifdef Q_OS_WIN
    return true; // a Windows session always has its desktop
#else
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#endif
}

// The product ids the gallery hands the link catalogue, one per pack.
QMap<QString, int> productIds()
{
    const QStringList packs = languagePacks();
    QMap<QString, int> ids;
    for (int i = 0; i < packs.size(); ++i)
        ids.insert(packs.at(i), 4100 + i);
    return ids;
}

} // namespace

int main(int argc, char *argv[])
{
    QString shotsDir;
    bool offscreen = !hasDisplay();
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (arg == QLatin1String("--shots") && i + 1 < argc) {
            shotsDir = QString::fromLocal8Bit(argv[++i]);
            offscreen = true;
        } else if (arg == QLatin1String("--help")) {
            QTextStream(stdout) << "usage: orvane-gallery [--shots DIR]\n"
                                   "Opens the gallery; without a display, or with --shots, writes one\n"
                                   "PNG per page and skin into DIR (default ./gallery-shots) and exits.\n";
            return 0;
        }
    }
    if (offscreen) {
#ifndef Q_OS_WIN
        // Windows takes its shots through its own platform plugin, as a
        // user's run would draw them.
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
        if (shotsDir.isEmpty())
            shotsDir = QDir::current().absoluteFilePath(QStringLiteral("gallery-shots"));
    }

    // Crisp on screens scaled to 125 %, 150 % or 200 %: set before the
    // QApplication exists. Qt 6 always scales and always uses the pictures'
    // ratios; the rounding policy keeps 125 % and 150 % as they are instead
    // of rounding them to whole numbers.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    // The offscreen platform reports 100 dpi, which pass-through would turn
    // into 104 %; the screenshots stay at exactly 100 % (or at what
    // QT_SCALE_FACTOR asks for).
    if (!offscreen)
        QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);

    QApplication app(argc, argv);
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvane"));
    // The offscreen run keeps settings of its own, cleared first, so its
    // pictures are the same on every machine and never touch a user's choices.
    QCoreApplication::setApplicationName(offscreen ? QStringLiteral("Gallery shots") : QStringLiteral("Gallery"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0.0"));
    if (offscreen)
        QSettings().clear();

    // Every Qt message from here on, the library's own included, goes to a
    // time-stamped file in this folder (the library does not create it).
    const QString logDir = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
                           + QStringLiteral("/logs");
    QDir().mkpath(logDir);
    Orvane::initMiniLogger(QStringLiteral("gallery_"), logDir);

    Orvane::ensureOrvaneResources();
    if (offscreen)
        Orvane::setCurrentLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    Orvane::freshLanguage(Orvane::getCurrentLocalePackName());
    Orvane::setRdxPIDMap(productIds());

    GalleryWindow window(logDir);
    addGalleryPages(window, logDir);

    if (!offscreen) {
        window.show();
        return app.exec();
    }

    window.show();
    QString error;
    const QStringList written = takeShots(window, shotsDir, &error);
    QTextStream out(stdout);
    for (const QString &path : written)
        out << path << '\n';
    if (!error.isEmpty()) {
        QTextStream(stderr) << error << '\n';
        return 1;
    }
    return 0;
}
