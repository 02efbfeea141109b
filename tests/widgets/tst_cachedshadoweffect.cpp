// The image button's drop shadow against Qt's own QGraphicsDropShadowEffect
// on the same button: the same pixels in every state, after every change,
// and blurred again only when the shadow can have changed.

#include <Orvane/buttonstyles.h>
#include <Orvane/imagebutton.h>
#include <Orvane/imagebuttonstyle.h>
#include <Orvane/omessagebox.h>
#include <Orvane/shadoweffect.h>

#include "widgets/cachedshadoweffect_p.h"

#include "shadowcompare.h"

#include <QApplication>
#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

using namespace Orvane;
using namespace ShadowCompare;

namespace {

// Whether the area under the button shows some shadow at all.
bool hasShadowBelow(const QImage &image, const QWidget &button)
{
    const QRect r = button.geometry();
    return qAlpha(image.pixel(r.center().x(), r.bottom() + 6)) > 0;
}

#define COMPARE_LOOKS(ours, qts)                                                                    \
    do {                                                                                            \
        const QImage ours_ = (ours);                                                                \
        const QImage qts_ = (qts);                                                                  \
        const QString diff_ = difference(ours_, qts_);                                              \
        if (!diff_.isEmpty()) {                                                                     \
            ours_.save(QDir::temp().filePath(QStringLiteral("shadow-ours.png")));                  \
            qts_.save(QDir::temp().filePath(QStringLiteral("shadow-qt.png")));                     \
        }                                                                                           \
        QVERIFY2(diff_.isEmpty(), qPrintable(diff_));                                              \
    } while (false)

CachedShadowEffect *ourEffect(ImageButton *b)
{
    return qobject_cast<CachedShadowEffect *>(b->graphicsEffect());
}

// The states a button can show, set the same way on both buttons.
enum class Change { None, Hover, Press, Check, Disable, Resize, Text };

void apply(ImageButton *b, Change change)
{
    switch (change) {
    case Change::None:
        break;
    case Change::Hover:
        b->bindMouseMoveIn(true);
        b->refresh();
        break;
    case Change::Press:
        b->bindMouseMoveIn(true);
        b->bindMousePressed(true);
        b->refresh();
        break;
    case Change::Check:
        b->setCheckable(true);
        b->setChecked(true);
        break;
    case Change::Disable:
        b->setEnabled(false);
        break;
    case Change::Resize:
        b->setFixedSize(170, 44);
        break;
    case Change::Text:
        b->setText(QStringLiteral("Another text"));
        break;
    }
}

// Our button and one with Qt's effect, both shown and laid out as a window
// is before it paints, ours painted once.
struct ShownPair
{
    explicit ShownPair(Factory factory = &makeBtnStyle_Default)
        : ours(factory, false),
          qts(factory, true)
    {
    }
    bool show()
    {
        ours.frame->show();
        qts.frame->show();
        if (!QTest::qWaitForWindowExposed(ours.frame.get()) || !QTest::qWaitForWindowExposed(qts.frame.get()))
            return false;
        paint(*ours.frame);
        return true;
    }
    CachedShadowEffect *effect() const { return ourEffect(ours.button); }
    void apply(Change change)
    {
        ::apply(ours.button, change);
        ::apply(qts.button, change);
        QApplication::processEvents();
    }
    Framed ours;
    Framed qts;
};

} // namespace

Q_DECLARE_METATYPE(Factory)
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(std::function<void(ShadowCompare::Framed &)>)

class tst_CachedShadowEffect : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isQtsDropShadow();
    void enabledPerState();
    void looksLikeQts_data();
    void looksLikeQts();
    void shownLooksLikeQtsThroughChanges_data();
    void shownLooksLikeQtsThroughChanges();
    void repaintKeepsBlurAndRender();
    void recolouringStateKeepsBlur();
    void resizeBlursAgain();
    void effectPropertiesBlurAgain();
    void changeWhileHiddenIsSeen_data();
    void changeWhileHiddenIsSeen();
    void highDevicePixelRatio();
    void translucentPainter();
    void movedOrScaledPainter_data();
    void movedOrScaledPainter();
    void noBlurNoOffset();
    void effectOnAnotherWidget();
    void removedEffectReleasesCache();
    void buttonsOfOneShapeShareTheBlur();
    void sharedListKeepsTheLatest();
    void oneDifferentAlphaBlursAgain();
    void messageBoxShadow();
    void messageBoxLooksLikeQts();
    void repaintRequestWithoutChangeReusesRender();
    void changeAfterReuseLooksLikeColdRender_data();
    void changeAfterReuseLooksLikeColdRender();
    void unpaddedRenderLooksLikePadded_data();
    void unpaddedRenderLooksLikePadded();
    void sharedListRespectsItsBound();
    void subclassRendersOnEveryRequest();
    void messageBoxRendersOnEveryRequest();
};

