// Mouse events go through the window system, as a real pointer's do: with a
// button held, the pressed widget keeps the pointer and sees moves outside.
#define QTEST_QPA_MOUSE_HANDLING

#include <Orvane/imagebutton.h>
#include <Orvane/imagebuttonstyle.h>
#include <Orvane/shadoweffect.h>

#include <QAccessible>
#include <QApplication>
#include <QGraphicsDropShadowEffect>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QMetaMethod>
#include <QPainter>
#include <QSignalSpy>
#include <QtTest>

using namespace Orvane;

namespace {

// Reaches the button's protected members.
class Probe : public ImageButton
{
public:
    using ImageButton::ImageButton;
    ImageButtonStyle &record() const { return *style; }
    QSharedPointer<ImageButtonStyle> recordPointer() const { return style; }
    QLabel *icon() const { return iconLabel; }
    QLabel *label() const { return textLabel; }
    QBoxLayout *box() const { return layout; }
    bool isHovered() const { return hovered; }
    bool isPressedFlag() const { return pressed; }
    using ImageButton::refreshTextColor;
};

QSharedPointer<ImageButtonStyle> newStyle()
{
    return QSharedPointer<ImageButtonStyle>(new ImageButtonStyle);
}

QVector<QColor> colours(std::initializer_list<const char *> names)
{
    QVector<QColor> v;
    for (const char *name : names)
        v.append(QColor(QLatin1String(name)));
    return v;
}

// `count` colours, all different.
QVector<QColor> distinctColours(int count)
{
    QVector<QColor> v;
    for (int i = 0; i < count; ++i)
        v.append(QColor::fromHsv(i * 30, 255, 255));
    return v;
}

// The entries of `from` at `indices`, in that order.
template <typename T>
QVector<T> pick(const QVector<T> &from, const QVector<int> &indices)
{
    QVector<T> v;
    for (int i : indices)
        v.append(from.at(i));
    return v;
}

QPixmap solid(const QColor &c, const QSize &size = QSize(8, 8))
{
    QPixmap p(size);
    p.fill(c);
    return p;
}

// The button alone on a transparent image, children and effect included.
QImage paint(QWidget &w)
{
    QImage image(w.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    w.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image.convertToFormat(QImage::Format_ARGB32);
}

QString describe(QRgb c)
{
    return QStringLiteral("rgba(%1, %2, %3, %4)").arg(qRed(c)).arg(qGreen(c)).arg(qBlue(c)).arg(qAlpha(c));
}

bool near(QRgb actual, const QColor &expected, int tolerance = 3)
{
    return qAbs(qRed(actual) - expected.red()) <= tolerance
        && qAbs(qGreen(actual) - expected.green()) <= tolerance
        && qAbs(qBlue(actual) - expected.blue()) <= tolerance
        && qAbs(qAlpha(actual) - expected.alpha()) <= tolerance;
}

#define CHECK_PIXEL(image, x, y, expected)                                                      \
    do {                                                                                        \
        const QRgb actual_ = (image).pixel((x), (y));                                           \
        QVERIFY2(near(actual_, (expected)),                                                     \
                 qPrintable(QStringLiteral("pixel (%1, %2) is %3, expected %4")                \
                                .arg(x).arg(y).arg(describe(actual_), describe((expected).rgba())))); \
    } while (false)

// The names of the button's signals, in the order they were emitted.
class Recorder : public QObject
{
public:
    explicit Recorder(ImageButton *b)
    {
        connect(b, &ImageButton::mouseMoveIn, this, [this] { log << QStringLiteral("in"); });
        connect(b, &ImageButton::mouseMoveOut, this, [this] { log << QStringLiteral("out"); });
        connect(b, &ImageButton::mousePressDown, this, [this] { log << QStringLiteral("down"); });
        connect(b, &ImageButton::mousePressUp, this, [this] { log << QStringLiteral("up"); });
        connect(b, &QAbstractButton::clicked, this, [this] { log << QStringLiteral("clicked"); });
        connect(b, &QAbstractButton::toggled, this, [this](bool on) {
            log << (on ? QStringLiteral("toggled on") : QStringLiteral("toggled off"));
        });
    }
    QStringList take()
    {
        const QStringList l = log;
        log.clear();
        return l;
    }
    QStringList log;
};

} // namespace

Q_DECLARE_METATYPE(QBoxLayout::Direction)

class tst_ImageButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaultRecord();
    void takesTheGivenRecord();
    void setStyleReplacesTheRecord();
    void metaObject();
    void childrenAndLayout();
    void textConstructor_data();
    void textConstructor();
    void setTextShowsLabel();
    void accessibleName();

    void setupStyleSizes_data();
    void setupStyleSizes();
    void setupStyleBackgroundCount_data();
    void setupStyleBackgroundCount();
    void setupStyleBorder_data();
    void setupStyleBorder();
    void setupStyleIconsAndMargins();

    void setBackgroundColourSetsRadiusSix();
    void setBackgroundColours_data();
    void setBackgroundColours();
    void setBackgroundGradient_data();
    void setBackgroundGradient();
    void setBorderGradient_data();
    void setBorderGradient();
    void setBackgroundPixmap();
    void setBackgroundPixmaps_data();
    void setBackgroundPixmaps();
    void setBackgroundPixmapsHorizontal();
    void setIconVector();
    void setIconPixmap();
    void iconTooShortKeepsLastIcon();

    void setTextColors_data();
    void setTextColors();
    void textColourSheetSolid();
    void textColourSheetFourColoursAreGradientPairs();
    void textColourEmptyLeavesSheet();
    void setTextColorPalette();

    void shadowSwitchesOnHover();
    void shadowKeepsEffectColourWhenInvalid();
    void shadowReplacesOtherEffect();
    void nullShadowLeavesOtherEffect();
    void shadowSlotMissingKeepsLastState();

    void hoverCursor();
    void setLayout_data();
    void setLayout();
    void setLayoutSingleMargin();
    void tooltip();
    void font();

    void mouseState_data();
    void mouseState();
    void bindingsEmitNothing();
    void resetMouseState();
    void sizeHintWithoutIcon();
    void sizeHintWithIcon_data();
    void sizeHintWithIcon();

    void paintSolidStates();
    void paintGradientEnds();
    void paintSixColourGradientDisabledIsFlat();
    void paintRoundedCorners();
    void paintBorder();
    void paintPixmapSuppressesBorder();
    void paintPixmapPerState();
    void paintStateBeyondVectorDrawsNothing();
    void paintEmptyBackgroundVector();

    void sharedRecordChangesTogether();
    void separateRecordsDoNot();

    void pressDragOutDragBackRelease();
    void pressDragOutReleaseOutside();
    void checkableButton();
    void disabledButton();
    void uncheckClearsPressed();
    void disablingRefreshesTextAndShadow();
};

