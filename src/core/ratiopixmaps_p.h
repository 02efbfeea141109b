#ifndef ORVANE_RATIOPIXMAPS_P_H
#define ORVANE_RATIOPIXMAPS_P_H

// Pictures for scaled screens. Beside a picture "name.png" the library (and a
// host's sprite sheet) may ship "name@2x.png", drawn at twice the size; a
// name without an extension gets "@2x" at its end ("checkbox_0@2x"), where
// Qt's own style sheets and QIcon look for it. Qt 5's QPixmap(path) never
// looks, so the library loads through these helpers wherever it builds a
// pixmap from a path itself.
//
// A device pixel ratio above 1 (125 %, 150 %, 200 % ...) takes the twin,
// with device pixel ratio 2, so that Qt scales it down (or not at all)
// rather than up; at ratio 1 the plain picture is loaded as before.

#include <QEvent>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QString>

#include <functional>

class QWidget;

namespace Orvane {

// "a/b.png" -> "a/b@2x.png"; "a/b" -> "a/b@2x".
QString twinPath(const QString &path);

// The ratio of the picture to load for drawing at `ratio`: 2 when the ratio
// is above 1, else 1.
int pictureRatio(qreal ratio);

// The picture at `path` for drawing at `ratio`: the twin (device pixel
// ratio 2) when the ratio is above 1 and the twin exists, else the picture
// itself. A missing file gives a null pixmap.
QPixmap loadPixmapForRatio(const QString &path, qreal ratio);

// The largest device pixel ratio of the application's screens (1 without
// an application).
qreal applicationPixelRatio();

// Calls `check` with the device pixel ratio `widget` draws at whenever that
// can have changed: when its window moved to another screen (which may be
// scaled otherwise) and when it is shown (a widget built before its window
// knew its screen). `check` compares with what it shows and replaces
// pictures of the wrong ratio. The watcher is a child of the widget and
// dies with it.
class RatioWatcher : public QObject
{
public:
    RatioWatcher(QWidget *widget, std::function<void(qreal)> check);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QWidget> m_widget;
    std::function<void(qreal)> m_check;

    Q_DISABLE_COPY(RatioWatcher)
};

} // namespace Orvane

#endif // ORVANE_RATIOPIXMAPS_P_H
