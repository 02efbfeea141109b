#ifndef GALLERY_SHOTS_H
#define GALLERY_SHOTS_H
// The offscreen run: every page, and every skin of the pages that follow
// the skin, rendered to a PNG file.
#include <QImage>
#include <QStringList>

class GalleryWindow;
class QWidget;

// Writes "<page>.png", or "<page>-<skin>.png" for pages that follow the
// skin, into `dir` (created when missing). Returns the paths written, in
// order; stops at the first file that cannot be written and sets `error`.
QStringList takeShots(GalleryWindow &window, const QString &dir, QString *error);

// What a screen would show of `mainWindow`: its own picture with every other
// visible top-level window drawn over it at its place.
QImage composeScreen(QWidget *mainWindow);

#endif // GALLERY_SHOTS_H