void tst_ImageButton::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_ImageButton::defaultRecord()
{
    Probe b;
    QVERIFY(b.recordPointer());
    // The four default text colours are read as pairs once applied.
    QCOMPARE(b.record().textColors, QVector<QColor>(8, QColor(Qt::black)));
    QCOMPARE(b.record().margins, QMargins(2, 2, 2, 2));
    QCOMPARE(b.buttonMouseState(), Normal);
    QVERIFY(!b.isHovered());
    QVERIFY(!b.isPressedFlag());
    // Each default button has its own record.
    Probe other;
    QVERIFY(b.recordPointer() != other.recordPointer());
}

void tst_ImageButton::takesTheGivenRecord()
{
    const auto style = newStyle();
    Probe b(style);
    QCOMPARE(b.recordPointer(), style);
    Probe c(QSharedPointer<ImageButtonStyle>(), nullptr);
    QVERIFY(c.recordPointer());
}

void tst_ImageButton::setStyleReplacesTheRecord()
{
    Probe b;
    auto style = newStyle();
    style->minimumSize = QSize(70, 25);
    style->bgColors = colours({"#112233"});
    b.setStyle(style);
    QCOMPARE(b.recordPointer(), style);
    QCOMPARE(b.minimumSize(), QSize(70, 25));
    QCOMPARE(style->bgColors.size(), 2);

    b.setStyle(QSharedPointer<ImageButtonStyle>());
    QVERIFY(b.recordPointer());
    QVERIFY(b.recordPointer() != style);
}

void tst_ImageButton::metaObject()
{
    ImageButton b;
    const QMetaObject *mo = b.metaObject();
    QCOMPARE(mo->className(), "Orvane::ImageButton");
    QCOMPARE(mo->superClass(), &QAbstractButton::staticMetaObject);
    QStringList own;
    for (int i = mo->methodOffset(); i < mo->methodCount(); ++i)
        own << QString::fromLatin1(mo->method(i).methodSignature());
    QCOMPARE(own, QStringList({"mouseMoveIn()", "mouseMoveOut()", "mousePressDown()", "mousePressUp()",
                               "onToggled(bool)"}));
    QCOMPARE(mo->method(mo->methodOffset() + 4).access(), QMetaMethod::Protected);
    QCOMPARE(mo->propertyCount(), QAbstractButton::staticMetaObject.propertyCount());
}

void tst_ImageButton::childrenAndLayout()
{
    Probe b;
    QVERIFY(b.box());
    QCOMPARE(b.box()->parentWidget(), &b);
    QCOMPARE(b.box()->direction(), QBoxLayout::TopToBottom);
    QCOMPARE(b.box()->alignment(), Qt::AlignCenter);
    QCOMPARE(b.box()->indexOf(b.icon()), 0);
    QCOMPARE(b.box()->indexOf(b.label()), 1);
    QCOMPARE(b.icon()->alignment(), Qt::AlignCenter);
    QVERIFY(b.icon()->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(b.icon()->hasScaledContents());
    QVERIFY(b.label()->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(b.icon()->isHidden());
    QVERIFY(b.label()->isHidden());
    // The record's margins replace the initial 10.
    QCOMPARE(b.box()->contentsMargins(), QMargins(2, 2, 2, 2));
}

void tst_ImageButton::textConstructor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("shown");
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("text") << QStringLiteral("Save") << true;
    QTest::newRow("space") << QStringLiteral(" ") << true;
}

void tst_ImageButton::textConstructor()
{
    QFETCH(QString, text);
    QFETCH(bool, shown);
    Probe b(text);
    QCOMPARE(b.label()->text(), text);
    QCOMPARE(!b.label()->isHidden(), shown);
    QCOMPARE(b.text(), text);
}

void tst_ImageButton::setTextShowsLabel()
{
    Probe b(QString(), nullptr);
    QVERIFY(b.label()->isHidden());
    b.setText(QStringLiteral("Go"));
    QVERIFY(!b.label()->isHidden());
    QCOMPARE(b.label()->text(), QStringLiteral("Go"));
    b.setText(QString());
    QVERIFY(b.label()->isHidden());
    QCOMPARE(b.label()->text(), QString());
}

void tst_ImageButton::accessibleName()
{
    ImageButton b(QStringLiteral("Download now"));
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&b);
    QVERIFY(iface);
    QCOMPARE(iface->role(), QAccessible::Button);
    QCOMPARE(iface->text(QAccessible::Name), QStringLiteral("Download now"));
    b.setText(QStringLiteral("Cancel"));
    QCOMPARE(iface->text(QAccessible::Name), QStringLiteral("Cancel"));
}

void tst_ImageButton::setupStyleSizes_data()
{
    QTest::addColumn<QSize>("minimum");
    QTest::addColumn<QSize>("fixed");
    QTest::addColumn<QSize>("expectedMinimum");
    QTest::addColumn<QSize>("expectedMaximum");

    const QSize unlimited(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QTest::newRow("none") << QSize() << QSize() << QSize(0, 0) << unlimited;
    QTest::newRow("minimum") << QSize(110, 30) << QSize() << QSize(110, 30) << unlimited;
    QTest::newRow("minimum wins over fixed") << QSize(110, 30) << QSize(50, 20) << QSize(110, 30) << unlimited;
    QTest::newRow("empty minimum, fixed used") << QSize(110, 0) << QSize(50, 20) << QSize(50, 20) << QSize(50, 20);
    QTest::newRow("fixed") << QSize() << QSize(80, 24) << QSize(80, 24) << QSize(80, 24);
    QTest::newRow("empty fixed ignored") << QSize() << QSize(80, 0) << QSize(0, 0) << unlimited;
}

void tst_ImageButton::setupStyleSizes()
{
    QFETCH(QSize, minimum);
    QFETCH(QSize, fixed);
    QFETCH(QSize, expectedMinimum);
    QFETCH(QSize, expectedMaximum);
    auto style = newStyle();
    style->minimumSize = minimum;
    style->fixedSize = fixed;
    ImageButton b(style);
    QCOMPARE(b.minimumSize(), expectedMinimum);
    QCOMPARE(b.maximumSize(), expectedMaximum);
}

// Rows of "count colours given" -> "indices of the given colours stored".
void padOnceRows()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QVector<int>>("stored");
    QTest::newRow("empty") << 0 << QVector<int>();
    QTest::newRow("1 padded once") << 1 << QVector<int>{0, 0};
    QTest::newRow("2 become 3") << 2 << QVector<int>{0, 1, 0};
    QTest::newRow("3") << 3 << QVector<int>{0, 1, 2, 0};
    QTest::newRow("4") << 4 << QVector<int>{0, 1, 2, 3};
    QTest::newRow("5") << 5 << QVector<int>{0, 1, 2, 3, 4};
    QTest::newRow("8") << 8 << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7};
}

// An empty `stored` means the call was ignored.
void gradientRows()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QVector<int>>("stored");
    QTest::newRow("5 ignored") << 5 << QVector<int>();
    QTest::newRow("6 padded with the last") << 6 << QVector<int>{0, 1, 2, 3, 4, 5, 5, 5};
    QTest::newRow("7") << 7 << QVector<int>{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("8") << 8 << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7};
    QTest::newRow("10") << 10 << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
}