void tst_CachedShadowEffect::init()
{
    // Each test counts its own blurs.
    CachedShadowEffect::dropSharedShadows();
}

void tst_CachedShadowEffect::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_CachedShadowEffect::isQtsDropShadow()
{
    ImageButton b(makeBtnStyle_Default());
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(b.graphicsEffect());
    QVERIFY(effect);
    QVERIFY(ourEffect(&b));
    QCOMPARE(effect->parent(), &b);
    QCOMPARE(effect->offset(), QPointF(0, 3));
    QCOMPARE(effect->blurRadius(), 30.0);
    QColor colour(QStringLiteral("#4C69FF"));
    colour.setAlphaF(double(0.3f));
    QCOMPARE(effect->color(), colour);
    // The bounding rectangle is Qt's for the same offset and radius.
    QGraphicsDropShadowEffect qts;
    qts.setOffset(0, 3);
    qts.setBlurRadius(30);
    QCOMPARE(effect->boundingRectFor(QRectF(0, 0, 110, 30)), qts.boundingRectFor(QRectF(0, 0, 110, 30)));
}

void tst_CachedShadowEffect::enabledPerState()
{
    ImageButton b(makeBtnStyle_Default());
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(b.graphicsEffect());
    QVERIFY(effect->isEnabled());
    b.setEnabled(false);
    QCOMPARE(b.graphicsEffect(), effect);
    QVERIFY(!effect->isEnabled());
    b.setEnabled(true);
    QVERIFY(effect->isEnabled());

    ImageButton ring(makeBtnStyle_Ring());
    QCOMPARE(ring.graphicsEffect(), nullptr);
    ring.bindMouseMoveIn(true);
    ring.refresh();
    QVERIFY(ourEffect(&ring));
    QVERIFY(ring.graphicsEffect()->isEnabled());
    ring.bindMouseMoveIn(false);
    ring.refresh();
    QVERIFY(!ring.graphicsEffect()->isEnabled());
}

void tst_CachedShadowEffect::looksLikeQts_data()
{
    QTest::addColumn<Factory>("factory");
    QTest::addColumn<Change>("change");
    const struct
    {
        const char *name;
        Factory factory;
    } styles[] = {{"default", &makeBtnStyle_Default}, {"orange", &makeBtnStyle_Orange}, {"ring", &makeBtnStyle_Ring}};
    const struct
    {
        const char *name;
        Change change;
    } changes[] = {{"normal", Change::None},     {"hover", Change::Hover},   {"pressed", Change::Press}, {"checked", Change::Check},
                   {"disabled", Change::Disable}, {"resized", Change::Resize}, {"new text", Change::Text}};
    for (const auto &style : styles) {
        for (const auto &change : changes)
            QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(QLatin1String(style.name), QLatin1String(change.name))))
                << style.factory << change.change;
    }
}

void tst_CachedShadowEffect::looksLikeQts()
{
    QFETCH(Factory, factory);
    QFETCH(Change, change);
    Framed ours(factory, false);
    Framed qts(factory, true);
    // A first paint in the normal state, so that the change meets a cache.
    COMPARE_LOOKS(paint(*ours.frame), paint(*qts.frame));
    apply(ours.button, change);
    apply(qts.button, change);
    ours.frame->resize(ours.frame->sizeHint());
    qts.frame->resize(qts.frame->sizeHint());
    const QImage image = paint(*ours.frame);
    COMPARE_LOOKS(image, paint(*qts.frame));
    COMPARE_LOOKS(paint(*ours.frame), image);
    if (qts.button->graphicsEffect()->isEnabled())
        QVERIFY(hasShadowBelow(image, *ours.button));
}

void tst_CachedShadowEffect::shownLooksLikeQtsThroughChanges_data()
{
    QTest::addColumn<Factory>("factory");
    QTest::newRow("default") << &makeBtnStyle_Default;
    QTest::newRow("orange") << &makeBtnStyle_Orange;
    QTest::newRow("ring") << &makeBtnStyle_Ring;
}

