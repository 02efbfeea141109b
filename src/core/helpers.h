#ifndef ORVANE_HELPERS_H
#define ORVANE_HELPERS_H

/// @file
/// Window, layout and image helpers shared by the library's widgets and the
/// host applications: box layouts with margin and spacing, centring a window
/// over the application's main window, opening a web address, tinting a
/// pixmap with a flat colour, joining path pieces and nine-slice drawing.
///
/// All are stateless and meant for the GUI thread. None reports an error: a
/// null widget or a missing main window makes the centring functions do
/// nothing, a missing image file gives a null pixmap.
///
/// The debug lines of findMainWindow() and moveToCenterOfWindow() go through
/// Qt's debug message channel, so they reach the log file once the host has
/// called initMiniLogger().
///
/// @code{.cpp}
/// QVBoxLayout *column = Orvane::makeVBoxLayout(page, 12, 8);
/// column->addWidget(new QLabel(tr("Pick a folder")));
/// Orvane::moveToCenter(dialog, nullptr); // over the main window
/// const QPixmap icon = Orvane::loadImageWithTintColor(":/icons/gear.png", "#E3E3E3");
/// @endcode

#include <Orvane/orvane_export.h>

#include <QMargins>
#include <QPixmap>
#include <QSize>
#include <QString>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
class QPainter;
class QVBoxLayout;
class QWidget;
QT_END_NAMESPACE

namespace Orvane {

/// A QHBoxLayout on `parent` (may be null) with all four contents margins set
/// to `margin` and the given spacing. The caller, or the parent widget the
/// layout was installed on, owns it. A parent that already has a layout keeps
/// its old one (Qt warns) and the new layout is returned without a parent,
/// owned by the caller. Never null.
/// @guithread
ORVANE_EXPORT QHBoxLayout *makeHBoxLayout(QWidget *parent, int margin, int spacing);

/// The same as makeHBoxLayout() for a QVBoxLayout: margins, spacing,
/// ownership and a parent that already has a layout alike. Never null.
/// @guithread
ORVANE_EXPORT QVBoxLayout *makeVBoxLayout(QWidget *parent, int margin, int spacing);

/// The first top-level widget that is a QMainWindow; failing that, the first
/// whose class name is exactly "MainWindow" (after the debug line
/// "find mainWindow"); otherwise null (also without an application object).
/// @guithread
ORVANE_EXPORT QWidget *findMainWindow();

/// Centres `widget`, at its current size, over the main window that
/// findMainWindow() finds. `parent` is deliberately ignored: the reference is
/// always the main window.
/// @badinput Nothing happens for a null widget or without a main window.
/// @guithread
ORVANE_EXPORT void moveToCenter(QWidget *widget, QWidget *parent);

/// Gives `widget` its size hint and centres it on the centre of every
/// QMainWindow's geometry in turn, so the last one in QApplication::allWidgets()
/// order wins. Writes the debug lines "wnd center: QPoint(x,y)" with that
/// window's top-left corner and "sz: QSize(w, h)" with the size.
/// @badinput Nothing happens for a null widget; without a QMainWindow the
/// widget only gets its size hint.
/// @guithread
ORVANE_EXPORT void moveToCenterOfWindow(QWidget *widget);

/// Opens `url` (parsed tolerantly) in the system browser; the result is
/// discarded.
/// @badinput An empty or unusable address opens nothing; no error is reported.
/// @guithread
ORVANE_EXPORT void openWebURL(const QString &url);

/// Replaces the colour of every visible pixel of `pixmap` by `colorName` and
/// keeps its alpha channel and its device pixel ratio.
/// @badinput An empty name leaves the pixmap untouched; a name QColor cannot
/// parse fills with what QColor makes of it (no check); a null pixmap stays
/// null.
/// @guithread
ORVANE_EXPORT void pixmapTintColor(QPixmap &pixmap, const QString &colorName);

/// QPixmap(path), tinted as pixmapTintColor() does when it is not null and
/// `colorName` is not empty. When the application draws at a device pixel
/// ratio above 1 (a screen scaled to 125 % or more, with
/// Qt::AA_EnableHighDpiScaling) and "name\@2x.png" lies beside "name.png",
/// that twin is loaded instead, with device pixel ratio 2: the same size in
/// device-independent pixels, drawn sharp.
/// @badinput A missing or unreadable file gives a null pixmap.
/// @guithread
ORVANE_EXPORT QPixmap loadImageWithTintColor(const QString &path, const QString &colorName);

/// QDir::cleanPath(base + separator + tail): "C:/a/" and "b" give "C:/a/b",
/// "a" and "../b" give "b". The result uses "/" as separator.
/// @badinput Nothing is checked against the file system; two empty pieces
/// give "/".
/// @anythread
ORVANE_EXPORT QString smartAppendPath(const QString &base, const QString &tail);

/// Paints `pixmap` over (0, 0, size) stretched by nine slices: the corners as
/// large as the margins stay unscaled, the edges stretch along their side and
/// the middle in both directions. The source middle is at least one pixel.
/// Zero margins, or a target smaller than the margins, draw the whole pixmap
/// scaled; a zero margin drops its own corner and edge pieces. Size and
/// margins are device-independent pixels: a \@2x pixmap (device pixel ratio 2)
/// with margins 12 keeps 24 of its own pixels in each corner, which look like
/// the 12-pixel corners of its 1x twin.
/// @badinput An empty or negative size, or a null pixmap, draws nothing; a
/// negative margin counts as 0.
/// @guithread (painting on a QImage works on any thread, as with QPainter)
ORVANE_EXPORT void drawStretchedImage(QPainter &painter, const QSize &size, const QPixmap &pixmap,
                                      const QMargins &margins);

} // namespace Orvane

#endif // ORVANE_HELPERS_H