void tst_ImageButton::setupStyleBackgroundCount_data()
{
    padOnceRows();
    // Exactly 5 are left as they are; 6 or more are a gradient.
    QTest::newRow("5 left alone") << 5 << QVector<int>{0, 1, 2, 3, 4};
    QTest::newRow("6 gradient") << 6 << QVector<int>{0, 1, 2, 3, 4, 5, 5, 5};
    QTest::newRow("7 gradient") << 7 << QVector<int>{0, 1, 2, 3, 4, 5, 6};
}

void tst_ImageButton::setupStyleBackgroundCount()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, stored);
    auto style = newStyle();
    const QVector<QColor> given = distinctColours(count);
    style->bgColors = given;
    style->radius = 7;
    ImageButton b(style);
    QCOMPARE(style->bgColors, pick(given, stored));
    QCOMPARE(style->radius, 7);
}

void tst_ImageButton::setupStyleBorder_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("count");
    QTest::addColumn<QVector<int>>("stored");
    QTest::newRow("width 1, 6 colours") << 1 << 6 << QVector<int>{0, 1, 2, 3, 4, 5, 5, 5};
    QTest::newRow("width 0, 6 colours") << 0 << 6 << QVector<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("width 2, 5 colours") << 2 << 5 << QVector<int>{0, 1, 2, 3, 4};
    QTest::newRow("width 2, 8 colours") << 2 << 8 << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7};
}

void tst_ImageButton::setupStyleBorder()
{
    QFETCH(int, width);
    QFETCH(int, count);
    QFETCH(QVector<int>, stored);
    auto style = newStyle();
    const QVector<QColor> given = distinctColours(count);
    style->borderColors = given;
    style->borderWidth = width;
    ImageButton b(style);
    QCOMPARE(style->borderColors, pick(given, stored));
    QCOMPARE(style->borderWidth, width);
}

void tst_ImageButton::setupStyleIconsAndMargins()
{
    auto style = newStyle();
    style->icons = {solid(Qt::red), solid(Qt::green), solid(Qt::blue), solid(Qt::gray)};
    style->iconSize = QSize(16, 12);
    style->margins = QMargins(8, 0, 8, 0);
    Probe b(style);
    QCOMPARE(b.icon()->size(), QSize(16, 12));
    QCOMPARE(b.icon()->minimumSize(), QSize(16, 12));
    QVERIFY(!b.icon()->isHidden());
    QCOMPARE(b.icon()->pixmap(Qt::ReturnByValue).toImage().pixel(0, 0), QColor(Qt::red).rgb());
    QCOMPARE(b.box()->contentsMargins(), QMargins(8, 0, 8, 0));
    QCOMPARE(style->icons.size(), 4);
}

void tst_ImageButton::setBackgroundColourSetsRadiusSix()
{
    auto style = newStyle();
    style->radius = 15;
    Probe b(style);
    b.setBackground(QColor(Qt::red));
    QCOMPARE(style->radius, 6);
    QCOMPARE(style->bgColors, QVector<QColor>(4, QColor(Qt::red)));
}

void tst_ImageButton::setBackgroundColours_data()
{
    padOnceRows();
}

void tst_ImageButton::setBackgroundColours()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, stored);
    Probe b;
    const QVector<QColor> given = distinctColours(count);
    b.setBackground(given, 11);
    QCOMPARE(b.record().bgColors, pick(given, stored));
    QCOMPARE(b.record().radius, 11);
}

void tst_ImageButton::setBackgroundGradient_data()
{
    gradientRows();
}

void tst_ImageButton::setBackgroundGradient()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, stored);
    Probe b;
    b.setBackground(QColor(Qt::black));
    const QVector<QColor> given = distinctColours(count);
    b.setBackgroundGradient(given, 15);
    if (stored.isEmpty()) {
        QCOMPARE(b.record().bgColors, QVector<QColor>(4, QColor(Qt::black)));
        QCOMPARE(b.record().radius, 6);
    } else {
        QCOMPARE(b.record().bgColors, pick(given, stored));
        QCOMPARE(b.record().radius, 15);
    }
}

void tst_ImageButton::setBorderGradient_data()
{
    gradientRows();
}

void tst_ImageButton::setBorderGradient()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, stored);
    Probe b;
    const QVector<QColor> given = distinctColours(count);
    b.setBorderGradient(given, 3, 12);
    QCOMPARE(b.record().borderColors, pick(given, stored));
    QCOMPARE(b.record().borderWidth, stored.isEmpty() ? 0 : 3);
    QCOMPARE(b.record().radius, stored.isEmpty() ? 0 : 12);
}

void tst_ImageButton::setBackgroundPixmap()
{
    Probe b;
    b.setBackground({solid(Qt::red)}, QMargins(1, 2, 3, 4));
    const QPixmap p = solid(Qt::green);
    b.setBackground(p);
    QCOMPARE(b.record().bgPixmaps.size(), 4);
    for (const QPixmap &each : b.record().bgPixmaps)
        QCOMPARE(each.cacheKey(), p.cacheKey());
    QCOMPARE(b.record().bgMargins, QMargins(0, 0, 0, 0));
}

void tst_ImageButton::setBackgroundPixmaps_data()
{
    padOnceRows();
}

void tst_ImageButton::setBackgroundPixmaps()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, stored);
    Probe b;
    QVector<qint64> given;
    QVector<QPixmap> pixmaps;
    for (const QColor &c : distinctColours(count)) {
        pixmaps.append(solid(c));
        given.append(pixmaps.last().cacheKey());
    }
    b.setBackground(pixmaps, QMargins(4, 3, 2, 1));
    QVector<qint64> keys;
    for (const QPixmap &p : b.record().bgPixmaps)
        keys.append(p.cacheKey());
    QCOMPARE(keys, pick(given, stored));
    QCOMPARE(b.record().bgMargins, QMargins(4, 3, 2, 1));
}

void tst_ImageButton::setBackgroundPixmapsHorizontal()
{
    Probe b;
    b.setBackground(QVector<QPixmap>{solid(Qt::red), solid(Qt::blue)}, 6, 9);
    QCOMPARE(b.record().bgPixmaps.size(), 3);
    QCOMPARE(b.record().bgMargins, QMargins(6, 0, 9, 0));
}

void tst_ImageButton::setIconVector()
{
    Probe b;
    const QSize before = b.icon()->size();
    b.setIcon(QVector<QPixmap>{solid(Qt::red), solid(Qt::green)}, QSize());
    QCOMPARE(b.record().icons.size(), 2);
    QCOMPARE(b.icon()->size(), before);
    QVERIFY(!b.icon()->isHidden());
    QCOMPARE(b.icon()->pixmap(Qt::ReturnByValue).toImage().pixel(0, 0), QColor(Qt::red).rgb());

    b.setIcon(QVector<QPixmap>{solid(Qt::blue)}, QSize(20, 18));
    QCOMPARE(b.record().icons.size(), 1);
    QCOMPARE(b.icon()->size(), QSize(20, 18));

    Probe empty;
    empty.setIcon(QVector<QPixmap>(), QSize(10, 10));
    QCOMPARE(empty.icon()->size(), QSize(10, 10));
    QVERIFY(empty.icon()->isHidden());
}

