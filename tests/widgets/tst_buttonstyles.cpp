#include <Orvane/buttonstyles.h>
#include <Orvane/imagebutton.h>

#include <QApplication>
#include <QDir>
#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QLabel>
#include <QtTest>

using namespace Orvane;

namespace {

using Factory = QSharedPointer<ImageButtonStyle> (*)();

QColor hex(const char *name)
{
    return QColor(QLatin1String(name));
}

QVector<QColor> hexes(std::initializer_list<const char *> names)
{
    QVector<QColor> v;
    for (const char *name : names)
        v.append(hex(name));
    return v;
}

Factory factoryNamed(const QString &name)
{
    if (name == QLatin1String("default"))
        return &makeBtnStyle_Default;
    if (name == QLatin1String("orange"))
        return &makeBtnStyle_Orange;
    return &makeBtnStyle_Ring;
}

// Reaches the text label of a button.
class Probe : public ImageButton
{
public:
    using ImageButton::ImageButton;
    QLabel *label() const { return textLabel; }
};

// A stock-style button, laid out in a shown window and put into one state.
struct Scene
{
    Scene(Factory factory, int state, const QString &text = QStringLiteral("OK"))
    {
        window.setAttribute(Qt::WA_TranslucentBackground);
        window.resize(200, 100);
        button = new Probe(factory(), &window);
        button->setText(text);
        button->setGeometry(40, 30, 110, 30);
        window.show();
        setState(button, state);
    }

    static void setState(ImageButton *b, int state)
    {
        if (state == Hover || state == Pressed) {
            QEvent enter(QEvent::Enter);
            QApplication::sendEvent(b, &enter);
        }
        if (state == Pressed)
            QTest::mousePress(b, Qt::LeftButton);
        if (state == Disabled)
            b->setEnabled(false);
    }

    // The button's rectangle of the window, shadow included, on a
    // transparent window background. (Rendering the button on its own would
    // leave out what its effect draws.)
    QImage image()
    {
        return window.grab(button->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    }

    QWidget window;
    Probe *button = nullptr;
};

// The colour a horizontal gradient from pixel 0 to pixel width - 1 gives
// the pixel centred at x + 0.5.
QColor along(const QColor &from, const QColor &to, int x, int width)
{
    const double t = qBound(0.0, (x + 0.5) / (width - 1), 1.0);
    auto mix = [t](int a, int b) { return qRound(a + (b - a) * t); };
    return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()),
                  mix(from.alpha(), to.alpha()));
}

QString describe(QRgb c)
{
    return QStringLiteral("rgba(%1, %2, %3, %4)").arg(qRed(c)).arg(qGreen(c)).arg(qBlue(c)).arg(qAlpha(c));
}

bool nearRgb(QRgb actual, const QColor &expected, int tolerance)
{
    return qAbs(qRed(actual) - expected.red()) <= tolerance && qAbs(qGreen(actual) - expected.green()) <= tolerance
        && qAbs(qBlue(actual) - expected.blue()) <= tolerance;
}

#define CHECK_OPAQUE_PIXEL(image, x, y, expected)                                                    \
    do {                                                                                             \
        const QRgb actual_ = (image).pixel((x), (y));                                                \
        QVERIFY2(qAlpha(actual_) >= 252 && nearRgb(actual_, (expected), 3),                          \
                 qPrintable(QStringLiteral("pixel (%1, %2) is %3, expected %4")                     \
                                .arg(x).arg(y).arg(describe(actual_), describe((expected).rgba())))); \
    } while (false)

QGraphicsDropShadowEffect *dropShadow(QWidget *w)
{
    return qobject_cast<QGraphicsDropShadowEffect *>(w->graphicsEffect());
}

bool shadowShown(QWidget *w)
{
    QGraphicsDropShadowEffect *effect = dropShadow(w);
    return effect && effect->isEnabled();
}

} // namespace

