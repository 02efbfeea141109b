// The gallery: a host application that shows what the library offers.
//
// With a display it opens its window. Without one (no DISPLAY and no
// WAYLAND_DISPLAY, as on CI) it runs offscreen, writes a PNG of each page
// into gallery-shots/ under the working directory, prints their paths and
// exits.
#include <Orvane/Orvane.h>

#include <QApplication>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTextStream>
#include <QVBoxLayout>

namespace {

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

QWidget *makeImagesPage()
{
    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);
    const QStringList images = {
        QStringLiteral("kv_DlgCloseBtn.png"),   QStringLiteral("kv_DlgCloseBtn_hover.png"),
        QStringLiteral("qm_DlgCloseBtn.png"),   QStringLiteral("kv_TipsAttention.png"),
        QStringLiteral("kv_TipsSuccess.png"),   QStringLiteral("qm_TipsAttention.png"),
        QStringLiteral("qm_TipsSuccess.png"),   QStringLiteral("checkbox_0"),
        QStringLiteral("checkbox_1"),           QStringLiteral("kv_Loading.png"),
        QStringLiteral("qm_Loading.png"),
    };
    for (int i = 0; i < images.size(); ++i) {
        auto *picture = new QLabel;
        picture->setPixmap(QPixmap(QStringLiteral(":/Orvane/") + images.at(i)));
        picture->setAlignment(Qt::AlignCenter);
        picture->setMinimumSize(56, 56);
        picture->setStyleSheet(QStringLiteral("background: #2E2F30;"));
        grid->addWidget(picture, (i / 4) * 2, i % 4);
        grid->addWidget(new QLabel(images.at(i)), (i / 4) * 2 + 1, i % 4, Qt::AlignHCenter);
    }
    return page;
}

} // namespace

int main(int argc, char *argv[])
{
    const bool offscreen = !hasDisplay();
    if (offscreen)
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Gallery"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0.0"));
    Orvane::ensureOrvaneResources();

    QMainWindow window;
    window.setObjectName(QStringLiteral("MainWindow"));
    window.setWindowTitle(QStringLiteral("Orvane gallery"));
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->addWidget(new QLabel(QStringLiteral("<b>The library's images</b>")));
    layout->addWidget(makeImagesPage());
    window.setCentralWidget(central);
    window.statusBar()->showMessage(QStringLiteral("Orvane ") + Orvane::orvaneLibVersion());
    window.resize(560, 360);

    if (!offscreen) {
        window.show();
        return app.exec();
    }

    window.show();
    QCoreApplication::processEvents();
    const QString dir = QDir::current().absoluteFilePath(QStringLiteral("gallery-shots"));
    QDir().mkpath(dir);
    const QString path = dir + QStringLiteral("/images.png");
    if (!window.grab().save(path)) {
        QTextStream(stderr) << "could not write " << path << '\n';
        return 1;
    }
    QTextStream(stdout) << path << '\n';
    return 0;
}