void tst_ImageButton::setIconPixmap()
{
    Probe b;
    b.setIcon(QVector<QPixmap>{solid(Qt::red)}, QSize());
    const QPixmap p = solid(Qt::blue);
    b.setIcon(p, QSize(14, 14));
    QCOMPARE(b.record().icons.size(), 4);
    for (const QPixmap &each : b.record().icons)
        QCOMPARE(each.cacheKey(), p.cacheKey());
    QCOMPARE(b.icon()->size(), QSize(14, 14));
    QVERIFY(!b.icon()->isHidden());
    QCOMPARE(b.icon()->pixmap(Qt::ReturnByValue).toImage().pixel(0, 0), QColor(Qt::blue).rgb());
}

void tst_ImageButton::iconTooShortKeepsLastIcon()
{
    Probe b;
    b.setIcon(QVector<QPixmap>{solid(Qt::red), solid(Qt::green)}, QSize());
    b.setEnabled(false);
    // No icon for the disabled state: the label keeps the one it showed.
    QCOMPARE(b.buttonMouseState(), Disabled);
    QCOMPARE(b.icon()->pixmap(Qt::ReturnByValue).toImage().pixel(0, 0), QColor(Qt::red).rgb());
    b.setEnabled(true);
    b.bindMouseMoveIn(true);
    b.refresh();
    QCOMPARE(b.icon()->pixmap(Qt::ReturnByValue).toImage().pixel(0, 0), QColor(Qt::green).rgb());
}

void tst_ImageButton::setTextColors_data()
{
    QTest::addColumn<QVector<QColor>>("given");
    QTest::addColumn<QVector<QColor>>("expected");

    const QColor a(QStringLiteral("#111111"));
    const QColor b(QStringLiteral("#222222"));
    const QColor c(QStringLiteral("#333333"));
    const QColor d(QStringLiteral("#444444"));
    const QColor e(QStringLiteral("#555555"));
    const QColor f(QStringLiteral("#666666"));
    const QColor g(QStringLiteral("#777777"));
    const QColor h(QStringLiteral("#888888"));
    const QColor i(QStringLiteral("#999999"));

    QTest::newRow("0") << QVector<QColor>() << QVector<QColor>();
    QTest::newRow("1") << QVector<QColor>{a} << QVector<QColor>{a, a, a, a};
    QTest::newRow("2") << QVector<QColor>{a, b} << QVector<QColor>{a, b, a, a};
    QTest::newRow("3") << QVector<QColor>{a, b, c} << QVector<QColor>{a, b, c, a};
    QTest::newRow("4 become pairs") << QVector<QColor>{a, b, c, d} << QVector<QColor>{a, b, c, d, a, b, a, b};
    QTest::newRow("5 become 9") << QVector<QColor>{a, b, c, d, e} << QVector<QColor>{a, b, c, d, e, a, b, a, b};
    QTest::newRow("6") << QVector<QColor>{a, b, c, d, e, f} << QVector<QColor>{a, b, c, d, e, f, a, b};
    QTest::newRow("7 become 9") << QVector<QColor>{a, b, c, d, e, f, g} << QVector<QColor>{a, b, c, d, e, f, g, a, b};
    QTest::newRow("8") << QVector<QColor>{a, b, c, d, e, f, g, h} << QVector<QColor>{a, b, c, d, e, f, g, h};
    QTest::newRow("9") << QVector<QColor>{a, b, c, d, e, f, g, h, i} << QVector<QColor>{a, b, c, d, e, f, g, h, i};
}

void tst_ImageButton::setTextColors()
{
    QFETCH(QVector<QColor>, given);
    QFETCH(QVector<QColor>, expected);
    Probe b;
    b.setTextColors(given);
    QCOMPARE(b.record().textColors, expected);
}

void tst_ImageButton::textColourSheetSolid()
{
    Probe b;
    b.setTextColors(colours({"#FF0000", "#00FF00", "#0000FF", "#ABCDEF"}).mid(0, 3));
    QCOMPARE(b.label()->styleSheet(), QStringLiteral(".QLabel{color: #ff0000;}"));
    b.bindMouseMoveIn(true);
    b.refresh();
    QCOMPARE(b.label()->styleSheet(), QStringLiteral(".QLabel{color: #00ff00;}"));
    b.bindMousePressed(true);
    b.refresh();
    QCOMPARE(b.label()->styleSheet(), QStringLiteral(".QLabel{color: #0000ff;}"));
    b.setEnabled(false);
    // Three colours were padded with the first one.
    QCOMPARE(b.label()->styleSheet(), QStringLiteral(".QLabel{color: #ff0000;}"));
}

void tst_ImageButton::textColourSheetFourColoursAreGradientPairs()
{
    Probe b;
    b.resize(123, 40);
    b.setTextColors(colours({"#FF0000", "#00FF00", "#0000FF", "#ABCDEF"}));
    const QString sheet = QStringLiteral(".QLabel{color:qlineargradient(x1:0 y1:0, x2:%1 y2:1, stop:0 %2, stop:1 %3)}");
    QCOMPARE(b.label()->styleSheet(), sheet.arg(123).arg(QStringLiteral("#ff0000"), QStringLiteral("#00ff00")));
    b.bindMouseMoveIn(true);
    b.refresh();
    QCOMPARE(b.label()->styleSheet(), sheet.arg(123).arg(QStringLiteral("#0000ff"), QStringLiteral("#abcdef")));
    b.bindMousePressed(true);
    b.refresh();
    QCOMPARE(b.label()->styleSheet(), sheet.arg(123).arg(QStringLiteral("#ff0000"), QStringLiteral("#00ff00")));
    b.resize(200, 40);
    b.setEnabled(false);
    QCOMPARE(b.label()->styleSheet(), sheet.arg(200).arg(QStringLiteral("#ff0000"), QStringLiteral("#00ff00")));
}

void tst_ImageButton::textColourEmptyLeavesSheet()
{
    Probe b;
    b.setTextColors(colours({"#123456"}));
    const QString before = b.label()->styleSheet();
    b.setTextColors(QVector<QColor>());
    QCOMPARE(b.label()->styleSheet(), before);
    b.setEnabled(false);
    QCOMPARE(b.label()->styleSheet(), before);
}

void tst_ImageButton::setTextColorPalette()
{
    Probe b;
    const QColor c(QStringLiteral("#3366CC"));
    b.resize(90, 30);
    b.setTextColor(c);
    // Four times the colour, padded like any four: a c-to-c gradient.
    QCOMPARE(b.record().textColors, QVector<QColor>(8, c));
    QCOMPARE(b.label()->styleSheet(),
             QStringLiteral(".QLabel{color:qlineargradient(x1:0 y1:0, x2:90 y2:1, stop:0 #3366cc, stop:1 #3366cc)}"));
    const QPalette p = b.label()->palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(p.brush(group, b.label()->foregroundRole()), QBrush(c));
}

