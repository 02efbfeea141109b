// One frame of the spinning label against the frame as it is defined: the
// picture turned by QPixmap::transformed and its middle cut out with
// QPixmap::copy. The label makes the frame without copying the middle, so
// every pixel, the size, the format and the ratio are compared.

#include "widgets/rotationlabel_p.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTransform>
#include <QtTest>

using namespace Orvane;

namespace {

// The frame computation written out step by step.
QPixmap definedFrame(const QPixmap &source, qreal degrees)
{
    const int w = source.width();
    const int h = source.height();
    QPixmap turned = source.transformed(QTransform().rotate(degrees), Qt::SmoothTransformation);
    turned.setDevicePixelRatio(1.0);
    const QRect part((turned.width() - w) / 2, (turned.height() - h) / 2, w, h);
    QPixmap frame;
    if (turned.rect().contains(part)) {
        frame = turned.copy(part);
    } else {
        frame = QPixmap(w, h);
        frame.fill(Qt::transparent);
        QPainter painter(&frame);
        painter.drawPixmap(-part.x(), -part.y(), turned);
    }
    frame.setDevicePixelRatio(source.devicePixelRatio());
    return frame;
}

// A picture with detail everywhere: a ring, a bar off the centre and a
// diagonal, on transparent (or, opaque, on grey).
QPixmap picture(QSize size, qreal ratio, bool opaque)
{
    QImage image(size, opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    image.fill(opaque ? QColor(Qt::gray) : QColor(Qt::transparent));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0x30, 0x70, 0xC0, 200));
    painter.setPen(QPen(Qt::white, 3));
    painter.drawEllipse(QRectF(size.width() * 0.1, size.height() * 0.1, size.width() * 0.8, size.height() * 0.8));
    painter.fillRect(QRectF(size.width() * 0.45, 0, size.width() * 0.1, size.height() * 0.3), Qt::red);
    painter.setPen(QPen(Qt::green, 1));
    painter.drawLine(0, 0, size.width(), size.height());
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

} // namespace

class tst_RotatedFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameAsDefined_data();
    void sameAsDefined();
    void framesAreIndependent();
    void nullSource();
};

void tst_RotatedFrame::sameAsDefined_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<bool>("opaque");
    QTest::newRow("32 px") << QSize(32, 32) << 1.0 << false;
    QTest::newRow("128 px") << QSize(128, 128) << 1.0 << false;
    QTest::newRow("odd 33 x 17") << QSize(33, 17) << 1.0 << false;
    QTest::newRow("tall 24 x 40") << QSize(24, 40) << 1.0 << false;
    QTest::newRow("opaque 48 px") << QSize(48, 48) << 1.0 << true;
    QTest::newRow("opaque oblong 40 x 24") << QSize(40, 24) << 1.0 << true;
    QTest::newRow("64 px @2x") << QSize(64, 64) << 2.0 << false;
}

void tst_RotatedFrame::sameAsDefined()
{
    QFETCH(QSize, size);
    QFETCH(qreal, ratio);
    QFETCH(bool, opaque);
    const QPixmap source = picture(size, ratio, opaque);
    QVector<qreal> angles = {0.0, 90.0, 180.0, 270.0, 360.0, -90.0, 45.0, -45.0, 720.5, 0.001, 89.999};
    // Every angle a one-second turn can reach in whole milliseconds would be
    // 1000; a step of 0.37 degrees visits as many, off the round numbers.
    for (int i = 0; i < 1000; ++i)
        angles << i * 0.37 + 0.013;
    for (qreal angle : angles) {
        const QPixmap ours = rotatedFrame(source, angle);
        const QPixmap defined = definedFrame(source, angle);
        const QString where = QStringLiteral("at %1 degrees").arg(angle);
        QVERIFY2(ours.size() == defined.size(), qPrintable(where));
        QVERIFY2(ours.devicePixelRatio() == defined.devicePixelRatio(), qPrintable(where));
        const QImage a = ours.toImage();
        const QImage b = defined.toImage();
        QVERIFY2(a.format() == b.format(), qPrintable(where));
        QVERIFY2(a == b, qPrintable(where));
    }
}

void tst_RotatedFrame::framesAreIndependent()
{
    // A frame shares its pixels with nothing a caller can see: painting on
    // one leaves the next one and the source alone.
    const QPixmap source = picture(QSize(32, 32), 1.0, false);
    const QImage before = source.toImage();
    QPixmap first = rotatedFrame(source, 30.0);
    const QImage second = rotatedFrame(source, 30.0).toImage();
    {
        QPainter painter(&first);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(first.rect(), Qt::red);
    }
    QCOMPARE(first.toImage().pixelColor(16, 16), QColor(Qt::red));
    QCOMPARE(rotatedFrame(source, 30.0).toImage(), second);
    QCOMPARE(source.toImage(), before);
}

void tst_RotatedFrame::nullSource()
{
    QVERIFY(rotatedFrame(QPixmap(), 30.0).isNull());
}

QTEST_MAIN(tst_RotatedFrame)
#include "tst_rotatedframe.moc"
