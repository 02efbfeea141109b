#include <Orvane/buttonshadoweffect.h>
#include <Orvane/imagebuttonstyle.h>
#include <Orvane/shadoweffect.h>

#include <QMetaMethod>
#include <QtTest>

#include <utility>

using namespace Orvane;

class tst_ImageButtonStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shadowEffectDefaults();
    void shadowEffectWithoutColour();
    void shadowEffectNullColourIgnoresAlpha();
    void shadowEffectColourAndAlpha_data();
    void shadowEffectColourAndAlpha();
    void shadowEffectBadColourName();
    void shadowEffectIsAValue();
    void buttonShadowEffectDefaults();
    void buttonShadowEffectCopyAndMove();
    void styleDefaults();
    void styleMetaObject();
    void styleRecordsAreShared();
};

void tst_ImageButtonStyle::shadowEffectDefaults()
{
    const ShadowEffect s;
    QCOMPARE(s.offsetX, 0);
    QCOMPARE(s.offsetY, 0);
    QCOMPARE(s.blurRadius, 5);
    QVERIFY(!s.color.isValid());
}

void tst_ImageButtonStyle::shadowEffectWithoutColour()
{
    const ShadowEffect s(-4, 7, 12);
    QCOMPARE(s.offsetX, -4);
    QCOMPARE(s.offsetY, 7);
    QCOMPARE(s.blurRadius, 12);
    QVERIFY(!s.color.isValid());
}

void tst_ImageButtonStyle::shadowEffectNullColourIgnoresAlpha()
{
    const ShadowEffect s(1, 2, 3, nullptr, 0.7f);
    QCOMPARE(s.offsetX, 1);
    QCOMPARE(s.offsetY, 2);
    QCOMPARE(s.blurRadius, 3);
    QVERIFY(!s.color.isValid());
}

void tst_ImageButtonStyle::shadowEffectColourAndAlpha_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<float>("alpha");
    QTest::addColumn<QRgb>("rgb");

    QTest::newRow("stock shadow") << QByteArray("#4C69FF") << 0.3f << qRgb(0x4C, 0x69, 0xFF);
    QTest::newRow("transparent") << QByteArray("#000000") << 0.0f << qRgb(0, 0, 0);
    QTest::newRow("opaque") << QByteArray("#FF0000") << 1.0f << qRgb(0xFF, 0, 0);
    QTest::newRow("half") << QByteArray("#12AB34") << 0.5f << qRgb(0x12, 0xAB, 0x34);
    QTest::newRow("svg name") << QByteArray("blue") << 0.25f << qRgb(0, 0, 0xFF);
}

void tst_ImageButtonStyle::shadowEffectColourAndAlpha()
{
    QFETCH(QByteArray, name);
    QFETCH(float, alpha);
    QFETCH(QRgb, rgb);

    const ShadowEffect s(0, 3, 30, name.constData(), alpha);
    QVERIFY(s.color.isValid());
    QCOMPARE(s.color.rgb(), rgb);

    // The float is widened to double before it reaches the colour.
    QColor expected(rgb);
    expected.setAlphaF(static_cast<double>(alpha));
    QCOMPARE(s.color.rgba64(), expected.rgba64());
    QVERIFY(qAbs(s.color.alphaF() - static_cast<double>(alpha)) <= 1.0 / 65535.0);
}

void tst_ImageButtonStyle::shadowEffectBadColourName()
{
    const ShadowEffect s(0, 3, 30, "no such colour", 0.5f);
    QVERIFY(!s.color.isValid());
    QCOMPARE(s.blurRadius, 30);
}

void tst_ImageButtonStyle::shadowEffectIsAValue()
{
    ShadowEffect a(5, 6, 7, "#4C69FF", 0.3f);
    const ShadowEffect b = a;
    a.offsetX = 99;
    a.color = Qt::red;
    QCOMPARE(b.offsetX, 5);
    QCOMPARE(b.offsetY, 6);
    QCOMPARE(b.blurRadius, 7);
    QCOMPARE(b.color.rgb(), qRgb(0x4C, 0x69, 0xFF));
}