void tst_ImageButton::shadowSwitchesOnHover()
{
    auto style = newStyle();
    const QSharedPointer<ShadowEffect> shadow(new ShadowEffect(2, 4, 9, "#4C69FF", 0.5f));
    style->shadows = {nullptr, shadow, shadow, shadow};
    ImageButton b(style);
    QCOMPARE(b.graphicsEffect(), nullptr);

    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(&b, &enter);
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(b.graphicsEffect());
    QVERIFY(effect);
    QCOMPARE(effect->parent(), &b);
    QVERIFY(effect->isEnabled());
    QCOMPARE(effect->offset(), QPointF(2, 4));
    QCOMPARE(effect->blurRadius(), 9.0);
    QCOMPARE(effect->color(), shadow->color);

    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&b, &leave);
    QCOMPARE(b.graphicsEffect(), effect);
    QVERIFY(!effect->isEnabled());

    QApplication::sendEvent(&b, &enter);
    QCOMPARE(b.graphicsEffect(), effect);
    QVERIFY(effect->isEnabled());
}

void tst_ImageButton::shadowKeepsEffectColourWhenInvalid()
{
    ImageButton b;
    const ShadowEffect noColour(1, 1, 4, nullptr, 0.9f);
    b.setShadow(&noColour);
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(b.graphicsEffect());
    QVERIFY(effect);
    // A new effect keeps its own default colour.
    QCOMPARE(effect->color(), QGraphicsDropShadowEffect().color());

    const ShadowEffect red(0, 0, 3, "#FF0000", 1.0f);
    b.setShadow(&red);
    QCOMPARE(effect->color(), QColor(Qt::red));
    b.setShadow(&noColour);
    QCOMPARE(b.graphicsEffect(), effect);
    QCOMPARE(effect->color(), QColor(Qt::red));
    QCOMPARE(effect->blurRadius(), 4.0);

    b.setShadow(nullptr);
    QCOMPARE(b.graphicsEffect(), effect);
    QVERIFY(!effect->isEnabled());
}

void tst_ImageButton::shadowReplacesOtherEffect()
{
    ImageButton b;
    QPointer<QGraphicsOpacityEffect> opacity = new QGraphicsOpacityEffect;
    b.setGraphicsEffect(opacity);
    const ShadowEffect s(0, 3, 30);
    b.setShadow(&s);
    QVERIFY(qobject_cast<QGraphicsDropShadowEffect *>(b.graphicsEffect()));
    QVERIFY(opacity.isNull());
}

void tst_ImageButton::nullShadowLeavesOtherEffect()
{
    ImageButton b;
    auto *opacity = new QGraphicsOpacityEffect;
    b.setGraphicsEffect(opacity);
    b.setShadow(nullptr);
    QCOMPARE(b.graphicsEffect(), opacity);
    QVERIFY(opacity->isEnabled());
}

void tst_ImageButton::shadowSlotMissingKeepsLastState()
{
    ImageButton b;
    const QSharedPointer<ShadowEffect> shadow(new ShadowEffect(0, 3, 30));
    b.setShadows({shadow});
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(b.graphicsEffect());
    QVERIFY(effect);
    QVERIFY(effect->isEnabled());
    // No slot for hover or disabled: the effect stays as the normal state set it.
    b.bindMouseMoveIn(true);
    b.refresh();
    QVERIFY(effect->isEnabled());
    b.setEnabled(false);
    QVERIFY(effect->isEnabled());

    b.setShadows({});
    QCOMPARE(b.graphicsEffect(), effect);
    QVERIFY(effect->isEnabled());
}

void tst_ImageButton::hoverCursor()
{
    ImageButton plain;
    QEvent enter(QEvent::Enter);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&plain, &enter);
    QVERIFY(!plain.testAttribute(Qt::WA_SetCursor));

    ImageButton b;
    b.enableHoverCursor(true);
    QVERIFY(!b.testAttribute(Qt::WA_SetCursor));
    QApplication::sendEvent(&b, &enter);
    QCOMPARE(b.cursor().shape(), Qt::PointingHandCursor);
    QApplication::sendEvent(&b, &leave);
    QCOMPARE(b.cursor().shape(), Qt::ArrowCursor);
    b.bindMouseMoveIn(true);
    QCOMPARE(b.cursor().shape(), Qt::PointingHandCursor);
    b.bindMouseMoveIn(false);
    QCOMPARE(b.cursor().shape(), Qt::ArrowCursor);
}

void tst_ImageButton::setLayout_data()
{
    QTest::addColumn<QBoxLayout::Direction>("dir");
    QTest::addColumn<Qt::Alignment>("layoutAlignment");
    QTest::addColumn<Qt::Alignment>("textAlignment");

    const Qt::Alignment labelDefault = QLabel().alignment();
    QTest::newRow("left to right") << QBoxLayout::LeftToRight << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter)
                                   << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter);
    QTest::newRow("top to bottom") << QBoxLayout::TopToBottom << Qt::Alignment(Qt::AlignHCenter) << labelDefault;
    QTest::newRow("right to left") << QBoxLayout::RightToLeft << Qt::Alignment(Qt::AlignCenter) << labelDefault;
    QTest::newRow("bottom to top") << QBoxLayout::BottomToTop << Qt::Alignment(Qt::AlignCenter) << labelDefault;
}

void tst_ImageButton::setLayout()
{
    QFETCH(QBoxLayout::Direction, dir);
    QFETCH(Qt::Alignment, layoutAlignment);
    QFETCH(Qt::Alignment, textAlignment);
    Probe b;
    b.setLayout(dir, QMargins(1, 2, 3, 4), 7);
    QCOMPARE(b.box()->direction(), dir);
    QCOMPARE(b.box()->contentsMargins(), QMargins(1, 2, 3, 4));
    QCOMPARE(b.box()->spacing(), 7);
    QCOMPARE(b.box()->alignment(), layoutAlignment);
    QCOMPARE(b.label()->alignment(), textAlignment);
}

void tst_ImageButton::setLayoutSingleMargin()
{
    Probe b;
    b.setLayout(QBoxLayout::LeftToRight, 5, 3);
    QCOMPARE(b.box()->contentsMargins(), QMargins(5, 5, 5, 5));
    QCOMPARE(b.box()->spacing(), 3);
    QCOMPARE(b.box()->direction(), QBoxLayout::LeftToRight);
}

void tst_ImageButton::tooltip()
{
    Probe b;
    b.setTooltip(QStringLiteral("Opens the file"));
    QCOMPARE(b.toolTip(), QStringLiteral("Opens the file"));
    QCOMPARE(b.icon()->toolTip(), QStringLiteral("Opens the file"));
    QCOMPARE(b.label()->toolTip(), QString());
}

void tst_ImageButton::font()
{
    Probe b;
    QFont f = b.font();
    f.setPointSize(23);
    f.setBold(true);
    b.setFont(f);
    QCOMPARE(b.label()->font(), f);
    QCOMPARE(b.font(), f);
    QVERIFY(b.QWidget::font() != f);
}

