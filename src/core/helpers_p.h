#ifndef ORVANE_HELPERS_P_H
#define ORVANE_HELPERS_P_H

// Keeping centred windows on the screens.
//
// The centring rule puts a window over the main window whatever the screens
// are, so a main window near a screen's edge, or across two screens, can
// push it partly outside every screen. Such a window is moved inside the
// available geometry (the screen less its panels) of the screen that holds
// the anchor, the main window's centre; a window lying wholly on one screen
// keeps the rule's position. A window larger than that area is aligned to
// its top-left corner.

#include <QPoint>
#include <QRect>
#include <QVector>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Orvane {

struct ScreenArea
{
    QRect geometry;  // the whole screen
    QRect available; // less panels and docks
};

// `window` as the rule placed it, kept or moved as described above. The
// anchor's screen is the one holding `anchor`, else the one nearest to it;
// with no screens the window is returned unchanged.
QRect keepOnScreens(const QRect &window, const QVector<ScreenArea> &screens, const QPoint &anchor);

// The application's screens.
QVector<ScreenArea> currentScreenAreas();

// moveToCenter() over a main window the caller already found (nothing
// happens when it is null), for callers that need the window themselves and
// so walk the top-level widgets once.
void centreOver(QWidget *widget, QWidget *mainWindow);

// Centres `widget` (its current size) on the available geometry of the
// screen under `globalPoint` (the primary screen when none is).
void centreOnScreenAt(QWidget *widget, const QPoint &globalPoint);

} // namespace Orvane

#endif // ORVANE_HELPERS_P_H
