#ifndef ORVANE_DIALOGPLATFORM_P_H
#define ORVANE_DIALOGPLATFORM_P_H

// What the bar dialog and the message box ask of the windowing platform, in
// one place, with the hooks the tests use to choose an answer.
//
// Translucency. The rounded panel with its transparent band and drop shadow
// needs a compositor. Without one (X11 with no owner of the
// _NET_WM_CM_S<screen> selection) the transparent pixels show black, so the
// dialogs then draw an opaque panel with square corners and no band. The
// answer is asked for each new dialog, so dialogs opened after a compositor
// starts or stops follow the new state:
// - X11 ("xcb"): Qt's platform plugin tracks the selection owner; it is
//   asked through the platform native interface for the screen resource
//   "compositingenabled" (Qt's private QPA header, not an extra library).
// - Windows always composites; Wayland compositors always do; the offscreen
//   platform renders translucency itself. All of these say yes.
//
// Dragging. On Wayland a client cannot place its own window: the drag is
// handed to the compositor with QWindow::startSystemMove() on the first move
// after a press (a click on the bar stays a click) and move() is never
// called. Everywhere else the dialog moves itself by the pointer's delta.
//
// GUI thread only; the overrides and counters are plain statics.

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Orvane {

// Whether `widget`'s window can show translucent pixels over what lies
// behind it (see above). `widget` may be null: the primary screen is asked.
bool platformShowsTranslucency(const QWidget *widget);

// Whether the bar hands drags to the compositor (Wayland) instead of moving
// the window itself.
bool platformUsesSystemMove();

// Test hooks. An override of -1 (the default) asks the platform; 0 and 1
// force the answer no or yes.
void setTranslucencyOverride(int value);
void setSystemMoveOverride(int value);

// Counters of what the bars' drags did since the last reset: calls of
// move() made by a drag, and hand-overs to the compositor.
int dragMoveCount();
int systemMoveCount();
void resetDragCounters();

// Used by the bar dialog to keep the counters.
void countDragMove();
void countSystemMove();

} // namespace Orvane

#endif // ORVANE_DIALOGPLATFORM_P_H