void tst_ImageButton::mouseState_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<int>("state");

    QTest::newRow("idle") << true << false << false << false << int(Normal);
    QTest::newRow("hovered") << true << false << true << false << int(Hover);
    QTest::newRow("pressed and hovered") << true << true << true << false << int(Pressed);
    QTest::newRow("pressed, pointer outside") << true << true << false << false << int(Normal);
    QTest::newRow("checked") << true << false << false << true << int(Pressed);
    QTest::newRow("checked and hovered") << true << false << true << true << int(Pressed);
    QTest::newRow("checked, pressed outside") << true << true << false << true << int(Pressed);
    QTest::newRow("disabled") << false << false << false << false << int(Disabled);
    QTest::newRow("disabled, hovered and pressed") << false << true << true << false << int(Disabled);
    QTest::newRow("disabled and checked") << false << false << false << true << int(Disabled);
}

void tst_ImageButton::mouseState()
{
    QFETCH(bool, enabled);
    QFETCH(bool, pressed);
    QFETCH(bool, hovered);
    QFETCH(bool, checked);
    QFETCH(int, state);
    ImageButton b;
    b.setCheckable(true);
    b.setChecked(checked);
    b.bindMousePressed(pressed);
    b.bindMouseMoveIn(hovered);
    b.setEnabled(enabled);
    QCOMPARE(int(b.buttonMouseState()), state);
}

void tst_ImageButton::bindingsEmitNothing()
{
    auto style = newStyle();
    style->textColors = colours({"#000001", "#000002", "#000003", "#000004"}).mid(0, 3);
    Probe b(style);
    QSignalSpy in(&b, &ImageButton::mouseMoveIn);
    QSignalSpy out(&b, &ImageButton::mouseMoveOut);
    QSignalSpy down(&b, &ImageButton::mousePressDown);
    QSignalSpy up(&b, &ImageButton::mousePressUp);
    const QString sheet = b.label()->styleSheet();

    b.bindMouseMoveIn(true);
    QVERIFY(b.isHovered());
    QCOMPARE(b.buttonMouseState(), Hover);
    b.bindMousePressed(true);
    QVERIFY(b.isPressedFlag());
    QCOMPARE(b.buttonMouseState(), Pressed);
    // The text colour follows only at the next refresh.
    QCOMPARE(b.label()->styleSheet(), sheet);
    b.bindMouseMoveIn(false);
    b.bindMousePressed(false);

    QCOMPARE(in.count() + out.count() + down.count() + up.count(), 0);
}

void tst_ImageButton::resetMouseState()
{
    Probe b;
    QSignalSpy out(&b, &ImageButton::mouseMoveOut);
    b.bindMouseMoveIn(true);
    b.bindMousePressed(true);
    b.resetMouseState();
    QVERIFY(!b.isHovered());
    QVERIFY(!b.isPressedFlag());
    QCOMPARE(b.buttonMouseState(), Normal);
    QCOMPARE(out.count(), 0);
}

void tst_ImageButton::sizeHintWithoutIcon()
{
    Probe b(QStringLiteral("Hello"));
    b.setLayout(QBoxLayout::TopToBottom, QMargins(3, 4, 5, 6), 9);
    const QSize t = b.label()->sizeHint();
    QCOMPARE(b.sizeHint(), QSize(t.width() + 8, t.height() + 10));
}

void tst_ImageButton::sizeHintWithIcon_data()
{
    QTest::addColumn<QBoxLayout::Direction>("dir");
    QTest::newRow("left to right") << QBoxLayout::LeftToRight;
    // Widths are summed for a column too.
    QTest::newRow("top to bottom") << QBoxLayout::TopToBottom;
}

void tst_ImageButton::sizeHintWithIcon()
{
    QFETCH(QBoxLayout::Direction, dir);
    Probe b(QStringLiteral("Hello"));
    b.setIcon(solid(Qt::red), QSize(40, 50));
    b.setLayout(dir, QMargins(3, 4, 5, 6), 9);
    const QSize t = b.label()->sizeHint();
    QCOMPARE(b.sizeHint(), QSize(9 + 40 + t.width() + 8, qMax(50, t.height()) + 10));
}

void tst_ImageButton::paintSolidStates()
{
    auto style = newStyle();
    style->bgColors = colours({"#FF0000", "#00FF00", "#0000FF", "#808080"});
    ImageButton b(style);
    b.resize(60, 20);
    CHECK_PIXEL(paint(b), 30, 10, QColor(Qt::red));
    b.bindMouseMoveIn(true);
    CHECK_PIXEL(paint(b), 30, 10, QColor(Qt::green));
    b.bindMousePressed(true);
    CHECK_PIXEL(paint(b), 30, 10, QColor(Qt::blue));
    b.setEnabled(false);
    CHECK_PIXEL(paint(b), 30, 10, QColor(0x80, 0x80, 0x80));
}

void tst_ImageButton::paintGradientEnds()
{
    auto style = newStyle();
    style->bgColors = colours({"#FF0000", "#0000FF", "#00FF00", "#FF00FF", "#000000", "#FFFFFF", "#123456", "#654321"});
    ImageButton b(style);
    b.resize(101, 20);
    const QImage normal = paint(b);
    CHECK_PIXEL(normal, 0, 10, QColor(Qt::red));
    CHECK_PIXEL(normal, 100, 10, QColor(Qt::blue));
    // Horizontal: the same colour top to bottom.
    QCOMPARE(normal.pixel(50, 0), normal.pixel(50, 19));
    CHECK_PIXEL(normal, 50, 10, QColor(0x80, 0, 0x7F));
    b.bindMouseMoveIn(true);
    const QImage hover = paint(b);
    CHECK_PIXEL(hover, 0, 10, QColor(Qt::green));
    CHECK_PIXEL(hover, 100, 10, QColor(Qt::magenta));
    b.setEnabled(false);
    const QImage disabled = paint(b);
    CHECK_PIXEL(disabled, 0, 10, QColor(0x12, 0x34, 0x56));
    CHECK_PIXEL(disabled, 100, 10, QColor(0x65, 0x43, 0x21));
}

void tst_ImageButton::paintSixColourGradientDisabledIsFlat()
{
    auto style = newStyle();
    style->bgColors = colours({"#FF0000", "#0000FF", "#00FF00", "#FF00FF", "#000000", "#20A040"});
    ImageButton b(style);
    b.resize(100, 20);
    b.setEnabled(false);
    const QImage image = paint(b);
    for (int x : {0, 25, 50, 75, 99})
        CHECK_PIXEL(image, x, 10, QColor(0x20, 0xA0, 0x40));
}

