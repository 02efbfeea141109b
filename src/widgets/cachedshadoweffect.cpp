#include "cachedshadoweffect_p.h"

#include <QPainter>
#include <QPixmap>
#include <QTransform>

namespace Orvane {

CachedShadowEffect::CachedShadowEffect(QObject *parent)
    : QGraphicsDropShadowEffect(parent),
      m_blurRadius(0),
      m_blurs(0)
{
}

CachedShadowEffect::~CachedShadowEffect() = default;

void CachedShadowEffect::draw(QPainter *painter)
{
    // Without blur and offset Qt draws the bare source; with a translucent or
    // non-blending painter the two layers must be blended one by one.
    if ((blurRadius() <= 0 && offset().isNull()) || painter->opacity() < 1.0
        || painter->compositionMode() != QPainter::CompositionMode_SourceOver) {
        QGraphicsDropShadowEffect::draw(painter);
        return;
    }

    // Qt draws in device coordinates so that the pixmap is never scaled.
    QPoint at;
    const QPixmap pixmap = sourcePixmap(Qt::DeviceCoordinates, &at, PadToEffectiveBoundingRect);
    if (pixmap.isNull())
        return;
    const QImage source = pixmap.toImage();
    if (!matches(source))
        compose(source, at);

    const QTransform restore = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    painter->drawImage(at, m_composed);
    painter->setWorldTransform(restore);
}

void CachedShadowEffect::sourceChanged(ChangeFlags flags)
{
    QGraphicsDropShadowEffect::sourceChanged(flags);
    if (flags & SourceDetached) {
        m_source = QImage();
        m_composed = QImage();
    }
}

bool CachedShadowEffect::matches(const QImage &source) const
{
    // QImage's equality compares size, format and every pixel, not the ratio.
    return !m_composed.isNull() && m_offset == offset() && m_blurRadius == blurRadius() && m_color == color()
        && m_source.devicePixelRatioF() == source.devicePixelRatioF() && m_source == source;
}

void CachedShadowEffect::compose(const QImage &source, const QPoint &at)
{
    QImage composed(source.size(), QImage::Format_ARGB32_Premultiplied);
    composed.setDevicePixelRatio(source.devicePixelRatioF());
    composed.fill(Qt::transparent);
    {
        QPainter p(&composed);
        // Qt's drawing lands at `at` with the world transform reset; the view
        // transform (window to viewport, equal sizes) moves `at` to the corner.
        p.setWindow(QRect(at, source.size()));
        p.setViewport(QRect(QPoint(0, 0), source.size()));
        QGraphicsDropShadowEffect::draw(&p);
    }
    m_composed = composed;
    m_source = source;
    m_offset = offset();
    m_blurRadius = blurRadius();
    m_color = color();
    ++m_blurs;
}

} // namespace Orvane