class tst_ButtonStyles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void storedFields_data();
    void storedFields();
    void oneShadowObject_data();
    void oneShadowObject();
    void twoCallsNeverShare_data();
    void twoCallsNeverShare();
    void oneRecordIsShared();
    void normalisedWhenApplied();
    void minimumSizeAppliesAndGrows();

    void fillPerState_data();
    void fillPerState();
    void ringNormalIsOutlineOnly();
    void ringHoverFillsAndDropsOutline();
    void defaultDisabledIsFlatGrey();
    void orangeDisabledIsFlatGrey();
    void stockTextIsWhite_data();
    void stockTextIsWhite();

    void strip();
};

void tst_ButtonStyles::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_ButtonStyles::storedFields_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QVector<QColor>>("bgColors");
    QTest::addColumn<QVector<QColor>>("borderColors");
    QTest::addColumn<int>("borderWidth");
    QTest::addColumn<QVector<QColor>>("textColors");
    QTest::addColumn<QVector<bool>>("shadowSlots");

    const QColor clear(Qt::transparent);
    const QColor white(Qt::white);
    QTest::newRow("default") << QStringLiteral("default")
                             << hexes({"#5C8BFF", "#9A68FF", "#80A4FF", "#BB99FF", "#4D7AE9", "#976EEA", "#CCCCCC",
                                       "#CCCCCC"})
                             << QVector<QColor>() << 0 << QVector<QColor>{white}
                             << QVector<bool>{true, true, true, false};
    QTest::newRow("orange") << QStringLiteral("orange")
                            << hexes({"#FF9933", "#FF7733", "#FFB25A", "#FF9A57", "#EB8D2E", "#EB6D2F", "#CCCCCC",
                                      "#CCCCCC"})
                            << QVector<QColor>() << 0 << QVector<QColor>{white}
                            << QVector<bool>{true, true, true, false};
    QTest::newRow("ring") << QStringLiteral("ring")
                          << (QVector<QColor>{clear, clear} + hexes({"#80A4FF", "#BB99FF", "#4D7AE9", "#976EEA"}))
                          << (hexes({"#5C8BFF", "#9A68FF"}) + QVector<QColor>(4, clear)) << 1
                          << QVector<QColor>(4, white) << QVector<bool>{false, true, true, true};
}

void tst_ButtonStyles::storedFields()
{
    QFETCH(QString, style);
    QFETCH(QVector<QColor>, bgColors);
    QFETCH(QVector<QColor>, borderColors);
    QFETCH(int, borderWidth);
    QFETCH(QVector<QColor>, textColors);
    QFETCH(QVector<bool>, shadowSlots);

    const QSharedPointer<ImageButtonStyle> record = factoryNamed(style)();
    QVERIFY(record);
    QCOMPARE(record->bgColors, bgColors);
    QCOMPARE(record->borderColors, borderColors);
    QCOMPARE(record->borderWidth, borderWidth);
    QCOMPARE(record->textColors, textColors);
    QCOMPARE(record->shadows.size(), shadowSlots.size());
    for (int i = 0; i < shadowSlots.size(); ++i)
        QCOMPARE(!record->shadows.at(i).isNull(), shadowSlots.at(i));

    // Common to all three.
    QCOMPARE(record->radius, 15);
    QCOMPARE(record->minimumSize, QSize(110, 30));
    QCOMPARE(record->margins, QMargins(8, 0, 8, 0));
    // Left at their defaults.
    QVERIFY(record->bgPixmaps.isEmpty());
    QCOMPARE(record->bgMargins, QMargins());
    QVERIFY(record->icons.isEmpty());
    QCOMPARE(record->iconSize, QSize(0, 0));
    QCOMPARE(record->hoverCursor, false);
    QCOMPARE(record->fixedSize, QSize(-1, -1));
}

void tst_ButtonStyles::oneShadowObject_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("default") << QStringLiteral("default");
    QTest::newRow("orange") << QStringLiteral("orange");
    QTest::newRow("ring") << QStringLiteral("ring");
}

