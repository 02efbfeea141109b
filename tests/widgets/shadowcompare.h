#ifndef ORVANE_TESTS_SHADOWCOMPARE_H
#define ORVANE_TESTS_SHADOWCOMPARE_H

// What the drop-shadow tests share: a shadowed stock button with room for its
// shadow, a render of a widget onto an image of a given ratio, and the
// pixel comparison against Qt's own effect.

#include <Orvane/imagebutton.h>
#include <Orvane/imagebuttonstyle.h>

#include <QGraphicsDropShadowEffect>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QTransform>
#include <QVBoxLayout>
#include <QWidget>

#include <memory>

namespace ShadowCompare {

using namespace Orvane;

using Factory = QSharedPointer<ImageButtonStyle> (*)();

// A button with room around it for its whole shadow; with `qtShadow` the
// button carries Qt's plain effect, which the button then drives per state.
struct Framed
{
    Framed(Factory factory, bool qtShadow)
        : frame(new QWidget)
    {
        auto *box = new QVBoxLayout(frame.get());
        box->setContentsMargins(40, 40, 40, 40);
        button = new ImageButton(factory(), frame.get());
        button->setText(QStringLiteral("Shadowed"));
        if (qtShadow) {
            button->setGraphicsEffect(new QGraphicsDropShadowEffect(button));
            button->refresh();
        }
        box->addWidget(button);
        frame->resize(frame->sizeHint());
    }
    std::unique_ptr<QWidget> frame;
    ImageButton *button = nullptr;
};

// One render of `w` and its children onto a transparent image, through a
// painter with `transform` (the image grows to hold what it maps to).
inline QImage paint(QWidget &w, qreal dpr = 1.0, qreal opacity = 1.0, const QTransform &transform = QTransform())
{
    const QRect mapped = transform.mapRect(QRect(QPoint(0, 0), w.size()));
    const QSize size = QSize(mapped.right() + 1, mapped.bottom() + 1).expandedTo(w.size());
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setOpacity(opacity);
    painter.setTransform(transform);
    w.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

// Empty when every channel of every pixel is within `tolerance`, else where
// and by how much the first pixel differs and how many do.
inline QString difference(const QImage &ours, const QImage &qts, int tolerance = 2)
{
    if (ours.size() != qts.size())
        return QStringLiteral("sizes differ");
    int count = 0;
    QString first;
    for (int y = 0; y < ours.height(); ++y) {
        for (int x = 0; x < ours.width(); ++x) {
            const QRgb a = ours.pixel(x, y);
            const QRgb b = qts.pixel(x, y);
            if (qAbs(qRed(a) - qRed(b)) > tolerance || qAbs(qGreen(a) - qGreen(b)) > tolerance
                || qAbs(qBlue(a) - qBlue(b)) > tolerance || qAbs(qAlpha(a) - qAlpha(b)) > tolerance) {
                if (count++ == 0)
                    first = QStringLiteral("(%1, %2): #%3 against Qt's #%4").arg(x).arg(y).arg(a, 8, 16).arg(b, 8, 16);
            }
        }
    }
    return count ? QStringLiteral("%1 pixels differ, first at %2").arg(count).arg(first) : QString();
}

// Gives `box` Qt's own drop shadow with the message box's settings.
inline void setQtsMessageBoxShadow(QWidget *box)
{
    auto *plain = new QGraphicsDropShadowEffect(box);
    plain->setOffset(0, 0);
    plain->setBlurRadius(30.0);
    plain->setColor(QColor(92, 93, 102, 51));
    box->setGraphicsEffect(plain);
}

} // namespace ShadowCompare

#endif // ORVANE_TESTS_SHADOWCOMPARE_H
