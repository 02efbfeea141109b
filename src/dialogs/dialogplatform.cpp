#include "dialogs/dialogplatform_p.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#if !defined(Q_OS_WIN)
#include <qpa/qplatformnativeinterface.h>
#endif

namespace Orvane {

namespace {

int &translucencyOverride()
{
    static int value = -1;
    return value;
}

int &systemMoveOverride()
{
    static int value = -1;
    return value;
}

int &dragMoves()
{
    static int count = 0;
    return count;
}

int &systemMoves()
{
    static int count = 0;
    return count;
}

#if !defined(Q_OS_WIN)
QScreen *screenOf(const QWidget *widget)
{
    if (widget) {
        if (const QWindow *window = widget->window()->windowHandle()) {
            if (window->screen())
                return window->screen();
        }
        if (QScreen *screen = QGuiApplication::screenAt(widget->geometry().center()))
            return screen;
    }
    return QGuiApplication::primaryScreen();
}
#endif

} // namespace

bool platformShowsTranslucency(const QWidget *widget)
{
    if (translucencyOverride() >= 0)
        return translucencyOverride() != 0;
#if defined(Q_OS_WIN)
    Q_UNUSED(widget)
    return true;
#else
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return true;
    QPlatformNativeInterface *native = QGuiApplication::platformNativeInterface();
    QScreen *screen = screenOf(widget);
    if (!native || !screen)
        return true;
    // The plugin answers non-null while a compositing manager owns the
    // screen's _NET_WM_CM_S<n> selection.
    return native->nativeResourceForScreen(QByteArrayLiteral("compositingenabled"), screen) != nullptr;
#endif
}

bool platformUsesSystemMove()
{
    if (systemMoveOverride() >= 0)
        return systemMoveOverride() != 0;
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

void setTranslucencyOverride(int value)
{
    translucencyOverride() = value < 0 ? -1 : (value ? 1 : 0);
}

void setSystemMoveOverride(int value)
{
    systemMoveOverride() = value < 0 ? -1 : (value ? 1 : 0);
}

int dragMoveCount()
{
    return dragMoves();
}

int systemMoveCount()
{
    return systemMoves();
}

void resetDragCounters()
{
    dragMoves() = 0;
    systemMoves() = 0;
}

void countDragMove()
{
    ++dragMoves();
}

void countSystemMove()
{
    ++systemMoves();
}

} // namespace Orvane
