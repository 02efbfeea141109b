#ifndef ORVANE_TESTS_DESKTOPINPUT_H
#define ORVANE_TESTS_DESKTOPINPUT_H

// Input and read-back for the interaction tests on a real desktop.
//
// On X11 ("xcb") every pointer move, button and key goes to the X server
// through XTest, so the window manager, the server's pointer grab and Qt's
// event translation all take part, as with a user's hand. Window positions
// are read back from the server (the client window's origin in root
// coordinates), never from Qt's own idea of them.
//
// On Wayland a client can neither inject input into the compositor nor learn
// where its window is; there the same calls fall back to QTest's events on
// the window, which still pass through Qt's window-system queue.

#include <QImage>
#include <QPoint>
#include <QRect>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace DesktopInput {

// True on the X11 platform with an X connection for XTest.
bool realInput();

// `local` is in the coordinates of `window`, a top-level widget.
void press(QWidget *window, const QPoint &local);
void moveTo(QWidget *window, const QPoint &local); // while a button is held
void release(QWidget *window, const QPoint &local);
void click(QWidget *window, const QPoint &local);
// Press at `from`, move by `delta` in three steps, release at the end.
void drag(QWidget *window, const QPoint &from, const QPoint &delta);
// One key press and release (Tab, Escape, Return, Space and the like).
void key(QWidget *window, int qtKey);
// Pointer to a global position without a button (X11 only).
void movePointer(const QPoint &global);

// X11 only: the window's origin as the X server has it, and the same once
// it has not changed for a few polls (the window manager has settled).
QPoint serverOrigin(const QWidget *window);
QPoint settledOrigin(const QWidget *window);
// X11 only: the window's outer rectangle on the server, in root coordinates.
QRect serverGeometry(const QWidget *window);

// X11 only: whether a compositing manager owns _NET_WM_CM_S0.
bool compositorRunning();

// X11 only: the root window's pixels as the server shows them.
QImage grabRoot();

} // namespace DesktopInput

#endif
