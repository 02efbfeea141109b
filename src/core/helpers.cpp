#include <Orvane/helpers.h>

#include "core/helpers_p.h"
#include "core/ratiopixmaps_p.h"

#include <QApplication>
#include <QColor>
#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMargins>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace Orvane {

namespace {

template<typename Layout>
Layout *makeBoxLayout(QWidget *parent, int margin, int spacing)
{
    auto *layout = new Layout(parent);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);
    return layout;
}

void tint(QPixmap &pixmap, const QString &colorName)
{
    // The painter works in the pixmap's device-independent pixels, so the
    // fill covers its logical size; the pixmap keeps its device pixel ratio.
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.fillRect(QRectF(QPointF(0, 0), QSizeF(pixmap.size()) / pixmap.devicePixelRatioF()), QColor(colorName));
    painter.end();
}

} // namespace

QHBoxLayout *makeHBoxLayout(QWidget *parent, int margin, int spacing)
{
    return makeBoxLayout<QHBoxLayout>(parent, margin, spacing);
}

QVBoxLayout *makeVBoxLayout(QWidget *parent, int margin, int spacing)
{
    return makeBoxLayout<QVBoxLayout>(parent, margin, spacing);
}

QWidget *findMainWindow()
{
    const QWidgetList topLevels = QApplication::topLevelWidgets();
    for (QWidget *w : topLevels) {
        if (qobject_cast<QMainWindow *>(w))
            return w;
    }
    // Hosts whose main window is not a QMainWindow still name their class so.
    qDebug() << "find mainWindow";
    for (QWidget *w : topLevels) {
        if (qstrcmp(w->metaObject()->className(), "MainWindow") == 0)
            return w;
    }
    return nullptr;
}

void moveToCenter(QWidget *widget, QWidget *parent)
{
    Q_UNUSED(parent) // the main window is always the reference
    if (!widget)
        return;
    centreOver(widget, findMainWindow());
}

void centreOver(QWidget *widget, QWidget *mainWindow)
{
    if (!widget || !mainWindow)
        return;
    const int dx = (mainWindow->width() - widget->width()) / 2;
    const int dy = (mainWindow->height() - widget->height()) / 2;
    const QRect placed(mainWindow->mapToGlobal(QPoint(dx, dy)), widget->size());
    const QPoint anchor = mainWindow->mapToGlobal(mainWindow->rect().center());
    widget->move(keepOnScreens(placed, currentScreenAreas(), anchor).topLeft());
}

void moveToCenterOfWindow(QWidget *widget)
{
    if (!widget)
        return;
    // A private copy: the walk must not see widgets made or destroyed by the
    // geometry changes it causes.
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *w : all) {
        if (!qobject_cast<QMainWindow *>(w))
            continue;
        const QRect geometry = w->geometry();
        const QPoint center = geometry.center();
        const QSize size = widget->sizeHint();
        qDebug().nospace() << "wnd center: " << geometry.topLeft();
        qDebug().nospace() << "sz: " << size;
        const QRect placed(QPoint(center.x() - size.width() / 2, center.y() - size.height() / 2), size);
        widget->setGeometry(keepOnScreens(placed, currentScreenAreas(), center));
    }
}

QRect keepOnScreens(const QRect &window, const QVector<ScreenArea> &screens, const QPoint &anchor)
{
    if (screens.isEmpty())
        return window;
    for (const ScreenArea &screen : screens) {
        if (screen.geometry.contains(window))
            return window;
    }
    // The anchor's screen, else the nearest one.
    const ScreenArea *target = nullptr;
    qint64 nearest = -1;
    for (const ScreenArea &screen : screens) {
        if (screen.geometry.contains(anchor)) {
            target = &screen;
            break;
        }
        const qint64 dx = qMax(qMax(screen.geometry.left() - anchor.x(), anchor.x() - screen.geometry.right()), 0);
        const qint64 dy = qMax(qMax(screen.geometry.top() - anchor.y(), anchor.y() - screen.geometry.bottom()), 0);
        const qint64 distance = dx * dx + dy * dy;
        if (nearest < 0 || distance < nearest) {
            nearest = distance;
            target = &screen;
        }
    }
    const QRect area = target->available.isValid() ? target->available : target->geometry;
    QRect moved = window;
    // Right and bottom first, so a window larger than the area keeps its
    // top-left corner inside.
    if (moved.right() > area.right())
        moved.moveRight(area.right());
    if (moved.bottom() > area.bottom())
        moved.moveBottom(area.bottom());
    if (moved.left() < area.left())
        moved.moveLeft(area.left());
    if (moved.top() < area.top())
        moved.moveTop(area.top());
    return moved;
}