void tst_ButtonStyles::oneShadowObject()
{
    QFETCH(QString, style);
    const QSharedPointer<ImageButtonStyle> record = factoryNamed(style)();
    const ShadowEffect *shadow = nullptr;
    for (const QSharedPointer<ShadowEffect> &slot : record->shadows) {
        if (!slot)
            continue;
        if (!shadow)
            shadow = slot.data();
        QCOMPARE(slot.data(), shadow);
    }
    QVERIFY(shadow);
    QCOMPARE(shadow->offsetX, 0);
    QCOMPARE(shadow->offsetY, 3);
    QCOMPARE(shadow->blurRadius, 30);
    // Blue for the orange style too.
    QColor expected(0x4C, 0x69, 0xFF);
    expected.setAlphaF(static_cast<double>(0.3f));
    QCOMPARE(shadow->color.rgba64(), expected.rgba64());
}

void tst_ButtonStyles::twoCallsNeverShare_data()
{
    oneShadowObject_data();
}

void tst_ButtonStyles::twoCallsNeverShare()
{
    QFETCH(QString, style);
    const Factory factory = factoryNamed(style);
    const QSharedPointer<ImageButtonStyle> first = factory();
    const QSharedPointer<ImageButtonStyle> second = factory();
    QVERIFY(first != second);
    QVERIFY(first->shadows.at(1) != second->shadows.at(1));

    QWidget window;
    ImageButton *a = new ImageButton(first, &window);
    ImageButton *b = new ImageButton(second, &window);
    const QVector<QColor> before = second->bgColors;
    a->setBackground(QColor(Qt::red));
    QCOMPARE(first->bgColors, QVector<QColor>(4, QColor(Qt::red)));
    QCOMPARE(second->bgColors, before);
    QCOMPARE(second->radius, 15);

    // b still paints exactly as a button on a third, untouched record.
    ImageButton *fresh = new ImageButton(factory(), &window);
    auto paintAlone = [](ImageButton *button) {
        button->resize(110, 30);
        button->setShadow(nullptr);
        QImage image(button->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        button->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    };
    const QImage expected = paintAlone(fresh);
    const QImage actual = paintAlone(b);
    QCOMPARE(actual, expected);
    QVERIFY(actual != paintAlone(a));
}

void tst_ButtonStyles::oneRecordIsShared()
{
    const QSharedPointer<ImageButtonStyle> record = makeBtnStyle_Default();
    QWidget window;
    ImageButton *a = new ImageButton(record, &window);
    ImageButton *b = new ImageButton(record, &window);
    a->setBackground(QColor(Qt::red));
    b->resize(110, 30);
    b->setShadow(nullptr);
    QImage image(b->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    b->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    QCOMPARE(image.pixel(55, 15), QColor(Qt::red).rgba());
    QCOMPARE(record->radius, 6);
}

void tst_ButtonStyles::normalisedWhenApplied()
{
    const QColor clear(Qt::transparent);
    const QColor white(Qt::white);

    const auto plain = makeBtnStyle_Default();
    ImageButton a(plain);
    QCOMPARE(plain->bgColors.size(), 8);
    QCOMPARE(plain->textColors, QVector<QColor>(4, white));
    QVERIFY(plain->borderColors.isEmpty());

    const auto ring = makeBtnStyle_Ring();
    ImageButton b(ring);
    QCOMPARE(ring->bgColors, (QVector<QColor>{clear, clear}
                              + hexes({"#80A4FF", "#BB99FF", "#4D7AE9", "#976EEA", "#976EEA", "#976EEA"})));
    QCOMPARE(ring->borderColors, (hexes({"#5C8BFF", "#9A68FF"}) + QVector<QColor>(6, clear)));
    QCOMPARE(ring->textColors, QVector<QColor>(8, white));
}

void tst_ButtonStyles::minimumSizeAppliesAndGrows()
{
    ImageButton b(makeBtnStyle_Orange());
    QCOMPARE(b.minimumSize(), QSize(110, 30));
    b.resize(40, 10);
    QCOMPARE(b.size(), QSize(110, 30));
    b.resize(260, 48);
    QCOMPARE(b.size(), QSize(260, 48));
}

void tst_ButtonStyles::fillPerState_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("state");
    QTest::addColumn<QColor>("from");
    QTest::addColumn<QColor>("to");
    QTest::addColumn<bool>("shadow");

    struct Row
    {
        const char *style;
        const char *colours[8];
        bool shadows[4];
    };
    const Row rows[] = {
        {"default",
         {"#5C8BFF", "#9A68FF", "#80A4FF", "#BB99FF", "#4D7AE9", "#976EEA", "#CCCCCC", "#CCCCCC"},
         {true, true, true, false}},
        {"orange",
         {"#FF9933", "#FF7733", "#FFB25A", "#FF9A57", "#EB8D2E", "#EB6D2F", "#CCCCCC", "#CCCCCC"},
         {true, true, true, false}},
        // The ring's normal state has no fill; it is checked on its own.
        {"ring",
         {nullptr, nullptr, "#80A4FF", "#BB99FF", "#4D7AE9", "#976EEA", "#976EEA", "#976EEA"},
         {false, true, true, true}},
    };
    const char *states[] = {"normal", "hover", "pressed", "disabled"};
    for (const Row &row : rows) {
        for (int s = 0; s < 4; ++s) {
            if (!row.colours[2 * s])
                continue;
            QTest::addRow("%s %s", row.style, states[s])
                << QString::fromLatin1(row.style) << s << hex(row.colours[2 * s]) << hex(row.colours[2 * s + 1])
                << row.shadows[s];
        }
    }
}

void tst_ButtonStyles::fillPerState()
{
    QFETCH(QString, style);
    QFETCH(int, state);
    QFETCH(QColor, from);
    QFETCH(QColor, to);
    QFETCH(bool, shadow);

    Scene scene(factoryNamed(style), state);
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    QCOMPARE(int(scene.button->buttonMouseState()), state);
    const QImage image = scene.image();
    const int w = image.width();
    // Both ends and the middle of the gradient, on the centre line, clear of
    // the rounded ends and of the centred text.
    for (int x : {4, 12, w - 13, w - 5})
        CHECK_OPAQUE_PIXEL(image, x, 15, along(from, to, x, w));
    for (int y : {3, 26})
        CHECK_OPAQUE_PIXEL(image, w / 2, y, along(from, to, w / 2, w));

    QCOMPARE(shadowShown(scene.button), shadow);
    // The shadow shows around the pill's round ends, where there is no fill.
    const QRgb corner = image.pixel(1, 1);
    if (shadow) {
        QVERIFY2(qAlpha(corner) > 0 && qBlue(corner) > qRed(corner), qPrintable(describe(corner)));
    } else {
        QCOMPARE(qAlpha(corner), 0);
    }
}

void tst_ButtonStyles::ringNormalIsOutlineOnly()
{
    Scene scene(&makeBtnStyle_Ring, Normal);
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    const QImage image = scene.image();
    const int w = image.width();
    QVERIFY(!shadowShown(scene.button));

    // No fill inside, nothing outside the outline.
    for (const QPoint p : {QPoint(20, 15), QPoint(w / 2, 5), QPoint(w - 21, 15), QPoint(w / 2, 24)})
        QCOMPARE(qAlpha(image.pixel(p)), 0);
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);

    // One pixel of outline, antialiased over two columns: its coverage across
    // the left end adds up to one opaque pixel.
    auto coverage = [&image](int x0, int x1, int y) {
        int sum = 0;
        for (int x = x0; x <= x1; ++x)
            sum += qAlpha(image.pixel(x, y));
        return sum;
    };
    QVERIFY2(qAbs(coverage(0, 4, 15) - 255) <= 20, qPrintable(QString::number(coverage(0, 4, 15))));
    QVERIFY2(qAbs(coverage(w - 5, w - 1, 15) - 255) <= 20, qPrintable(QString::number(coverage(w - 5, w - 1, 15))));
    int top = 0;
    for (int y = 0; y <= 4; ++y)
        top += qAlpha(image.pixel(w / 2, y));
    QVERIFY2(qAbs(top - 255) <= 20, qPrintable(QString::number(top)));

    // Its colour runs "#5C8BFF" on the left to "#9A68FF" on the right.
    const QRgb left = image.pixel(0, 15);
    const QRgb right = image.pixel(w - 1, 15);
    QVERIFY2(qAlpha(left) > 60 && nearRgb(left, hex("#5C8BFF"), 6), qPrintable(describe(left)));
    QVERIFY2(qAlpha(right) > 60 && nearRgb(right, hex("#9A68FF"), 6), qPrintable(describe(right)));
    const QRgb middle = image.pixel(w / 2, 1);
    QVERIFY2(nearRgb(middle, along(hex("#5C8BFF"), hex("#9A68FF"), w / 2, w), 6), qPrintable(describe(middle)));
}

