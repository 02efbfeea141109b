#include "cachedshadoweffect_p.h"

#include <QEvent>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

#include <climits>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define ORVANE_SAME_ALPHA_SSE2
#endif

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
    void drawPixmap(const QRectF &r, const QPixmap &pm, const QRectF &) override
    {
        if (pixmap.isNull()) {
            pixmap = pm;
            pixmapAt = r.topLeft().toPoint();
        }
    }
    void drawImage(const QRectF &, const QImage &im, const QRectF &, Qt::ImageConversionFlags) override
    {
        if (image.isNull())
            image = im;
    }
    Type type() const override { return QPaintEngine::User; }

    QImage image;
    QPixmap pixmap;
    QPoint pixmapAt;
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

// Whether a rendered source (premultiplied ARGB) has exactly the alpha
// channel `alpha` (Alpha8) holds: all the shadow is made from. Every new
// box compares its whole source once, so the rows are compared sixteen
// pixels at a time where the processor allows.
bool sameAlpha(const QImage &source, const QImage &alpha)
{
    if (source.size() != alpha.size() || source.devicePixelRatioF() != alpha.devicePixelRatioF())
        return false;
    const int w = source.width();
    for (int y = 0; y < source.height(); ++y) {
        const auto *s = reinterpret_cast<const quint32 *>(source.constScanLine(y));
        const uchar *a = alpha.constScanLine(y);
        int x = 0;
#ifdef ORVANE_SAME_ALPHA_SSE2
        __m128i wide = _mm_setzero_si128();
        for (; x + 16 <= w; x += 16) {
            const auto *at = reinterpret_cast<const __m128i *>(s + x);
            // The alpha bytes of sixteen pixels, packed in pixel order.
            const __m128i low = _mm_packs_epi32(_mm_srli_epi32(_mm_loadu_si128(at), 24),
                                                _mm_srli_epi32(_mm_loadu_si128(at + 1), 24));
            const __m128i high = _mm_packs_epi32(_mm_srli_epi32(_mm_loadu_si128(at + 2), 24),
                                                 _mm_srli_epi32(_mm_loadu_si128(at + 3), 24));
            const __m128i kept = _mm_loadu_si128(reinterpret_cast<const __m128i *>(a + x));
            wide = _mm_or_si128(wide, _mm_xor_si128(_mm_packus_epi16(low, high), kept));
        }
        if (_mm_movemask_epi8(_mm_cmpeq_epi8(wide, _mm_setzero_si128())) != 0xffff)
            return false;
#endif
        quint32 diff = 0;
        for (; x < w; ++x)
            diff |= (s[x] >> 24) ^ a[x];
        if (diff)
            return false;
    }
    return true;
}

// A rectangle, around the centre, where `alpha` (Alpha8) is opaque
// throughout; empty when the centre is not. Each row's opaque run through
// the centre column is scanned, so the rectangle is the widest that every
// row of the centre column's opaque run covers.
QRect opaqueCentre(const QImage &alpha)
{
    const int cx = alpha.width() / 2;
    const int cy = alpha.height() / 2;
    if (alpha.isNull() || alpha.constScanLine(cy)[cx] != 255)
        return QRect();
    int top = cy;
    while (top > 0 && alpha.constScanLine(top - 1)[cx] == 255)
        --top;
    int bottom = cy;
    while (bottom + 1 < alpha.height() && alpha.constScanLine(bottom + 1)[cx] == 255)
        ++bottom;
    int left = 0;
    int right = alpha.width() - 1;
    for (int y = top; y <= bottom; ++y) {
        const uchar *line = alpha.constScanLine(y);
        int l = cx;
        while (l > left && line[l - 1] == 255)
            --l;
        int r = cx;
        while (r < right && line[r + 1] == 255)
            ++r;
        left = l;
        right = r;
    }
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

// Whether `alpha` (Alpha8) is zero everywhere outside `inner`.
bool clearOutside(const QImage &alpha, const QRect &inner)
{
    for (int y = 0; y < alpha.height(); ++y) {
        const uchar *line = alpha.constScanLine(y);
        const bool innerRow = y >= inner.top() && y <= inner.bottom();
        for (int x = 0; x < alpha.width(); ++x) {
            if (line[x] && !(innerRow && x >= inner.left() && x <= inner.right()))
                return false;
        }
    }
    return true;
}

} // namespace

// A shadow and what it was made from.
struct CachedShadowEffect::Shadow
{
    QImage alpha; // the source's alpha channel, Alpha8
    QPointF offset;
    qreal blurRadius;
    QColor color;
    QImage image; // Qt's shadow, drawn at the source's position
    QRect covered; // where the source is opaque and hides the shadow
    // The widget's own rectangle within `alpha` and its alpha channel, for
    // comparing a source rendered without the blur's margin; valid only
    // when `alpha` is transparent everywhere outside it.
    QRect inner;
    QImage innerAlpha;

