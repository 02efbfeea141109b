#include <Orvane/slice.h>
#include <Orvane/slicemethod.h>

#include <QImage>
#include <QPixmap>
#include <QtTest>

// The two plain records: a slice cut from a sheet, and a group's layout.
class tst_Slice : public QObject
{
    Q_OBJECT

private:
    // Pixel (x, y) has red x and green y, so a cut tells where it came from.
    static QPixmap coordinateSheet()
    {
        QImage image(128, 96, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x, y, 200));
        return QPixmap::fromImage(image);
    }

private Q_SLOTS:
    void defaultSliceIsNull();
    void cut_data();
    void cut();
    void copiesShareTheSheet();
    void defaultMethodIsAllZero();
};

void tst_Slice::defaultSliceIsNull()
{
    const Orvane::Slice slice;
    QVERIFY(slice.image == nullptr);
    QVERIFY(slice.rect.isNull());
    QVERIFY(slice.slice().isNull());

    Orvane::Slice withRect;
    withRect.rect = QRect(1, 2, 3, 4);
    QVERIFY(withRect.slice().isNull());
}

void tst_Slice::cut_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("origin");

    QTest::newRow("null rectangle is the whole sheet") << QRect() << QSize(128, 96) << QPoint(0, 0);
    QTest::newRow("inside") << QRect(2, 3, 10, 20) << QSize(10, 20) << QPoint(2, 3);
    QTest::newRow("clipped at the right") << QRect(120, 10, 20, 5) << QSize(8, 5) << QPoint(120, 10);
    QTest::newRow("clipped at the top left") << QRect(-5, -5, 10, 10) << QSize(5, 5) << QPoint(0, 0);
    QTest::newRow("zero width is the whole sheet") << QRect(2, 3, 0, 20) << QSize(128, 96) << QPoint(0, 0);
    QTest::newRow("negative size is the whole sheet") << QRect(30, 3, -10, 20) << QSize(128, 96) << QPoint(0, 0);
}

void tst_Slice::cut()
{
    QFETCH(QRect, rect);
    QFETCH(QSize, size);
    QFETCH(QPoint, origin);

    QPixmap sheet = coordinateSheet();
    Orvane::Slice slice;
    slice.image = &sheet;
    slice.rect = rect;
    const QImage cut = slice.slice().toImage();
    QCOMPARE(cut.size(), size);
    QCOMPARE(QColor(cut.pixel(0, 0)), QColor(origin.x(), origin.y(), 200));
    const QPoint last(cut.width() - 1, cut.height() - 1);
    QCOMPARE(QColor(cut.pixel(last)), QColor(origin.x() + last.x(), origin.y() + last.y(), 200));
}

void tst_Slice::copiesShareTheSheet()
{
    QPixmap sheet = coordinateSheet();
    Orvane::Slice slice;
    slice.image = &sheet;
    slice.rect = QRect(4, 4, 8, 8);
    const Orvane::Slice copy = slice;
    QCOMPARE(copy.image, &sheet);
    QCOMPARE(copy.rect, slice.rect);

    // The record holds no pixels of its own: a cut sees the sheet as it is now.
    sheet.fill(Qt::black);
    QCOMPARE(QColor(copy.slice().toImage().pixel(0, 0)), QColor(Qt::black));
}

void tst_Slice::defaultMethodIsAllZero()
{
    const Orvane::SliceMethod method;
    QCOMPARE(method.type, 0);
    QCOMPARE(method.begin, QPoint(0, 0));
    QCOMPARE(method.spacing, 0);
    QCOMPARE(method.size, QSize(0, 0));
    QVERIFY(method.size.isValid());
}

QTEST_MAIN(tst_Slice)
#include "tst_slice.moc"