void tst_ButtonStyles::ringHoverFillsAndDropsOutline()
{
    Scene scene(&makeBtnStyle_Ring, Hover);
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    QVERIFY(shadowShown(scene.button));
    const QImage image = scene.image();
    const int w = image.width();
    // The transparent outline leaves the fill's own colour at its edge.
    CHECK_OPAQUE_PIXEL(image, w / 2, 1, along(hex("#80A4FF"), hex("#BB99FF"), w / 2, w));
    CHECK_OPAQUE_PIXEL(image, 2, 15, along(hex("#80A4FF"), hex("#BB99FF"), 2, w));
    CHECK_OPAQUE_PIXEL(image, w - 3, 15, along(hex("#80A4FF"), hex("#BB99FF"), w - 3, w));
    QGraphicsDropShadowEffect *effect = dropShadow(scene.button);
    QCOMPARE(effect->offset(), QPointF(0, 3));
    QCOMPARE(effect->blurRadius(), 30.0);
    QCOMPARE(effect->color().rgb(), QColor(0x4C, 0x69, 0xFF).rgb());
    QCOMPARE(effect->color().alpha(), 77);

    // Leaving disables the shadow and empties the pill again.
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(scene.button, &leave);
    QCOMPARE(dropShadow(scene.button), effect);
    QVERIFY(!effect->isEnabled());
    QCOMPARE(qAlpha(scene.image().pixel(20, 15)), 0);
}