void tst_CachedShadowEffect::shownLooksLikeQtsThroughChanges()
{
    QFETCH(Factory, factory);
    ShownPair pair(factory);
    QVERIFY(pair.show());

    const std::function<void(ImageButton *)> steps[] = {
        [](ImageButton *b) { apply(b, Change::Hover); },
        [](ImageButton *b) { b->bindMousePressed(true); b->refresh(); },
        [](ImageButton *b) { b->bindMousePressed(false); b->refresh(); },
        [](ImageButton *b) { b->resetMouseState(); b->refresh(); },
        [](ImageButton *b) { apply(b, Change::Disable); },
        [](ImageButton *b) { b->setEnabled(true); },
        [](ImageButton *b) { apply(b, Change::Check); },
        [](ImageButton *b) { b->setChecked(false); },
        [](ImageButton *b) { apply(b, Change::Resize); },
        [](ImageButton *b) { apply(b, Change::Hover); },
        [](ImageButton *b) { apply(b, Change::Text); },
    };
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
    int step = 0;
    for (const auto &change : steps) {
        change(pair.ours.button);
        change(pair.qts.button);
        QApplication::processEvents();
        const QImage qtImage = paint(*pair.qts.frame);
        // Twice: the second paint comes from what the first one kept.
        for (int i = 0; i < 2; ++i) {
            const QString diff = difference(paint(*pair.ours.frame), qtImage);
            QVERIFY2(diff.isEmpty(), qPrintable(QStringLiteral("step %1, paint %2: %3").arg(step).arg(i).arg(diff)));
        }
        ++step;
    }
}

void tst_CachedShadowEffect::repaintKeepsBlurAndRender()
{
    ShownPair pair;
    QVERIFY(pair.show());
    CachedShadowEffect *effect = pair.effect();
    const QImage first = paint(*pair.ours.frame);
    const int blurs = effect->blurCount();
    const int renders = effect->renderCount();
    QVERIFY(blurs >= 1);
    for (int i = 0; i < 3; ++i)
        COMPARE_LOOKS(paint(*pair.ours.frame), first);
    QCOMPARE(effect->blurCount(), blurs);
    // Nothing was marked for repainting: the source is not even rendered.
    QCOMPARE(effect->renderCount(), renders);

    // A repaint of the window from the event loop draws from the cache too.
    pair.ours.frame->update();
    QApplication::processEvents();
    QCOMPARE(effect->blurCount(), blurs);
}

void tst_CachedShadowEffect::recolouringStateKeepsBlur()
{
    ShownPair pair;
    QVERIFY(pair.show());
    CachedShadowEffect *effect = pair.effect();
    const int blurs = effect->blurCount();
    const int renders = effect->renderCount();

    // Hover only recolours the pill: rendered again, the same shadow kept.
    pair.apply(Change::Hover);
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
    QCOMPARE(effect->renderCount(), renders + 1);
    QCOMPARE(effect->blurCount(), blurs);

    // So does a new text on the opaque pill.
    pair.apply(Change::Text);
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
    QCOMPARE(effect->blurCount(), blurs);
}

void tst_CachedShadowEffect::resizeBlursAgain()
{
    ShownPair pair;
    QVERIFY(pair.show());
    const int blurs = pair.effect()->blurCount();

    pair.apply(Change::Resize);
    QCOMPARE(pair.ours.button->size(), QSize(170, 44));
    const QImage image = paint(*pair.ours.frame);
    COMPARE_LOOKS(image, paint(*pair.qts.frame));
    QCOMPARE(pair.effect()->blurCount(), blurs + 1);
    QVERIFY(hasShadowBelow(image, *pair.ours.button));
}

void tst_CachedShadowEffect::effectPropertiesBlurAgain()
{
    ShownPair pair;
    QVERIFY(pair.show());
    CachedShadowEffect *effect = pair.effect();
    auto *qtEffect = qobject_cast<QGraphicsDropShadowEffect *>(pair.qts.button->graphicsEffect());

    const std::function<void(QGraphicsDropShadowEffect *)> changes[] = {
        [](QGraphicsDropShadowEffect *e) { e->setColor(QColor(200, 20, 20, 160)); },
        [](QGraphicsDropShadowEffect *e) { e->setOffset(4, -2); },
        [](QGraphicsDropShadowEffect *e) { e->setBlurRadius(12); },
    };
    for (const auto &change : changes) {
        const int blurs = effect->blurCount();
        change(effect);
        change(qtEffect);
        COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
        QCOMPARE(effect->blurCount(), blurs + 1);
    }
}

void tst_CachedShadowEffect::changeWhileHiddenIsSeen_data()
{
    QTest::addColumn<bool>("hideWindow");
    QTest::newRow("button hidden") << false;
    QTest::newRow("window hidden") << true;
}

void tst_CachedShadowEffect::changeWhileHiddenIsSeen()
{
    QFETCH(bool, hideWindow);
    ShownPair pair;
    QVERIFY(pair.show());

    // Hidden, a change marks nothing for repainting; shown again, the next
    // paint must not come from the copy made before.
    for (Framed *f : {&pair.ours, &pair.qts}) {
        QWidget *hidden = hideWindow ? f->frame.get() : static_cast<QWidget *>(f->button);
        hidden->hide();
        f->button->setBackground(QColor(Qt::red));
        hidden->show();
    }
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
}