void tst_ImageButton::paintRoundedCorners()
{
    Probe b;
    b.setBackground(QVector<QColor>{QColor(Qt::red)}, 10);
    b.resize(60, 30);
    const QImage image = paint(b);
    CHECK_PIXEL(image, 0, 0, QColor(Qt::transparent));
    CHECK_PIXEL(image, 59, 29, QColor(Qt::transparent));
    CHECK_PIXEL(image, 10, 0, QColor(Qt::red));
    CHECK_PIXEL(image, 30, 15, QColor(Qt::red));

    b.setBackground(QColor(Qt::blue));
    // Radius 6: the corner pixel is still outside the curve.
    const QImage six = paint(b);
    CHECK_PIXEL(six, 0, 0, QColor(Qt::transparent));
    CHECK_PIXEL(six, 6, 0, QColor(Qt::blue));
}

void tst_ImageButton::paintBorder()
{
    auto style = newStyle();
    style->borderColors = colours({"#FF0000", "#00FF00", "#0000FF", "#FFFF00"});
    style->borderWidth = 2;
    ImageButton b(style);
    b.resize(40, 20);
    const QImage image = paint(b);
    // Pen 2 centred on the rectangle (1, 1, 37, 17): pixels 0 and 1 on the
    // left and top, 37 and 38 on the right, 17 and 18 at the bottom.
    CHECK_PIXEL(image, 0, 10, QColor(Qt::red));
    CHECK_PIXEL(image, 1, 10, QColor(Qt::red));
    CHECK_PIXEL(image, 2, 10, QColor(Qt::transparent));
    CHECK_PIXEL(image, 20, 10, QColor(Qt::transparent));
    CHECK_PIXEL(image, 20, 0, QColor(Qt::red));
    CHECK_PIXEL(image, 20, 1, QColor(Qt::red));
    CHECK_PIXEL(image, 36, 10, QColor(Qt::transparent));
    CHECK_PIXEL(image, 37, 10, QColor(Qt::red));
    CHECK_PIXEL(image, 38, 10, QColor(Qt::red));
    CHECK_PIXEL(image, 39, 10, QColor(Qt::transparent));
    CHECK_PIXEL(image, 20, 16, QColor(Qt::transparent));
    CHECK_PIXEL(image, 20, 17, QColor(Qt::red));
    CHECK_PIXEL(image, 20, 18, QColor(Qt::red));
    CHECK_PIXEL(image, 20, 19, QColor(Qt::transparent));
    b.setEnabled(false);
    CHECK_PIXEL(paint(b), 0, 10, QColor(Qt::yellow));
}

void tst_ImageButton::paintPixmapSuppressesBorder()
{
    auto style = newStyle();
    style->bgColors = QVector<QColor>(4, QColor(Qt::blue));
    style->borderColors = QVector<QColor>(4, QColor(Qt::red));
    style->borderWidth = 4;
    Probe b(style);
    b.setBackground(solid(Qt::green, QSize(10, 10)));
    b.resize(40, 20);
    const QImage image = paint(b);
    for (const QPoint p : {QPoint(0, 0), QPoint(1, 10), QPoint(20, 10), QPoint(39, 19)})
        CHECK_PIXEL(image, p.x(), p.y(), QColor(Qt::green));
}

void tst_ImageButton::paintPixmapPerState()
{
    Probe b;
    b.setBackground(QVector<QPixmap>{solid(Qt::red), solid(Qt::green), solid(Qt::blue), solid(Qt::yellow)},
                    QMargins(2, 2, 2, 2));
    b.resize(30, 30);
    CHECK_PIXEL(paint(b), 15, 15, QColor(Qt::red));
    b.bindMouseMoveIn(true);
    CHECK_PIXEL(paint(b), 15, 15, QColor(Qt::green));
    b.bindMousePressed(true);
    CHECK_PIXEL(paint(b), 15, 15, QColor(Qt::blue));
    b.setEnabled(false);
    const QImage disabled = paint(b);
    CHECK_PIXEL(disabled, 15, 15, QColor(Qt::yellow));
    CHECK_PIXEL(disabled, 0, 0, QColor(Qt::yellow));
    CHECK_PIXEL(disabled, 29, 29, QColor(Qt::yellow));
}

void tst_ImageButton::paintStateBeyondVectorDrawsNothing()
{
    Probe b;
    b.setBackground(QVector<QColor>{QColor(Qt::red), QColor(Qt::blue)}, 0);
    QCOMPARE(b.record().bgColors.size(), 3);
    b.resize(30, 20);
    b.bindMouseMoveIn(true);
    b.bindMousePressed(true);
    CHECK_PIXEL(paint(b), 15, 10, QColor(Qt::red));
    // State 3 has no colour: nothing is drawn rather than reading past the end.
    b.setEnabled(false);
    CHECK_PIXEL(paint(b), 15, 10, QColor(Qt::transparent));
}

void tst_ImageButton::paintEmptyBackgroundVector()
{
    Probe b;
    b.setBackground(QVector<QColor>(), 4);
    QVERIFY(b.record().bgColors.isEmpty());
    b.resize(30, 20);
    CHECK_PIXEL(paint(b), 15, 10, QColor(Qt::transparent));
}

void tst_ImageButton::sharedRecordChangesTogether()
{
    const auto style = newStyle();
    style->bgColors = QVector<QColor>(4, QColor(Qt::blue));
    ImageButton a(style);
    ImageButton b(style);
    a.resize(30, 20);
    b.resize(30, 20);
    CHECK_PIXEL(paint(b), 15, 10, QColor(Qt::blue));
    a.setBackground(QColor(Qt::red));
    CHECK_PIXEL(paint(b), 15, 10, QColor(Qt::red));
    b.setTextColors(colours({"#00FF00"}));
    QCOMPARE(style->textColors, QVector<QColor>(4, QColor(Qt::green)));
}

void tst_ImageButton::separateRecordsDoNot()
{
    auto first = newStyle();
    auto second = newStyle();
    first->bgColors = QVector<QColor>(4, QColor(Qt::blue));
    second->bgColors = QVector<QColor>(4, QColor(Qt::blue));
    ImageButton a(first);
    ImageButton b(second);
    b.resize(30, 20);
    a.setBackground(QColor(Qt::red));
    CHECK_PIXEL(paint(b), 15, 10, QColor(Qt::blue));
}

namespace {

// A shown window with one button in it, away from the window's edges.
struct Scene
{
    Scene()
    {
        window.resize(200, 120);
        button = new Probe(QStringLiteral("Press"), &window);
        button->setGeometry(50, 40, 100, 40);
        window.show();
    }
    // Puts the pointer on the window, outside the button. Two moves, because
    // the window system drops a move to where the pointer already is.
    bool start()
    {
        if (!QTest::qWaitForWindowExposed(&window))
            return false;
        QTest::mouseMove(&window, QPoint(12, 10));
        QTest::mouseMove(&window, QPoint(10, 10));
        return !button->underMouse();
    }
    QWidget window;
    Probe *button = nullptr;
};

} // namespace

