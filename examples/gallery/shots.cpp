#include "shots.h"

#include "gallerypage.h"
#include "gallerywindow.h"

#include <QApplication>
#include <QDir>
#include <QGraphicsEffect>
#include <QPainter>
#include <QWidget>

namespace {

// The smallest rectangle holding every pixel that is not fully transparent:
// a frameless translucent dialog keeps a clear band around its panel.
QRect opaqueRect(const QImage &image)
{
    int left = image.width(), top = image.height(), right = -1, bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) == 0)
                continue;
            left = qMin(left, x);
            right = qMax(right, x);
            top = qMin(top, y);
            bottom = qMax(bottom, y);
        }
    }
    return right < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

// The soft shadow a compositor draws under a window.
void drawWindowShadow(QPainter &painter, const QRect &rect)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int i = 12; i > 0; --i) {
        painter.setBrush(QColor(0, 0, 0, 4));
        painter.drawRoundedRect(rect.adjusted(-i, -i + 5, i, i + 5), 6 + i, 6 + i);
    }
    painter.restore();
}

// The platform's title bar, for windows that keep their frame: the
// offscreen platform draws none, so the screenshot adds a plain one.
void drawTitleBar(QPainter &painter, const QRect &window, const QString &title)
{
    const QRect bar(window.left(), window.top() - 26, window.width(), 26);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fill(bar.topLeft(), bar.bottomLeft());
    fill.setColorAt(0, QColor(0xEC, 0xEC, 0xEE));
    fill.setColorAt(1, QColor(0xD9, 0xD9, 0xDC));
    painter.fillRect(bar, fill);
    const QColor lights[] = {QColor(0xFF, 0x5F, 0x57), QColor(0xFE, 0xBC, 0x2E), QColor(0x28, 0xC8, 0x40)};
    for (int i = 0; i < 3; ++i) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(lights[i]);
        painter.drawEllipse(QPointF(bar.left() + 14 + i * 20, bar.center().y() + 0.5), 6, 6);
    }
    painter.setPen(QColor(0x4A, 0x4A, 0x50));
    painter.drawText(bar, Qt::AlignCenter, title);
    painter.restore();
}

} // namespace

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
        const QImage picture = w->grab().toImage().convertToFormat(QImage::Format_ARGB32);
        const QRect place = w->geometry().translated(-origin);
        // The picture counts device pixels; places are device-independent.
        const qreal ratio = picture.devicePixelRatioF();
        const QRect found = opaqueRect(picture);
        const QRect panel = found.isNull() ? QRect()
                                           : QRectF(found.x() / ratio, found.y() / ratio, found.width() / ratio,
                                                    found.height() / ratio)
                                                 .toAlignedRect()
                                                 .translated(place.topLeft());
        if (panel.isNull())
            continue;
        if (w->windowFlags() & Qt::FramelessWindowHint) {
            // A window with an effect of its own (the message box's drop
            // shadow) shows that one in its clear band; it gets no second.
            if (!w->graphicsEffect())
                drawWindowShadow(painter, panel);
        } else {
            drawWindowShadow(painter, panel.adjusted(0, -26, 0, 0));
            drawTitleBar(painter, place, w->windowTitle());
        }
        painter.drawImage(place.topLeft(), picture);
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