void tst_CachedShadowEffect::highDevicePixelRatio()
{
    ShownPair pair;
    QVERIFY(pair.show());
    QWidget &ours = *pair.ours.frame;
    QWidget &qts = *pair.qts.frame;
    const QImage twice = paint(ours, 2.0);
    COMPARE_LOOKS(twice, paint(qts, 2.0));
    QCOMPARE(twice.size(), ours.size() * 2);
    COMPARE_LOOKS(paint(ours, 2.0), twice);
    // And back to a ratio of 1.
    COMPARE_LOOKS(paint(ours), paint(qts));
}

void tst_CachedShadowEffect::translucentPainter()
{
    ShownPair pair;
    QVERIFY(pair.show());
    for (int i = 0; i < 2; ++i)
        COMPARE_LOOKS(paint(*pair.ours.frame, 1.0, 0.5), paint(*pair.qts.frame, 1.0, 0.5));
}

void tst_CachedShadowEffect::movedOrScaledPainter_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::newRow("moved") << QTransform::fromTranslate(13, 7);
    QTest::newRow("scaled") << QTransform::fromScale(1.5, 1.5);
}

void tst_CachedShadowEffect::movedOrScaledPainter()
{
    QFETCH(QTransform, transform);
    ShownPair pair;
    QVERIFY(pair.show());
    // Drawn elsewhere than the kept copy was made for, then back.
    for (int i = 0; i < 2; ++i)
        COMPARE_LOOKS(paint(*pair.ours.frame, 1.0, 1.0, transform), paint(*pair.qts.frame, 1.0, 1.0, transform));
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
}

void tst_CachedShadowEffect::noBlurNoOffset()
{
    Framed ours(&makeBtnStyle_Default, false);
    Framed qts(&makeBtnStyle_Default, true);
    for (Framed *f : {&ours, &qts}) {
        auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(f->button->graphicsEffect());
        effect->setBlurRadius(0);
        effect->setOffset(0, 0);
    }
    const QImage image = paint(*ours.frame);
    COMPARE_LOOKS(image, paint(*qts.frame));
    QVERIFY(!hasShadowBelow(image, *ours.button));
    QCOMPARE(ourEffect(ours.button)->blurCount(), 0);
}

void tst_CachedShadowEffect::effectOnAnotherWidget()
{
    // Owned by one object, set on a widget: never trusted, always right.
    ShownPair pair;
    auto *owner = new QObject(pair.ours.frame.get());
    auto *effect = new CachedShadowEffect(owner);
    effect->setOffset(0, 3);
    effect->setBlurRadius(30);
    effect->setColor(pair.effect()->color());
    pair.ours.button->setGraphicsEffect(effect);
    QVERIFY(pair.show());
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
    const int renders = effect->renderCount();
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
    QCOMPARE(effect->renderCount(), renders + 1);
    pair.ours.button->setGraphicsEffect(nullptr);
}

void tst_CachedShadowEffect::removedEffectReleasesCache()
{
    Framed ours(&makeBtnStyle_Default, false);
    paint(*ours.frame);
    QPointer<QGraphicsEffect> effect = ours.button->graphicsEffect();
    QVERIFY(effect);
    ours.button->setGraphicsEffect(nullptr);
    QVERIFY(effect.isNull());
    // The button still paints, and a new shadow comes with the next refresh.
    paint(*ours.frame);
    ours.button->refresh();
    QVERIFY(ourEffect(ours.button));
    Framed qts(&makeBtnStyle_Default, true);
    COMPARE_LOOKS(paint(*ours.frame), paint(*qts.frame));
}

void tst_CachedShadowEffect::buttonsOfOneShapeShareTheBlur()
{
    Framed first(&makeBtnStyle_Default, false);
    Framed second(&makeBtnStyle_Default, false);
    Framed qts(&makeBtnStyle_Default, true);
    paint(*first.frame);
    QCOMPARE(ourEffect(first.button)->blurCount(), 1);
    // Another record, the same shape: the first button's blur serves.
    const QImage image = paint(*second.frame);
    QCOMPARE(ourEffect(second.button)->blurCount(), 0);
    COMPARE_LOOKS(image, paint(*qts.frame));
    // A different shape needs its own.
    apply(second.button, Change::Resize);
    second.frame->resize(second.frame->sizeHint());
    qts.button->setFixedSize(170, 44);
    qts.frame->resize(qts.frame->sizeHint());
    COMPARE_LOOKS(paint(*second.frame), paint(*qts.frame));
    QCOMPARE(ourEffect(second.button)->blurCount(), 1);
}