    qint64 bytes() const { return alpha.sizeInBytes() + image.sizeInBytes() + innerAlpha.sizeInBytes(); }
};

QList<QSharedPointer<const CachedShadowEffect::Shadow>> &CachedShadowEffect::sharedShadows()
{
    // The latest shadows made, most recent first, for every effect.
    static auto *shadows = new QList<QSharedPointer<const Shadow>>;
    return *shadows;
}

void CachedShadowEffect::dropSharedShadows()
{
    sharedShadows().clear();
}

int CachedShadowEffect::sharedShadowCount()
{
    return sharedShadows().size();
}

qint64 CachedShadowEffect::sharedShadowBytes()
{
    qint64 bytes = 0;
    for (const QSharedPointer<const Shadow> &shadow : sharedShadows())
        bytes += shadow->bytes();
    return bytes;
}

CachedShadowEffect::CachedShadowEffect(QObject *parent)
    : QGraphicsDropShadowEffect(parent),
      m_padded(true),
      m_devicePixelRatio(0),
      m_witnessed(false),
      m_blurs(0),
      m_renders(0)
{
}

CachedShadowEffect::~CachedShadowEffect() = default;

void CachedShadowEffect::setSourceWitness(std::unique_ptr<SourceWitness> witness)
{
    m_witness = std::move(witness);
    m_witnessed = false;
}

bool CachedShadowEffect::eventFilter(QObject *watched, QEvent *event)
{
    // Changes made while hidden mark nothing for repainting, so Qt's copy of
    // the source may be stale once the widget shows again.
    if (watched == m_watched && event->type() == QEvent::Hide) {
        m_source = QPixmap();
        m_witnessed = false;
    }
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
    if (sourceStillValid(painter, widget) || sourceWitnessedUnchanged(painter, widget)) {
        drawShadow(painter);
        return;
    }

    // Qt draws in device coordinates so that the pixmap is never scaled.
    // A witnessed widget keeps its render, so it is made without the blur's
    // margin, which only a blur needs (drawn over, a transparent margin
    // changes nothing). Elsewhere, or where the margin would not be a whole
    // number of pixels, the render comes with the margin.
    ++m_renders;
    const qreal ratio = painter->device()->devicePixelRatioF();
    const bool unpadded = m_witness && widget && ratio == qreal(qRound(ratio))
        && painter->worldTransform().type() <= QTransform::TxTranslate
        && painter->compositionMode() == QPainter::CompositionMode_SourceOver;
    QPoint at;
    const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &at, unpadded ? NoPad : PadToEffectiveBoundingRect);
    if (source.isNull()) {
        forget();
        return;
    }
    QImage image = source.toImage();
    if (image.format() != QImage::Format_ARGB32_Premultiplied)
        image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    m_sourceAt = at;
    m_at = at;
    QRect inner(QPoint(0, 0), image.size());
    if (unpadded) {
        const QRectF widgetRect = painter->worldTransform().mapRect(QRectF(widget->rect()));
        m_at = boundingRectFor(widgetRect).toAlignedRect().topLeft();
        inner.moveTopLeft((at - m_at) * qRound(ratio));
    }
    m_padded = !unpadded;
    if (findShadow(image, inner)) {
        m_source = source;
    } else if (!blur(unpadded ? source : QPixmap(), inner)) {
        forget();
        QGraphicsDropShadowEffect::draw(painter);
        return;
    }
    m_transform = painter->worldTransform();
    m_devicePixelRatio = painter->device()->devicePixelRatioF();
    m_sourceRect = sourceBoundingRect();
    drawShadow(painter);
    // Only a render made while shown is kept valid by Qt's repaint marking,
    // and only such a render is vouched for by the witness.
    if (!widget || !widget->isVisible() || !widget->updatesEnabled()) {
        m_source = QPixmap();
        m_witnessed = false;
    } else if (m_witness) {
        m_witness->remember();
        m_witnessed = true;
    }
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

bool CachedShadowEffect::sameGeometry(const QPainter *painter, const QWidget *widget) const
{
    // The kept shadow and source, drawn as they were made, shown and with
    // the same effect settings, painter transform, ratio and size.
    return widget && m_shadow && !m_source.isNull() && widget->isVisible() && widget->updatesEnabled()
        && (m_padded || painter->compositionMode() == QPainter::CompositionMode_SourceOver)
        && m_shadow->offset == offset() && m_shadow->blurRadius == blurRadius() && m_shadow->color == color()
        && m_transform == painter->worldTransform() && m_devicePixelRatio == painter->device()->devicePixelRatioF()
        && m_sourceRect == sourceBoundingRect();
}