QVector<ScreenArea> currentScreenAreas()
{
    QVector<ScreenArea> areas;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        areas.append({screen->geometry(), screen->availableGeometry()});
    return areas;
}

void centreOnScreenAt(QWidget *widget, const QPoint &globalPoint)
{
    if (!widget)
        return;
    QScreen *screen = QGuiApplication::screenAt(globalPoint);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    QRect placed(QPoint(0, 0), widget->size());
    placed.moveCenter(screen->availableGeometry().center());
    widget->move(keepOnScreens(placed, {{screen->geometry(), screen->availableGeometry()}}, placed.center()).topLeft());
}

void openWebURL(const QString &url)
{
    QDesktopServices::openUrl(QUrl(url, QUrl::TolerantMode));
}

void pixmapTintColor(QPixmap &pixmap, const QString &colorName)
{
    if (colorName.isEmpty())
        return;
    tint(pixmap, colorName);
}

QPixmap loadImageWithTintColor(const QString &path, const QString &colorName)
{
    QPixmap pixmap = loadPixmapForRatio(path, applicationPixelRatio());
    if (!pixmap.isNull() && !colorName.isEmpty())
        tint(pixmap, colorName);
    return pixmap;
}

QString smartAppendPath(const QString &base, const QString &tail)
{
    return QDir::cleanPath(base + QDir::separator() + tail);
}

void drawStretchedImage(QPainter &painter, const QSize &size, const QPixmap &pixmap, const QMargins &margins)
{
    const int W = size.width();
    const int H = size.height();
    if (W <= 0 || H <= 0)
        return;
    // Negative margins are bad input; they count as none.
    const int L = std::max(margins.left(), 0);
    const int T = std::max(margins.top(), 0);
    const int R = std::max(margins.right(), 0);
    const int B = std::max(margins.bottom(), 0);

    const bool noMargins = L == 0 && T == 0 && R == 0 && B == 0;
    const bool tooSmall = W < L + R || H < T + B;
    if (noMargins || tooSmall) {
        painter.drawPixmap(QRect(0, 0, W, H), pixmap);
        return;
    }

    // Margins and target are in device-independent pixels; the source is
    // cut in the pixmap's own pixels, so a @2x picture keeps its corners as
    // sharp as it has them.
    const qreal ratio = pixmap.devicePixelRatioF();
    const qreal pw = pixmap.width() / ratio;
    const qreal ph = pixmap.height() / ratio;
    // The source middle never shrinks below one pixel; the target middle may.
    const qreal sw = std::max<qreal>(pw - L - R, 1);
    const qreal sh = std::max<qreal>(ph - T - B, 1);
    const int dw = W - L - R;
    const int dh = H - T - B;

    struct Piece {
        QRectF source;
        QRect target;
    };
    const Piece pieces[] = {
        {{0, 0, qreal(L), qreal(T)}, {0, 0, L, T}},
        {{qreal(L), 0, sw, qreal(T)}, {L, 0, dw, T}},
        {{pw - R, 0, qreal(R), qreal(T)}, {W - R, 0, R, T}},
        {{0, qreal(T), qreal(L), sh}, {0, T, L, dh}},
        {{qreal(L), qreal(T), sw, sh}, {L, T, dw, dh}},
        {{pw - R, qreal(T), qreal(R), sh}, {W - R, T, R, dh}},
        {{0, ph - B, qreal(L), qreal(B)}, {0, H - B, L, B}},
        {{qreal(L), ph - B, sw, qreal(B)}, {L, H - B, dw, B}},
        {{pw - R, ph - B, qreal(R), qreal(B)}, {W - R, H - B, R, B}},
    };
    for (const Piece &piece : pieces) {
        if (piece.source.width() == 0 || piece.source.height() == 0)
            continue;
        const QRectF &s = piece.source;
        painter.drawPixmap(QRectF(piece.target), pixmap,
                           QRectF(s.x() * ratio, s.y() * ratio, s.width() * ratio, s.height() * ratio));
    }
}

} // namespace Orvane