void tst_CachedShadowEffect::sharedListKeepsTheLatest()
{
    Framed ours(&makeBtnStyle_Default, false);
    paint(*ours.frame);
    // Twenty other shapes push the first one out of the shared list.
    for (int i = 0; i < 20; ++i) {
        Framed other(&makeBtnStyle_Default, false);
        other.button->setFixedSize(120 + i, 30);
        other.frame->resize(other.frame->sizeHint());
        paint(*other.frame);
        QCOMPARE(ourEffect(other.button)->blurCount(), 1);
    }
    Framed again(&makeBtnStyle_Default, false);
    paint(*again.frame);
    QCOMPARE(ourEffect(again.button)->blurCount(), 1);
    // An effect keeps its own shadow whatever the shared list holds.
    paint(*ours.frame);
    QCOMPARE(ourEffect(ours.button)->blurCount(), 1);
}

namespace {

// An opaque block with a shadow but for one half-transparent pixel at `dot`
// (none when `dot` is outside), framed with room for the whole shadow.
class Dotted : public QWidget
{
public:
    explicit Dotted(QPoint dot)
        : m_dot(dot)
    {
        setFixedSize(53, 12);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QColor colour(30, 60, 90);
        painter.fillRect(rect(), colour);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(m_dot, QSize(1, 1)), QColor(colour.red(), colour.green(), colour.blue(), 128));
    }

private:
    QPoint m_dot;
};

struct DottedFrame
{
    DottedFrame(QPoint dot, bool qtShadow)
        : frame(new QWidget)
    {
        auto *box = new QVBoxLayout(frame.get());
        box->setContentsMargins(20, 20, 20, 20);
        dotted = new Dotted(dot);
        QGraphicsDropShadowEffect *effect =
            qtShadow ? new QGraphicsDropShadowEffect(dotted) : new CachedShadowEffect(dotted);
        effect->setBlurRadius(6.0);
        dotted->setGraphicsEffect(effect);
        box->addWidget(dotted);
        frame->resize(frame->sizeHint());
    }

    int blurs() const { return qobject_cast<CachedShadowEffect *>(dotted->graphicsEffect())->blurCount(); }

    std::unique_ptr<QWidget> frame;
    Dotted *dotted = nullptr;
};

} // namespace

void tst_CachedShadowEffect::oneDifferentAlphaBlursAgain()
{
    // Rows of a source are compared in runs of pixels: a single pixel whose
    // alpha differs, in any column and so at any place in a run or after the
    // last one, makes a shadow of its own.
    for (int x = 0; x < 53; ++x) {
        // The shared list holds just the shadow of the block without a dot.
        CachedShadowEffect::dropSharedShadows();
        DottedFrame plain(QPoint(-1, -1), false);
        paint(*plain.frame);
        QCOMPARE(plain.blurs(), 1);
        const QPoint dot(x, x % 12);
        DottedFrame ours(dot, false);
        DottedFrame qts(dot, true);
        const QImage image = paint(*ours.frame);
        QVERIFY2(ours.blurs() == 1, qPrintable(QStringLiteral("column %1").arg(x)));
        COMPARE_LOOKS(image, paint(*qts.frame));
    }
    // Without a dot the block takes the shared shadow.
    DottedFrame same(QPoint(-1, -1), false);
    paint(*same.frame);
    QCOMPARE(same.blurs(), 0);
}

namespace {

OMessageBox *newBox()
{
    return new OMessageBox(Success, {QStringLiteral("Cancel"), QStringLiteral("Later"), QStringLiteral("Update")},
                           QStringLiteral("Version 2.4 is ready to install."), QStringLiteral("An update"), -1,
                           QStringLiteral("Don't ask again"), [](bool) {}, nullptr, Qt::WindowFlags());
}

} // namespace

void tst_CachedShadowEffect::messageBoxShadow()
{
    OMessageBox *box = newBox();
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(box->graphicsEffect());
    QVERIFY(effect);
    QVERIFY(qobject_cast<CachedShadowEffect *>(effect));
    QCOMPARE(effect->parent(), box);
    QVERIFY(effect->isEnabled());
    QCOMPARE(effect->offset(), QPointF(0, 0));
    QCOMPARE(effect->blurRadius(), 30.0);
    QCOMPARE(effect->color(), QColor(92, 93, 102, 51));
    box->close();
}