void tst_ImageButtonStyle::buttonShadowEffectDefaults()
{
    const ButtonShadowEffect e;
    QCOMPARE(e.enabled, true);
    QCOMPARE(e.offset, QPoint(0, 3));
    QCOMPARE(e.blurRadius, 30.0);
    QCOMPARE(e.color, QColor(QStringLiteral("#4C69FF")));
    QCOMPARE(e.color.alpha(), 255);
    QCOMPARE(e.alpha, 0.3);
}

void tst_ImageButtonStyle::buttonShadowEffectCopyAndMove()
{
    ButtonShadowEffect e;
    e.enabled = false;
    e.offset = QPoint(-2, 9);
    e.blurRadius = 12.5;
    e.color = QColor(QStringLiteral("#123456"));
    e.alpha = 0.75;

    const ButtonShadowEffect copy(e);
    QCOMPARE(copy.enabled, false);
    QCOMPARE(copy.offset, QPoint(-2, 9));
    QCOMPARE(copy.blurRadius, 12.5);
    QCOMPARE(copy.color, QColor(QStringLiteral("#123456")));
    QCOMPARE(copy.alpha, 0.75);

    const ButtonShadowEffect moved(std::move(e));
    QCOMPARE(moved.enabled, false);
    QCOMPARE(moved.offset, QPoint(-2, 9));
    QCOMPARE(moved.blurRadius, 12.5);
    QCOMPARE(moved.color, QColor(QStringLiteral("#123456")));
    QCOMPARE(moved.alpha, 0.75);
}

void tst_ImageButtonStyle::styleDefaults()
{
    const ImageButtonStyle style;
    QVERIFY(style.bgPixmaps.isEmpty());
    QCOMPARE(style.bgMargins, QMargins(0, 0, 0, 0));
    QVERIFY(style.icons.isEmpty());
    QCOMPARE(style.iconSize, QSize(0, 0));
    QCOMPARE(style.textColors, QVector<QColor>(4, QColor(Qt::black)));
    QVERIFY(style.bgColors.isEmpty());
    QVERIFY(style.borderColors.isEmpty());
    QVERIFY(style.shadows.isEmpty());
    QCOMPARE(style.hoverCursor, false);
    QCOMPARE(style.radius, 0);
    QCOMPARE(style.borderWidth, 0);
    QCOMPARE(style.margins, QMargins(2, 2, 2, 2));
    QCOMPARE(style.fixedSize, QSize(-1, -1));
    QVERIFY(!style.fixedSize.isValid());
    QCOMPARE(style.minimumSize, QSize(-1, -1));
    QVERIFY(!style.minimumSize.isValid());
    QCOMPARE(style.parent(), nullptr);
}

void tst_ImageButtonStyle::styleMetaObject()
{
    const ImageButtonStyle style;
    const QMetaObject *mo = style.metaObject();
    QCOMPARE(mo->className(), "Orvane::ImageButtonStyle");
    QCOMPARE(mo->superClass(), &QObject::staticMetaObject);
    // A bag of fields: no signals, slots or properties of its own.
    QCOMPARE(mo->methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(mo->propertyCount(), QObject::staticMetaObject.propertyCount());
}

void tst_ImageButtonStyle::styleRecordsAreShared()
{
    const QSharedPointer<ImageButtonStyle> a(new ImageButtonStyle);
    const QSharedPointer<ImageButtonStyle> b = a;
    const QSharedPointer<ShadowEffect> shadow(new ShadowEffect(0, 3, 30));
    a->shadows = {shadow, nullptr, shadow};
    a->radius = 9;
    QCOMPARE(b->radius, 9);
    QCOMPARE(b->shadows.size(), 3);
    QCOMPARE(b->shadows.at(0).data(), b->shadows.at(2).data());
    QVERIFY(b->shadows.at(1).isNull());
    shadow->blurRadius = 11;
    QCOMPARE(b->shadows.at(2)->blurRadius, 11);
}

QTEST_GUILESS_MAIN(tst_ImageButtonStyle)
#include "tst_imagebuttonstyle.moc"