void tst_ButtonStyles::defaultDisabledIsFlatGrey()
{
    Scene scene(&makeBtnStyle_Default, Disabled, QStringLiteral("Disabled"));
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    const QImage image = scene.image();
    for (const QPoint p : {QPoint(4, 15), QPoint(20, 4), QPoint(55, 2), QPoint(90, 27), QPoint(105, 15)})
        CHECK_OPAQUE_PIXEL(image, p.x(), p.y(), hex("#CCCCCC"));
    QCOMPARE(scene.button->label()->styleSheet(), QStringLiteral(".QLabel{color: #ffffff;}"));
    QGraphicsDropShadowEffect *effect = dropShadow(scene.button);
    QVERIFY(effect);
    QVERIFY(!effect->isEnabled());
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
}

void tst_ButtonStyles::orangeDisabledIsFlatGrey()
{
    Scene scene(&makeBtnStyle_Orange, Disabled);
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    const QImage image = scene.image();
    for (const QPoint p : {QPoint(4, 15), QPoint(55, 2), QPoint(105, 15)})
        CHECK_OPAQUE_PIXEL(image, p.x(), p.y(), hex("#CCCCCC"));
    QVERIFY(!shadowShown(scene.button));
}

void tst_ButtonStyles::stockTextIsWhite_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("state");
    for (const char *style : {"default", "orange", "ring"}) {
        for (int s = 0; s < 4; ++s)
            QTest::addRow("%s %d", style, s) << QString::fromLatin1(style) << s;
    }
}