void tst_ImageButton::pressDragOutDragBackRelease()
{
    Scene scene;
    QVERIFY(scene.start());
    Probe *b = scene.button;
    Recorder rec(b);
    QSignalSpy in(b, &ImageButton::mouseMoveIn);
    QSignalSpy out(b, &ImageButton::mouseMoveOut);
    QSignalSpy down(b, &ImageButton::mousePressDown);
    QSignalSpy up(b, &ImageButton::mousePressUp);
    QSignalSpy clicked(b, &QAbstractButton::clicked);

    QTest::mouseMove(b, QPoint(50, 20));
    QCOMPARE(rec.take(), QStringList({"in"}));
    QCOMPARE(in.count(), 1);
    QCOMPARE(b->buttonMouseState(), Hover);

    QTest::mousePress(b, Qt::LeftButton, {}, QPoint(50, 20));
    QCOMPARE(rec.take(), QStringList({"down"}));
    QCOMPARE(down.count(), 1);
    QCOMPARE(b->buttonMouseState(), Pressed);
    QVERIFY(b->hasMouseTracking());

    // Dragged out: the button keeps the pointer and shows its normal look.
    QTest::mouseMove(b, QPoint(-20, 20));
    QCOMPARE(rec.take(), QStringList({"out"}));
    QCOMPARE(out.count(), 1);
    QVERIFY(b->isPressedFlag());
    QCOMPARE(b->buttonMouseState(), Normal);

    // The edge itself counts as inside.
    QTest::mouseMove(b, QPoint(0, 20));
    QCOMPARE(rec.take(), QStringList({"in"}));
    QCOMPARE(b->buttonMouseState(), Pressed);
    QTest::mouseMove(b, QPoint(60, 25));
    QCOMPARE(rec.take(), QStringList());

    QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(60, 25));
    QCOMPARE(rec.take(), QStringList({"clicked", "up"}));
    QCOMPARE(up.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QVERIFY(!b->hasMouseTracking());
    QCOMPARE(b->buttonMouseState(), Hover);

    QTest::mouseMove(&scene.window, QPoint(10, 10));
    QCOMPARE(rec.take(), QStringList({"out"}));
    QCOMPARE(b->buttonMouseState(), Normal);
    QCOMPARE(in.count(), 2);
    QCOMPARE(out.count(), 2);
    QCOMPARE(down.count(), 1);
    QCOMPARE(up.count(), 1);
}

void tst_ImageButton::pressDragOutReleaseOutside()
{
    Scene scene;
    QVERIFY(scene.start());
    Probe *b = scene.button;
    QTest::mouseMove(b, QPoint(50, 20));
    QCOMPARE(b->buttonMouseState(), Hover);
    Recorder rec(b);
    QSignalSpy clicked(b, &QAbstractButton::clicked);

    QTest::mousePress(b, Qt::LeftButton, {}, QPoint(50, 20));
    QTest::mouseMove(b, QPoint(50, 60));
    QCOMPARE(b->buttonMouseState(), Normal);
    QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(50, 60));
    // The crossing reported the way out; the release outside clicks nothing.
    // The window system's own leave, held back until the release, follows.
    QCOMPARE(rec.take(), QStringList({"down", "out", "up", "out"}));
    QCOMPARE(clicked.count(), 0);
    QVERIFY(!b->isPressedFlag());
    QVERIFY(!b->isHovered());
    QCOMPARE(b->buttonMouseState(), Normal);
}

void tst_ImageButton::checkableButton()
{
    Scene scene;
    QVERIFY(scene.start());
    Probe *b = scene.button;
    b->setCheckable(true);
    QTest::mouseMove(b, QPoint(50, 20));
    Recorder rec(b);

    QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(50, 20));
    QCOMPARE(rec.take(), QStringList({"down", "toggled on", "clicked", "up"}));
    QVERIFY(b->isChecked());
    QCOMPARE(b->buttonMouseState(), Pressed);

    // Checked stays pressed after the pointer leaves.
    QTest::mouseMove(&scene.window, QPoint(10, 10));
    QCOMPARE(rec.take(), QStringList({"out"}));
    QCOMPARE(b->buttonMouseState(), Pressed);

    // Pressed, dragged out while checked: still the pressed look.
    QTest::mouseMove(b, QPoint(50, 20));
    QTest::mousePress(b, Qt::LeftButton, {}, QPoint(50, 20));
    QTest::mouseMove(b, QPoint(130, 20));
    QCOMPARE(b->buttonMouseState(), Pressed);
    QTest::mouseMove(b, QPoint(50, 20));
    QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(50, 20));
    QCOMPARE(rec.take(), QStringList({"in", "down", "out", "in", "toggled off", "clicked", "up"}));
    QVERIFY(!b->isChecked());
    QVERIFY(!b->isPressedFlag());
    QCOMPARE(b->buttonMouseState(), Hover);
}

void tst_ImageButton::disabledButton()
{
    Scene scene;
    QVERIFY(scene.start());
    Probe *b = scene.button;
    b->setEnabled(false);
    Recorder rec(b);
    QSignalSpy down(b, &ImageButton::mousePressDown);
    QSignalSpy up(b, &ImageButton::mousePressUp);
    QSignalSpy clicked(b, &QAbstractButton::clicked);

    QTest::mouseMove(b, QPoint(50, 20));
    QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(50, 20));
    QCOMPARE(down.count(), 0);
    QCOMPARE(up.count(), 0);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(!b->isPressedFlag());
    QCOMPARE(b->buttonMouseState(), Disabled);
    QVERIFY(!rec.log.contains(QStringLiteral("down")));
}

void tst_ImageButton::uncheckClearsPressed()
{
    Probe b;
    b.setCheckable(true);
    b.setChecked(true);
    b.bindMousePressed(true);
    QCOMPARE(b.buttonMouseState(), Pressed);
    b.setChecked(false);
    QVERIFY(!b.isPressedFlag());
    QCOMPARE(b.buttonMouseState(), Normal);
}

void tst_ImageButton::disablingRefreshesTextAndShadow()
{
    auto style = newStyle();
    style->textColors = colours({"#111111", "#222222", "#333333", "#CCCCCC", "#0000FF"});
    const QSharedPointer<ShadowEffect> shadow(new ShadowEffect(0, 3, 30));
    style->shadows = {shadow, shadow, shadow, nullptr};
    Probe b(style);
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(b.graphicsEffect());
    QVERIFY(effect);
    QVERIFY(effect->isEnabled());
    b.resize(50, 20);
    // Five colours were padded to nine (c0..c4, c0, c1, c0, c1): the disabled
    // pair, elements 6 and 7, is (c1, c0).
    const QString sheet = QStringLiteral(".QLabel{color:qlineargradient(x1:0 y1:0, x2:50 y2:1, stop:0 %1, stop:1 %2)}");
    b.setEnabled(false);
    QCOMPARE(b.label()->styleSheet(), sheet.arg(QStringLiteral("#222222"), QStringLiteral("#111111")));
    QVERIFY(!effect->isEnabled());
    b.bindMouseMoveIn(true);
    b.setEnabled(true);
    QCOMPARE(b.label()->styleSheet(), sheet.arg(QStringLiteral("#333333"), QStringLiteral("#cccccc")));
    QVERIFY(effect->isEnabled());
}

QTEST_MAIN(tst_ImageButton)
#include "tst_imagebutton.moc"