bool CachedShadowEffect::sourceStillValid(const QPainter *painter, const QWidget *widget) const
{
    // While Qt's cache holds the source, the kept pixmap is shared with it;
    // marking the widget for repainting removes that entry.
    return !m_source.isDetached() && sameGeometry(painter, widget);
}

bool CachedShadowEffect::sourceWitnessedUnchanged(const QPainter *painter, const QWidget *widget) const
{
    return m_witnessed && m_witness && sameGeometry(painter, widget) && m_witness->unchanged();
}

bool CachedShadowEffect::fits(const Shadow &shadow, const QImage &source, const QRect &inner) const
{
    if (shadow.offset != offset() || shadow.blurRadius != blurRadius() || shadow.color != color())
        return false;
    if (m_padded)
        return sameAlpha(source, shadow.alpha);
    return !shadow.innerAlpha.isNull() && shadow.inner == inner && sameAlpha(source, shadow.innerAlpha);
}

bool CachedShadowEffect::findShadow(const QImage &source, const QRect &inner)
{
    if (m_shadow && fits(*m_shadow, source, inner))
        return true;
    QList<QSharedPointer<const Shadow>> &shared = sharedShadows();
    for (int i = 0; i < shared.size(); ++i) {
        const QSharedPointer<const Shadow> shadow = shared.at(i);
        if (fits(*shadow, source, inner)) {
            shared.move(i, 0);
            m_shadow = shadow;
            return true;
        }
    }
    return false;
}

bool CachedShadowEffect::blur(const QPixmap &unpadded, const QRect &inner)
{
    // Qt renders the source again (now the one in its cache) and blurs it.
    RecordingDevice device;
    {
        QPainter recorder(&device);
        QGraphicsDropShadowEffect::draw(&recorder);
    }
    if (device.engine.image.isNull() || device.engine.pixmap.isNull())
        return false;
    QSharedPointer<Shadow> shadow(new Shadow);
    shadow->alpha = device.engine.pixmap.toImage().convertToFormat(QImage::Format_Alpha8);
    shadow->offset = offset();
    shadow->blurRadius = blurRadius();
    shadow->color = color();
    shadow->image = device.engine.image;
    if (shadow->image.size() == shadow->alpha.size())
        shadow->covered = opaqueCentre(shadow->alpha);
    if (!unpadded.isNull()) {
        // Qt rendered the source again with the margin; the unpadded render
        // must lie where the widget lies in it, with nothing around it.
        if (device.engine.pixmapAt != m_at || !shadow->alpha.rect().contains(inner)
            || !clearOutside(shadow->alpha, inner))
            return false;
        shadow->inner = inner;
        shadow->innerAlpha = shadow->alpha.copy(inner);
        m_source = unpadded;
    } else {
        m_source = device.engine.pixmap;
    }
    m_shadow = shadow;
    ++m_blurs;

    QList<QSharedPointer<const Shadow>> &shared = sharedShadows();
    shared.prepend(shadow);
    qint64 bytes = 0;
    int kept = 0;
    while (kept < shared.size() && kept < SharedShadowLimit) {
        bytes += shared.at(kept)->bytes();
        if (kept > 0 && bytes > SharedShadowByteLimit)
            break;
        ++kept;
    }
    shared.erase(shared.begin() + kept, shared.end());
    return true;
}

void CachedShadowEffect::drawShadow(QPainter *painter) const
{
    // As Qt draws them: the shadow, then the source over it, unscaled.
    const QTransform restore = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    const QImage &image = m_shadow->image;
    const QRect covered = m_shadow->covered;
    // Under opaque source pixels a blended shadow is never seen; on a 1:1
    // device the shadow is drawn only around them.
    if (!covered.isEmpty() && image.devicePixelRatioF() == 1.0 && painter->opacity() == 1.0
        && painter->compositionMode() == QPainter::CompositionMode_SourceOver) {
        const int w = image.width();
        const int h = image.height();
        const QRect bands[] = {QRect(0, 0, w, covered.top()),
                               QRect(0, covered.bottom() + 1, w, h - covered.bottom() - 1),
                               QRect(0, covered.top(), covered.left(), covered.height()),
                               QRect(covered.right() + 1, covered.top(), w - covered.right() - 1, covered.height())};
        for (const QRect &band : bands) {
            if (!band.isEmpty())
                painter->drawImage(m_at + band.topLeft(), image, band);
        }
    } else {
        painter->drawImage(m_at, image);
    }
    painter->drawPixmap(m_sourceAt, m_source);
    painter->setWorldTransform(restore);
}

void CachedShadowEffect::forget()
{
    m_shadow.reset();
    m_source = QPixmap();
    m_witnessed = false;
}

} // namespace Orvane