void tst_CachedShadowEffect::messageBoxLooksLikeQts()
{
    OMessageBox *ours = newBox();
    OMessageBox *again = newBox();
    OMessageBox *qts = newBox();
    setQtsMessageBoxShadow(qts);
    for (OMessageBox *box : {ours, again, qts}) {
        box->show();
        QVERIFY(QTest::qWaitForWindowExposed(box));
    }
    // A window is drawn onto its own device: Qt draws a window's effect
    // onto a painter it is handed only for children.
    const QImage image = ours->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    COMPARE_LOOKS(image, qts->grab().toImage().convertToFormat(QImage::Format_ARGB32));
    // The band around the panel shows the shadow.
    QVERIFY(qAlpha(image.pixel(image.width() / 2, 2)) > 0);
    // A second box of the same size blurs nothing.
    COMPARE_LOOKS(again->grab().toImage().convertToFormat(QImage::Format_ARGB32), image);
    QCOMPARE(qobject_cast<CachedShadowEffect *>(again->graphicsEffect())->blurCount(), 0);
    for (OMessageBox *box : {ours, again, qts})
        box->close();
}

void tst_CachedShadowEffect::repaintRequestWithoutChangeReusesRender()
{
    ShownPair pair;
    QVERIFY(pair.show());
    CachedShadowEffect *effect = pair.effect();
    const QImage first = paint(*pair.ours.frame);
    const int renders = effect->renderCount();
    const int blurs = effect->blurCount();
    // Marked for repainting with nothing changed, as every button of a
    // window is on a resize: the last render serves, pixel for pixel.
    for (int i = 0; i < 3; ++i) {
        pair.ours.button->update();
        const QImage again = paint(*pair.ours.frame);
        const QString diff = difference(again, first, 0);
        QVERIFY2(diff.isEmpty(), qPrintable(diff));
    }
    QCOMPARE(effect->renderCount(), renders);
    QCOMPARE(effect->blurCount(), blurs);
    COMPARE_LOOKS(paint(*pair.ours.frame), paint(*pair.qts.frame));
}

namespace {

QLabel *textLabelOf(ImageButton *b)
{
    for (QLabel *label : b->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (label->text() == b->text())
            return label;
    }
    return nullptr;
}

QPixmap swatch(const QColor &colour)
{
    QPixmap p(12, 12);
    p.fill(colour);
    return p;
}

} // namespace

void tst_CachedShadowEffect::changeAfterReuseLooksLikeColdRender_data()
{
    QTest::addColumn<std::function<void(Framed &)>>("change");
    QTest::newRow("button text") << std::function<void(Framed &)>([](Framed &f) { f.button->setText(QStringLiteral("Longer text")); });
    QTest::newRow("label text only") << std::function<void(Framed &)>([](Framed &f) { textLabelOf(f.button)->setText(QStringLiteral("Shadowy")); });
    QTest::newRow("label alignment") << std::function<void(Framed &)>([](Framed &f) {
        f.button->setFixedSize(200, 40);
        textLabelOf(f.button)->setAlignment(Qt::AlignRight);
    });
    QTest::newRow("label hidden") << std::function<void(Framed &)>([](Framed &f) { textLabelOf(f.button)->hide(); });
    QTest::newRow("font") << std::function<void(Framed &)>([](Framed &f) {
        QFont font = f.button->font();
        font.setBold(true);
        font.setPixelSize(15);
        f.button->setFont(font);
    });
    QTest::newRow("font, same size") << std::function<void(Framed &)>([](Framed &f) {
        QFont font = f.button->font();
        font.setUnderline(true);
        f.button->setFont(font);
    });
    QTest::newRow("text colour") << std::function<void(Framed &)>([](Framed &f) { f.button->setTextColor(QColor(Qt::black)); });
    QTest::newRow("window style sheet") << std::function<void(Framed &)>([](Framed &f) {
        f.frame->setStyleSheet(QStringLiteral("QLabel { font-size: 19px; padding-left: 3px; }"));
    });
    QTest::newRow("label background from the window's palette") << std::function<void(Framed &)>([](Framed &f) {
        QPalette palette = f.frame->palette();
        palette.setColor(QPalette::Window, Qt::green);
        f.frame->setPalette(palette);
        textLabelOf(f.button)->setAutoFillBackground(true);
        f.button->update();
    });
    QTest::newRow("right to left") << std::function<void(Framed &)>([](Framed &f) {
        f.button->setFixedSize(200, 40);
        f.frame->setLayoutDirection(Qt::RightToLeft);
    });
    QTest::newRow("icon") << std::function<void(Framed &)>([](Framed &f) {
        f.button->setLayout(QBoxLayout::LeftToRight, 4, 4);
        f.button->setIcon(swatch(Qt::yellow), QSize(12, 12));
    });
    QTest::newRow("background") << std::function<void(Framed &)>([](Framed &f) { f.button->setBackground(QColor(Qt::red)); });
    QTest::newRow("record changed through another button") << std::function<void(Framed &)>([](Framed &f) {
        const QSharedPointer<ImageButtonStyle> shared = makeBtnStyle_Orange();
        f.button->setStyle(shared);
        QApplication::processEvents();
        ImageButton other(shared);
        other.setBackground(QColor(Qt::darkCyan));
        // Only a repaint request reaches the button itself.
        f.button->update();
    });
    QTest::newRow("background image") << std::function<void(Framed &)>([](Framed &f) {
        f.button->setBackground(swatch(Qt::darkGreen));
        f.button->update();
    });
    QTest::newRow("hover") << std::function<void(Framed &)>([](Framed &f) { apply(f.button, Change::Hover); });
    QTest::newRow("disabled") << std::function<void(Framed &)>([](Framed &f) { apply(f.button, Change::Disable); });
    QTest::newRow("checked") << std::function<void(Framed &)>([](Framed &f) { apply(f.button, Change::Check); });
    QTest::newRow("resized") << std::function<void(Framed &)>([](Framed &f) { apply(f.button, Change::Resize); });
    QTest::newRow("child added") << std::function<void(Framed &)>([](Framed &f) {
        auto *dot = new QWidget(f.button);
        dot->setAutoFillBackground(true);
        QPalette palette = dot->palette();
        palette.setColor(QPalette::Window, Qt::red);
        dot->setPalette(palette);
        dot->setGeometry(2, 2, 6, 6);
        dot->show();
    });
    QTest::newRow("own background filled") << std::function<void(Framed &)>([](Framed &f) {
        f.button->setBackground(QVector<QColor>{QColor(0, 0, 0, 0)}, 0);
        QPalette palette = f.button->palette();
        palette.setColor(QPalette::Window, Qt::blue);
        f.button->setPalette(palette);
        f.button->setAutoFillBackground(true);
        f.button->update();
    });
}

