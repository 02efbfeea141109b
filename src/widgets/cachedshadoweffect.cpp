#include "cachedshadoweffect_p.h"

#include <QEvent>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

#include <climits>

namespace Orvane {

namespace {

// Draws nothing and keeps the first image and the first pixmap it is given:
// Qt's drop-shadow drawing hands it the shadow, then the source.
class RecordingEngine : public QPaintEngine
{
public:
    RecordingEngine()
        : QPaintEngine(QPaintEngine::AllFeatures)
    {
    }
    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &pm, const QRectF &) override
    {
        if (pixmap.isNull())
            pixmap = pm;
    }
    void drawImage(const QRectF &, const QImage &im, const QRectF &, Qt::ImageConversionFlags) override
    {
        if (image.isNull())
            image = im;
    }
    Type type() const override { return QPaintEngine::User; }

    QImage image;
    QPixmap pixmap;
};

class RecordingDevice : public QPaintDevice
{
public:
    RecordingDevice() = default;
    ~RecordingDevice() override = default;
    QPaintEngine *paintEngine() const override { return &engine; }

    mutable RecordingEngine engine;

protected:
    int metric(PaintDeviceMetric m) const override
    {
        switch (m) {
        case PdmWidth:
        case PdmHeight:
            // Large enough that nothing Qt draws falls outside.
            return 1 << 20;
        case PdmWidthMM:
        case PdmHeightMM:
            return (1 << 20) * 254 / 960;
        case PdmNumColors:
            return INT_MAX;
        case PdmDepth:
            return 32;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(QPaintDevice::devicePixelRatioFScale());
        }
        return QPaintDevice::metric(m);
    }
};

// Whether two renders of the source have the same alpha channel, which is
// all the shadow is made from.
bool sameAlpha(const QImage &a, const QImage &b)
{
    if (a.size() != b.size() || a.format() != b.format() || a.devicePixelRatioF() != b.devicePixelRatioF())
        return false;
    if (a.format() != QImage::Format_ARGB32_Premultiplied)
        return a == b;
    const int w = a.width();
    for (int y = 0; y < a.height(); ++y) {
        const auto *pa = reinterpret_cast<const quint32 *>(a.constScanLine(y));
        const auto *pb = reinterpret_cast<const quint32 *>(b.constScanLine(y));
        quint32 diff = 0;
        for (int x = 0; x < w; ++x)
            diff |= pa[x] ^ pb[x];
        if (diff & 0xff000000u)
            return false;
    }
    return true;
}

} // namespace

CachedShadowEffect::CachedShadowEffect(QObject *parent)
    : QGraphicsDropShadowEffect(parent),
      m_blurRadius(0),
      m_devicePixelRatio(0),
      m_blurs(0),
      m_renders(0)
{
}

CachedShadowEffect::~CachedShadowEffect() = default;

bool CachedShadowEffect::eventFilter(QObject *watched, QEvent *event)
{
    // Changes made while hidden mark nothing for repainting, so Qt's copy of
    // the source may be stale once the widget shows again.
    if (watched == m_watched && event->type() == QEvent::Hide)
        m_source = QPixmap();
    return QGraphicsDropShadowEffect::eventFilter(watched, event);
}

void CachedShadowEffect::draw(QPainter *painter)
{
    // Without blur and offset Qt draws the bare source.
    if (blurRadius() <= 0 && offset().isNull()) {
        QGraphicsDropShadowEffect::draw(painter);
        return;
    }

    const QWidget *widget = watchedWidget();
    if (sourceStillValid(painter, widget)) {
        drawShadow(painter);
        return;
    }

    // Qt draws in device coordinates so that the pixmap is never scaled.
    ++m_renders;
    QPoint at;
    const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &at, PadToEffectiveBoundingRect);
    if (source.isNull()) {
        forget();
        return;
    }
    const QImage image = source.toImage();
    m_at = at;
    if (shadowFits(image)) {
        m_source = source;
        m_sourceImage = image;
    } else if (!blur()) {
        forget();
        QGraphicsDropShadowEffect::draw(painter);
        return;
    }
    m_transform = painter->worldTransform();
    m_devicePixelRatio = painter->device()->devicePixelRatioF();
    m_sourceRect = sourceBoundingRect();
    drawShadow(painter);
    // Only a render made while shown is kept valid by Qt's repaint marking.
    if (!widget || !widget->isVisible() || !widget->updatesEnabled())
        m_source = QPixmap();
}

void CachedShadowEffect::sourceChanged(ChangeFlags flags)
{
    QGraphicsDropShadowEffect::sourceChanged(flags);
    if (flags & (SourceAttached | SourceDetached))
        forget();
}

QWidget *CachedShadowEffect::watchedWidget()
{
    auto *widget = qobject_cast<QWidget *>(parent());
    if (!widget || widget->graphicsEffect() != this)
        return nullptr;
    if (m_watched != widget) {
        if (m_watched)
            m_watched->removeEventFilter(this);
        widget->installEventFilter(this);
        m_watched = widget;
    }
    return widget;
}

bool CachedShadowEffect::sourceStillValid(const QPainter *painter, const QWidget *widget) const
{
    // While Qt's cache holds the source, the kept pixmap is shared with it;
    // marking the widget for repainting removes that entry.
    return widget && !m_source.isNull() && !m_source.isDetached() && widget->isVisible() && widget->updatesEnabled()
        && m_offset == offset() && m_blurRadius == blurRadius() && m_color == color()
        && m_transform == painter->worldTransform() && m_devicePixelRatio == painter->device()->devicePixelRatioF()
        && m_sourceRect == sourceBoundingRect();
}

bool CachedShadowEffect::shadowFits(const QImage &source) const
{
    return !m_shadow.isNull() && m_offset == offset() && m_blurRadius == blurRadius() && m_color == color()
        && sameAlpha(m_sourceImage, source);
}

bool CachedShadowEffect::blur()
{
    // Qt renders the source again (now the one in its cache) and blurs it.
    RecordingDevice device;
    {
        QPainter recorder(&device);
        QGraphicsDropShadowEffect::draw(&recorder);
    }
    if (device.engine.image.isNull() || device.engine.pixmap.isNull())
        return false;
    m_shadow = device.engine.image;
    m_source = device.engine.pixmap;
    m_sourceImage = m_source.toImage();
    m_offset = offset();
    m_blurRadius = blurRadius();
    m_color = color();
    ++m_blurs;
    return true;
}

void CachedShadowEffect::drawShadow(QPainter *painter) const
{
    // As Qt draws them: the shadow, then the source over it, unscaled.
    const QTransform restore = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    painter->drawImage(m_at, m_shadow);
    painter->drawPixmap(m_at, m_source);
    painter->setWorldTransform(restore);
}

void CachedShadowEffect::forget()
{
    m_shadow = QImage();
    m_source = QPixmap();
    m_sourceImage = QImage();
}

} // namespace Orvane
