#include "desktopinput.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <QWindow>

// Xlib last: its macros (None, Bool, KeyPress...) clash with Qt's names.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace DesktopInput {

namespace {

// How long Qt gets to take in what the server sent after each step.
const int stepMs = 40;

Display *display()
{
    static Display *dpy = nullptr;
    static bool tried = false;
    if (!tried) {
        tried = true;
        if (QGuiApplication::platformName() == QLatin1String("xcb"))
            dpy = XOpenDisplay(nullptr);
    }
    return dpy;
}

void settle()
{
    XSync(display(), False);
    QTest::qWait(stepMs);
}

QPoint globalOf(QWidget *window, const QPoint &local)
{
    return serverOrigin(window) + local;
}

KeySym keysymOf(int qtKey)
{
    switch (qtKey) {
    case Qt::Key_Tab: return XK_Tab;
    case Qt::Key_Backtab: return XK_ISO_Left_Tab;
    case Qt::Key_Escape: return XK_Escape;
    case Qt::Key_Return: return XK_Return;
    case Qt::Key_Enter: return XK_KP_Enter;
    case Qt::Key_Space: return XK_space;
    default: return NoSymbol;
    }
}

} // namespace

bool realInput()
{
    return display() != nullptr;
}

void movePointer(const QPoint &global)
{
    if (!realInput())
        return;
    XTestFakeMotionEvent(display(), -1, global.x(), global.y(), CurrentTime);
    settle();
}

void press(QWidget *window, const QPoint &local)
{
    if (realInput()) {
        movePointer(globalOf(window, local));
        XTestFakeButtonEvent(display(), 1, True, CurrentTime);
        settle();
    } else {
        QTest::mousePress(window->windowHandle(), Qt::LeftButton, Qt::KeyboardModifiers(), local);
        QTest::qWait(stepMs);
    }
}

void moveTo(QWidget *window, const QPoint &local)
{
    if (realInput()) {
        // While the button is held the pointer's path is relative to where
        // the press began; the window may have moved under it since.
        movePointer(globalOf(window, local));
    } else {
        QTest::mouseMove(window->windowHandle(), local);
        QTest::qWait(stepMs);
    }
}

void release(QWidget *window, const QPoint &local)
{
    if (realInput()) {
        Q_UNUSED(local)
        XTestFakeButtonEvent(display(), 1, False, CurrentTime);
        settle();
    } else {
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, Qt::KeyboardModifiers(), local);
        QTest::qWait(stepMs);
    }
}

void click(QWidget *window, const QPoint &local)
{
    press(window, local);
    release(window, local);
}

void drag(QWidget *window, const QPoint &from, const QPoint &delta)
{
    if (realInput()) {
        // The pointer path is fixed in screen coordinates from the press on,
        // whatever the window does meanwhile.
        const QPoint start = globalOf(window, from);
        movePointer(start);
        XTestFakeButtonEvent(display(), 1, True, CurrentTime);
        settle();
        for (int step = 1; step <= 3; ++step)
            movePointer(start + delta * step / 3);
        XTestFakeButtonEvent(display(), 1, False, CurrentTime);
        settle();
    } else {
        press(window, from);
        for (int step = 1; step <= 3; ++step)
            moveTo(window, from + delta * step / 3);
        release(window, from + delta);
    }
}

void key(QWidget *window, int qtKey)
{
    if (realInput()) {
        const KeyCode code = XKeysymToKeycode(display(), keysymOf(qtKey));
        XTestFakeKeyEvent(display(), code, True, CurrentTime);
        XTestFakeKeyEvent(display(), code, False, CurrentTime);
        settle();
    } else {
        QTest::keyClick(window->windowHandle(), Qt::Key(qtKey));
        QTest::qWait(stepMs);
    }
}

QPoint serverOrigin(const QWidget *window)
{
    if (!realInput() || !window || !window->internalWinId())
        return QPoint();
    Display *dpy = display();
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(dpy, Window(window->internalWinId()), DefaultRootWindow(dpy), 0, 0, &x, &y, &child);
    return QPoint(x, y);
}

QPoint settledOrigin(const QWidget *window)
{
    QPoint last = serverOrigin(window);
    int same = 0;
    QElapsedTimer timer;
    timer.start();
    while (same < 4 && timer.elapsed() < 3000) {
        QTest::qWait(25);
        const QPoint now = serverOrigin(window);
        same = now == last ? same + 1 : 0;
        last = now;
    }
    return last;
}

QRect serverGeometry(const QWidget *window)
{
    if (!realInput() || !window || !window->internalWinId())
        return QRect();
    Window root = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    XGetGeometry(display(), Window(window->internalWinId()), &root, &x, &y, &width, &height, &border, &depth);
    return QRect(serverOrigin(window), QSize(int(width), int(height)));
}

bool compositorRunning()
{
    if (!realInput())
        return false;
    const Atom selection = XInternAtom(display(), "_NET_WM_CM_S0", False);
    return XGetSelectionOwner(display(), selection) != 0;
}

QImage grabRoot()
{
    if (!realInput())
        return QImage();
    XSync(display(), False);
    QScreen *screen = QGuiApplication::primaryScreen();
    return screen->grabWindow(0, 0, 0, -1, -1).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace DesktopInput