void tst_CachedShadowEffect::changeAfterReuseLooksLikeColdRender()
{
    QFETCH(std::function<void(Framed &)>, change);
    // Ours has reused its render once before the change; the cold one is
    // painted only after it, so it renders from scratch.
    ShownPair pair;
    QVERIFY(pair.show());
    Framed cold(&makeBtnStyle_Default, false);
    cold.frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(cold.frame.get()));
    const QImage before = paint(*pair.ours.frame);
    pair.ours.button->update();
    QCOMPARE(difference(paint(*pair.ours.frame), before, 0), QString());
    const int renders = pair.effect()->renderCount();

    change(pair.ours);
    change(cold);
    QApplication::processEvents();
    for (Framed *f : {&pair.ours, &cold})
        f->frame->resize(f->frame->sizeHint().expandedTo(f->frame->size()));
    cold.frame->resize(pair.ours.frame->size());
    QApplication::processEvents();
    const QImage warm = paint(*pair.ours.frame);
    const QImage fresh = paint(*cold.frame);
    QVERIFY(warm != before);
    const QString diff = difference(warm, fresh, 0);
    if (!diff.isEmpty()) {
        warm.save(QDir::temp().filePath(QStringLiteral("shadow-warm.png")));
        fresh.save(QDir::temp().filePath(QStringLiteral("shadow-cold.png")));
    }
    QVERIFY2(diff.isEmpty(), qPrintable(diff));
    if (CachedShadowEffect *effect = pair.effect())
        QVERIFY(effect->renderCount() > renders || !effect->isEnabled());
}

void tst_CachedShadowEffect::unpaddedRenderLooksLikePadded_data()
{
    QTest::addColumn<Factory>("factory");
    QTest::addColumn<Change>("change");
    QTest::newRow("default") << &makeBtnStyle_Default << Change::None;
    QTest::newRow("default, hover") << &makeBtnStyle_Default << Change::Hover;
    QTest::newRow("orange, pressed") << &makeBtnStyle_Orange << Change::Press;
    QTest::newRow("ring, hover") << &makeBtnStyle_Ring << Change::Hover;
    QTest::newRow("ring, disabled") << &makeBtnStyle_Ring << Change::Disable;
    QTest::newRow("default, resized") << &makeBtnStyle_Default << Change::Resize;
}

