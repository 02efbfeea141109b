#include "shots.h"

#include "gallerypage.h"
#include "gallerywindow.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QWidget>

QImage composeScreen(QWidget *mainWindow)
{
    QImage screen = mainWindow->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&screen);
    const QPoint origin = mainWindow->geometry().topLeft();
    // Top-level widgets come in creation order, which is also stacking order
    // for the windows the pages open.
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *w : windows) {
        if (w == mainWindow || !w->isVisible() || w->windowType() == Qt::ToolTip
            || w->windowType() == Qt::Popup)
            continue;
        const QPixmap picture = w->grab();
        painter.drawPixmap(w->geometry().topLeft() - origin, picture);
    }
    painter.end();
    return screen.convertToFormat(QImage::Format_RGB32);
}

namespace {

bool saveShot(GalleryWindow &window, GalleryPage *page, const QString &path, QString *error)
{
    page->stageShot();
    galleryWait(350);
    const QImage image = composeScreen(&window);
    page->endShot();
    galleryWait(50);
    if (!image.save(path)) {
        *error = QStringLiteral("could not write %1").arg(path);
        return false;
    }
    return true;
}

} // namespace

QStringList takeShots(GalleryWindow &window, const QString &dir, QString *error)
{
    QStringList written;
    if (!QDir().mkpath(dir)) {
        *error = QStringLiteral("could not create %1").arg(dir);
        return written;
    }
    const int skinBefore = window.skin();
    const QList<GalleryPage *> pages = window.pages();
    for (GalleryPage *page : pages) {
        window.showPage(page);
        galleryWait(50);
        const QList<int> skins = page->followsSkin() ? GalleryWindow::skins() : QList<int>{skinBefore};
        for (int skin : skins) {
            window.setSkin(skin);
            QString name = page->id();
            if (page->followsSkin())
                name += QLatin1Char('-') + GalleryWindow::skinName(skin);
            const QString path = QDir(dir).absoluteFilePath(name + QStringLiteral(".png"));
            if (!saveShot(window, page, path, error))
                return written;
            written << path;
        }
        window.setSkin(skinBefore);
    }
    if (!pages.isEmpty())
        window.showPage(pages.first());
    return written;
}
