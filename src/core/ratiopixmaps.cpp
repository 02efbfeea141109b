#include "ratiopixmaps_p.h"

#include <QFile>
#include <QGuiApplication>
#include <QWidget>

namespace Orvane {

QString twinPath(const QString &path)
{
    // Only a dot in the file's own name starts an extension.
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot <= slash)
        return path + QLatin1String("@2x");
    return QString(path).insert(dot, QLatin1String("@2x"));
}

int pictureRatio(qreal ratio)
{
    return ratio > 1.0 ? 2 : 1;
}

QPixmap loadPixmapForRatio(const QString &path, qreal ratio)
{
    if (pictureRatio(ratio) == 2 && !path.isEmpty()) {
        const QString twin = twinPath(path);
        if (QFile::exists(twin)) {
            QPixmap pixmap(twin);
            if (!pixmap.isNull()) {
                pixmap.setDevicePixelRatio(2.0);
                return pixmap;
            }
        }
    }
    return QPixmap(path);
}

qreal applicationPixelRatio()
{
    return qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
}

RatioWatcher::RatioWatcher(QWidget *widget, std::function<void(qreal)> check)
    : QObject(widget),
      m_widget(widget),
      m_check(std::move(check))
{
    widget->installEventFilter(this);
}

bool RatioWatcher::eventFilter(QObject *watched, QEvent *event)
{
    // Qt tells every widget of a window that moved to another screen.
    if (watched == m_widget && m_check
        && (event->type() == QEvent::ScreenChangeInternal || event->type() == QEvent::Show))
        m_check(m_widget->devicePixelRatioF());
    return QObject::eventFilter(watched, event);
}

} // namespace Orvane