void tst_CachedShadowEffect::unpaddedRenderLooksLikePadded()
{
    // A button keeps its render without the blur's margin; without its
    // witness the effect renders with the margin, as Qt does. Every pixel
    // is the same, on the first paint and on the reused one.
    QFETCH(Factory, factory);
    QFETCH(Change, change);
    Framed kept(factory, false);
    Framed padded(factory, false);
    for (Framed *f : {&kept, &padded}) {
        apply(f->button, change);
        f->frame->resize(f->frame->sizeHint());
        f->frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(f->frame.get()));
    }
    CachedShadowEffect *paddedEffect = ourEffect(padded.button);
    QVERIFY(paddedEffect);
    paddedEffect->setSourceWitness(nullptr);
    const QImage reference = paint(*padded.frame);
    for (int i = 0; i < 2; ++i) {
        kept.button->update();
        const QString diff = difference(paint(*kept.frame), reference, 0);
        QVERIFY2(diff.isEmpty(), qPrintable(QStringLiteral("paint %1: %2").arg(i).arg(diff)));
    }
    // Drawn where a kept render cannot serve (moved, scaled, translucent).
    COMPARE_LOOKS(paint(*kept.frame, 1.0, 1.0, QTransform::fromScale(1.5, 1.5)),
                  paint(*padded.frame, 1.0, 1.0, QTransform::fromScale(1.5, 1.5)));
    QCOMPARE(difference(paint(*kept.frame, 1.0, 0.5), paint(*padded.frame, 1.0, 0.5), 0), QString());
    QCOMPARE(difference(paint(*kept.frame, 2.0), paint(*padded.frame, 2.0), 0), QString());
    QCOMPARE(difference(paint(*kept.frame), reference, 0), QString());
}

void tst_CachedShadowEffect::sharedListRespectsItsBound()
{
    // Forty shapes, the largest far bigger than a button: the list keeps
    // at most its count and its bytes, and still the latest shadow.
    for (int i = 0; i < 40; ++i) {
        Framed f(&makeBtnStyle_Default, false);
        f.button->setFixedSize(120 + 37 * i, 30 + 23 * i);
        f.frame->resize(f.frame->sizeHint());
        paint(*f.frame);
        QVERIFY(CachedShadowEffect::sharedShadowCount() <= CachedShadowEffect::SharedShadowLimit);
        QVERIFY(CachedShadowEffect::sharedShadowCount() >= 1);
        if (CachedShadowEffect::sharedShadowCount() > 1)
            QVERIFY(CachedShadowEffect::sharedShadowBytes() <= CachedShadowEffect::SharedShadowByteLimit);
    }
    // The last shapes are large: the byte bound, not the count, limited them.
    QVERIFY(CachedShadowEffect::sharedShadowCount() < CachedShadowEffect::SharedShadowLimit);
    CachedShadowEffect::dropSharedShadows();
    QCOMPARE(CachedShadowEffect::sharedShadowCount(), 0);
    QCOMPARE(CachedShadowEffect::sharedShadowBytes(), qint64(0));
}

namespace {

// Paints a mark the image button knows nothing about.
class MarkedButton : public ImageButton
{
public:
    MarkedButton()
        : ImageButton(makeBtnStyle_Default())
    {
    }
    QColor mark = Qt::red;

protected:
    void paintEvent(QPaintEvent *e) override
    {
        ImageButton::paintEvent(e);
        QPainter painter(this);
        painter.fillRect(QRect(4, 4, 6, 6), mark);
    }
};

} // namespace

void tst_CachedShadowEffect::subclassRendersOnEveryRequest()
{
    QWidget frame;
    auto *box = new QVBoxLayout(&frame);
    box->setContentsMargins(40, 40, 40, 40);
    auto *button = new MarkedButton;
    box->addWidget(button);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    const QImage red = paint(frame);
    auto *effect = qobject_cast<CachedShadowEffect *>(button->graphicsEffect());
    QVERIFY(effect);
    const int renders = effect->renderCount();
    button->mark = Qt::green;
    button->update();
    const QImage green = paint(frame);
    QCOMPARE(effect->renderCount(), renders + 1);
    const QPoint at = button->geometry().topLeft() + QPoint(6, 6);
    QCOMPARE(QColor(red.pixel(at)), QColor(Qt::red));
    QCOMPARE(QColor(green.pixel(at)), QColor(Qt::green));
}

void tst_CachedShadowEffect::messageBoxRendersOnEveryRequest()
{
    // The box hands the effect no witness: a repaint request renders it.
    OMessageBox *box = newBox();
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box));
    auto *effect = qobject_cast<CachedShadowEffect *>(box->graphicsEffect());
    QVERIFY(effect);
    const QImage first = box->grab().toImage();
    const int renders = effect->renderCount();
    box->update();
    QCOMPARE(difference(box->grab().toImage().convertToFormat(QImage::Format_ARGB32),
                        first.convertToFormat(QImage::Format_ARGB32), 0),
             QString());
    QCOMPARE(effect->renderCount(), renders + 1);
    box->close();
}

QTEST_MAIN(tst_CachedShadowEffect)
#include "tst_cachedshadoweffect.moc"
