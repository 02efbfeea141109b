#include <Orvane/rotationlabel.h>

#include "rotationlabel_p.h"

#include <QPainter>
#include <QTransform>
#include <QVariantAnimation>

namespace Orvane {

namespace {

// Lets a frame's pixels stay where the turned picture put them.
void releaseTurned(void *turned)
{
    delete static_cast<QImage *>(turned);
}

} // namespace

QPixmap rotatedFrame(const QPixmap &source, qreal degrees)
{
    if (source.isNull())
        return QPixmap();
    const int w = source.width();
    const int h = source.height();
    // Turned and cut in the source's own pixels: a @2x picture stays sharp,
    // and its ratio is put back on the frame.
    const QTransform turn = QTransform().rotate(degrees);
    if (turn.type() <= QTransform::TxTranslate) {
        // No turn at all: the picture itself, as QPixmap::transformed gives it.
        QPixmap still = source;
        still.setDevicePixelRatio(1.0);
        QPixmap frame = still.copy(QRect(0, 0, w, h));
        frame.setDevicePixelRatio(source.devicePixelRatio());
        return frame;
    }
    QImage turned = source.toImage().transformed(turn, Qt::SmoothTransformation);
    turned.setDevicePixelRatio(1.0);
    // Whole-number halves truncate toward zero, as the frame's centre is
    // defined; they are negative only where the turned picture is narrower.
    const QRect part((turned.width() - w) / 2, (turned.height() - h) / 2, w, h);

    QPixmap frame;
    if (turned.rect().contains(part)
        && (turned.format() == QImage::Format_ARGB32_Premultiplied || turned.format() == QImage::Format_RGB32)) {
        // The frame is the middle of the turned picture, shown where it
        // lies: no second picture is made and no pixel is copied.
        auto *kept = new QImage(std::move(turned));
        const int stride = int(kept->bytesPerLine());
        uchar *middle = kept->bits() + part.y() * stride + part.x() * 4;
        QImage view(middle, w, h, stride, kept->format(), releaseTurned, kept);
        frame = QPixmap::fromImage(std::move(view));
    } else if (turned.rect().contains(part)) {
        frame = QPixmap::fromImage(turned).copy(part);
    } else {
        // QPixmap::copy would clip to the turned picture; keep the size.
        frame = QPixmap(w, h);
        frame.fill(Qt::transparent);
        QPainter painter(&frame);
        painter.drawPixmap(-part.x(), -part.y(), QPixmap::fromImage(turned));
    }
    frame.setDevicePixelRatio(source.devicePixelRatio());
    return frame;
}

RotationLabel::RotationLabel()
    : QLabel(nullptr)
{
}

RotationLabel::RotationLabel(QWidget *parent)
    : QLabel(parent)
{
}

RotationLabel::~RotationLabel()
{
    delete m_animation;
}

void RotationLabel::startRotating(int duration)
{
    if (duration < 1)
        return;

    // Whatever is shown now, upright or already turned, is the new source.
    m_pixmap = pixmap(Qt::ReturnByValue);

    delete m_animation;
    m_animation = new QVariantAnimation;
    m_animation->setDuration(duration);
    m_animation->setStartValue(0.0f);
    m_animation->setEndValue(360.0f);
    m_animation->setLoopCount(-1);
    connect(m_animation, &QVariantAnimation::valueChanged, m_animation, [this](const QVariant &value) {
        if (!m_pixmap.isNull())
            setPixmap(rotatedFrame(m_pixmap, value.toReal()));
    });
    m_animation->start(QAbstractAnimation::KeepWhenStopped);
}

void RotationLabel::stopRotating()
{
    if (!m_animation)
        return;
    m_animation->stop();
    delete m_animation;
    m_animation = nullptr;
}

} // namespace Orvane