void tst_ButtonStyles::stockTextIsWhite()
{
    QFETCH(QString, style);
    QFETCH(int, state);
    Scene scene(factoryNamed(style), state, QStringLiteral("MMMM"));
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    QLabel *label = scene.button->label();
    QVERIFY(label->isVisible());
    // A solid white, or (for the ring's eight colours) a white-to-white gradient.
    const QBrush text = label->palette().brush(QPalette::WindowText);
    if (const QGradient *gradient = text.gradient()) {
        QCOMPARE(gradient->stops().size(), 2);
        for (const QGradientStop &stop : gradient->stops())
            QCOMPARE(stop.second.rgba(), QColor(Qt::white).rgba());
    } else {
        QCOMPARE(text.color().rgba(), QColor(Qt::white).rgba());
    }
    if (style == QLatin1String("ring") && state == Normal)
        return; // white on nothing: only the palette can tell
    // Somewhere in the glyphs the text reaches white.
    const QImage image = scene.image();
    const QRect box = label->geometry();
    int brightest = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x) {
            const QRgb c = image.pixel(x, y);
            brightest = qMax(brightest, qMin(qRed(c), qMin(qGreen(c), qBlue(c))));
        }
    QVERIFY2(brightest >= 0xF0, qPrintable(QString::number(brightest)));
}

void tst_ButtonStyles::strip()
{
    // The three stock styles in their four states, on a light page.
    QWidget page;
    page.setAutoFillBackground(true);
    QPalette palette = page.palette();
    palette.setColor(QPalette::Window, QColor(0xF5, 0xF6, 0xFA));
    page.setPalette(palette);
    auto *grid = new QGridLayout(&page);
    grid->setContentsMargins(24, 24, 24, 24);
    grid->setHorizontalSpacing(28);
    grid->setVerticalSpacing(20);
    const Factory factories[] = {&makeBtnStyle_Default, &makeBtnStyle_Orange, &makeBtnStyle_Ring};
    const QString names[] = {QStringLiteral("Normal"), QStringLiteral("Hover"), QStringLiteral("Pressed"),
                             QStringLiteral("Disabled")};
    QVector<ImageButton *> buttons;
    for (int s = 0; s < 4; ++s) {
        for (int f = 0; f < 3; ++f) {
            auto *b = new ImageButton(names[s], &page);
            b->setStyle(factories[f]());
            grid->addWidget(b, s, f);
            buttons.append(b);
        }
    }
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    for (int i = 0; i < buttons.size(); ++i)
        Scene::setState(buttons.at(i), i / 3);

    const QImage image = page.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    const QString dir = qEnvironmentVariable("ORVANE_LOOK_DIR");
    if (!dir.isEmpty()) {
        QVERIFY(image.save(QDir(dir).filePath(QStringLiteral("buttonstyles.png"))));
        // Four times larger, pixel for pixel, to inspect edges and outlines.
        QVERIFY(image.scaled(image.size() * 4, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                    .save(QDir(dir).filePath(QStringLiteral("buttonstyles-x4.png"))));
    }

    // The page shows through the ring's normal state only.
    ImageButton *ring = buttons.at(2);
    const QPoint inside = ring->geometry().topLeft() + QPoint(20, 15);
    CHECK_OPAQUE_PIXEL(image, inside.x(), inside.y(), QColor(0xF5, 0xF6, 0xFA));
    ImageButton *greyed = buttons.at(9);
    const QPoint flat = greyed->geometry().topLeft() + QPoint(6, 15);
    CHECK_OPAQUE_PIXEL(image, flat.x(), flat.y(), hex("#CCCCCC"));
    ImageButton *pressed = buttons.at(6);
    const QPoint start = pressed->geometry().topLeft() + QPoint(4, 15);
    CHECK_OPAQUE_PIXEL(image, start.x(), start.y(), along(hex("#4D7AE9"), hex("#976EEA"), 4, pressed->width()));
}

QTEST_MAIN(tst_ButtonStyles)
#include "tst_buttonstyles.moc"
