// The library on scaled screens. CTest runs this executable four times, with
// QT_SCALE_FACTOR 1, 1.25, 1.5 and 2 on the offscreen platform; the
// application sets the attributes a host sets (see main()). At every ratio:
// sizes in device-independent pixels are those of 100 %; the pictures the
// library loads itself come from their @2x twins above 100 % and are sharper
// than the 1x picture scaled up; the shadows are Qt's own; no cache hands a
// picture of one ratio to a painter of another.

#include <Orvane/bardialog.h>
#include <Orvane/buttonstyles.h>
#include <Orvane/dialogskinstyle.h>
#include <Orvane/helpers.h>
#include <Orvane/imagebutton.h>
#include <Orvane/omessagebox.h>
#include <Orvane/rotationlabel.h>
#include <Orvane/slicemanager.h>
#include <Orvane/startup.h>

#include "core/ratiopixmaps_p.h"
#include "widgets/cachedshadoweffect_p.h"
#include "widgets/rotationlabel_p.h"

#include "../widgets/shadowcompare.h"

#include <QApplication>
#include <QCheckBox>
#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

using namespace Orvane;
using namespace ShadowCompare;

namespace {

// The ratio this run was started for.
qreal expectedRatio()
{
    const QByteArray factor = qgetenv("QT_SCALE_FACTOR");
    return factor.isEmpty() ? 1.0 : factor.toDouble();
}

bool scaled()
{
    return expectedRatio() > 1.0;
}

QImage argb(const QPixmap &pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

// Edge sharpness: the mean, over every device pixel, of the squared
// differences to the right and lower neighbours, summed over the four
// channels (the gradient's energy). An edge spread over more pixels by
// scaling a small picture up keeps its total step but loses energy, so a
// picture scaled up from fewer pixels scores lower than one drawn from
// enough pixels.
double sharpness(const QImage &image)
{
    const auto sq = [](int v) { return double(v) * v; };
    const QImage im = image.convertToFormat(QImage::Format_ARGB32);
    double sum = 0;
    for (int y = 0; y + 1 < im.height(); ++y) {
        for (int x = 0; x + 1 < im.width(); ++x) {
            const QRgb p = im.pixel(x, y);
            const QRgb r = im.pixel(x + 1, y);
            const QRgb d = im.pixel(x, y + 1);
            sum += sq(qRed(p) - qRed(r)) + sq(qGreen(p) - qGreen(r)) + sq(qBlue(p) - qBlue(r))
                + sq(qAlpha(p) - qAlpha(r));
            sum += sq(qRed(p) - qRed(d)) + sq(qGreen(p) - qGreen(d)) + sq(qBlue(p) - qBlue(d))
                + sq(qAlpha(p) - qAlpha(d));
        }
    }
    return sum / (double(im.width()) * im.height());
}

// Above 100 % ours must be clearly sharper than the 1x picture scaled up;
// at 100 % it must be the very same picture.
void compareSharpness(const QImage &ours, const QImage &upscaled, const char *what)
{
    const double a = sharpness(ours);
    const double b = sharpness(upscaled);
    const QString message = QStringLiteral("%1 at %2: ours %3, 1x scaled up %4")
                                .arg(QLatin1String(what))
                                .arg(expectedRatio())
                                .arg(a)
                                .arg(b);
    qInfo("%s", qPrintable(message));
    if (!qEnvironmentVariableIsEmpty("ORVANE_LOOK_DIR")) {
        const QString stem = QString::fromLocal8Bit(qgetenv("ORVANE_LOOK_DIR")) + QLatin1Char('/')
            + QString::fromLatin1(what).replace(QLatin1Char(' '), QLatin1Char('_'))
            + QStringLiteral("_%1").arg(expectedRatio());
        ours.save(stem + QStringLiteral("_ours.png"));
        upscaled.save(stem + QStringLiteral("_1x.png"));
    }
    if (scaled()) {
        QVERIFY2(a > b * 1.15, qPrintable(message));
    } else {
        QCOMPARE(ours, upscaled);
    }
}

// The mean squared difference of two images' channels.
double distance(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 1e9;
    const auto sq = [](int v) { return double(v) * v; };
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += sq(qRed(p) - qRed(q)) + sq(qGreen(p) - qGreen(q)) + sq(qBlue(p) - qBlue(q))
                + sq(qAlpha(p) - qAlpha(q));
        }
    }
    return sum / (double(a.width()) * a.height());
}

// For pictures Qt scales without smoothing (style sheets, plain labels),
// where a blocky 1x picture keeps hard edges: ours against the same widget
// drawn from the twin alone and from the 1x picture alone. At 100 % ours is
// the 1x drawing exactly; above, it is (nearly) the twin's drawing and far
// from the 1x picture scaled up.
// Which picture a style sheet's "image: url(...)" draws is Qt's own choice.
// Qt 5 takes the @2x twin at every ratio above 1; Qt 6.4 takes it only from
// 200 % up and draws the 1x picture at 125 % and 150 %.
bool styleSheetTakesTwin()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return expectedRatio() >= 2.0;
#else
    return scaled();
#endif
}

enum class PictureSource { Library, StyleSheet };

//
// At 100 % a style sheet's picture is Qt's choice too: Qt fits the picture
// into the button's content rectangle and, when that is larger than the 1x
// picture, draws the twin scaled down (the "windows" platform's buttons
// leave more room than the offscreen platform's). `fromPair`, if given, is
// Qt's own drawing of the same picture with its twin beside it, and at
// 100 % ours must be exactly that.
void compareWithTwin(const QImage &ours, const QImage &fromTwin, const QImage &fromOne, const char *what,
                     PictureSource source = PictureSource::Library, const QImage &fromPair = QImage())
{
    const double toTwin = distance(ours, fromTwin);
    const double toOne = distance(ours, fromOne);
    const QString message = QStringLiteral("%1 at %2: sharpness ours %3, 1x scaled up %4; distance to the twin's "
                                           "drawing %5, to the 1x drawing %6")
                                .arg(QLatin1String(what))
                                .arg(expectedRatio())
                                .arg(sharpness(ours))
                                .arg(sharpness(fromOne))
                                .arg(toTwin)
                                .arg(toOne);
    qInfo("%s", qPrintable(message));
    if (!scaled()) {
        QCOMPARE(ours, fromPair.isNull() ? fromOne : fromPair);
    } else if (source == PictureSource::StyleSheet && !styleSheetTakesTwin()) {
        // Qt's own choice (see styleSheetTakesTwin()): drawn, and from the 1x picture.
        QVERIFY2(toOne * 4 < toTwin, qPrintable(message));
    } else {
        QVERIFY2(toTwin * 4 < toOne, qPrintable(message));
    }
}

// Shows a message box at its natural size. The offscreen screen is 800 by
// 600 device pixels, only 400 by 300 at 200 %, and Qt makes a new window at
// most two thirds of its screen high; a real screen has room.
void showBox(OMessageBox *box)
{
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box));
    const int natural = box->heightForWidth(box->width());
    if (natural > box->height())
        box->resize(box->width(), natural);
}

#define COMPARE_LOOKS(ours, qts)                                                                   \
    do {                                                                                           \
        const QString diff_ = difference((ours), (qts));                                           \
        QVERIFY2(diff_.isEmpty(), qPrintable(diff_));                                              \
    } while (false)

// A 1x-only copy of a library picture in `dir`: the same file with no twin
// beside it, so Qt has to scale it up on a scaled screen.
QString lonelyCopy(const QTemporaryDir &dir, const QString &resource, const QString &name)
{
    const QString path = dir.filePath(name);
    QFile::remove(path);
    return QFile::copy(resource, path) ? path : QString();
}

OMessageBox *newBox(MessageBoxIconType icon = Success)
{
    return new OMessageBox(icon, {QStringLiteral("Later"), QStringLiteral("Update")},
                           QStringLiteral("Version 2.4 is ready to install."), QStringLiteral("An update"), -1,
                           QStringLiteral("Don't ask again"), [](bool) {}, nullptr, Qt::WindowFlags());
}

} // namespace

class tst_HighDpi : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void runsAtTheRequestedRatio();
    void sizesStayInDeviceIndependentPixels();
    void libraryPicturesComeFromTheirTwins();
    void messageBoxIconIsSharp();
    void closeButtonIsSharp();
    void checkBoxIndicatorIsSharp();
    void spinnerIsSharp();
    void tintKeepsTheRatio();
    void stretchedTwinKeepsTheCorners();
    void buttonShadowIsQts();
    void messageBoxShadowIsQts();
    void shadowCacheKeepsRatiosApart();
    void messageBoxFollowsItsScreen();
    void slicesComeFromTheTwinSheet();

private:
    QTemporaryDir m_dir;
};

void tst_HighDpi::initTestCase()
{
    QVERIFY(m_dir.isValid());
    ensureOrvaneResources();
}

void tst_HighDpi::cleanup()
{
    for (QWidget *w : QApplication::topLevelWidgets())
        w->close();
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_HighDpi::runsAtTheRequestedRatio()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Qt 6 scales and uses the pictures' ratios always.
    QVERIFY(QApplication::testAttribute(Qt::AA_EnableHighDpiScaling));
    QVERIFY(QApplication::testAttribute(Qt::AA_UseHighDpiPixmaps));
#endif
    QCOMPARE(qApp->devicePixelRatio(), expectedRatio());
    QCOMPARE(applicationPixelRatio(), expectedRatio());
}

void tst_HighDpi::sizesStayInDeviceIndependentPixels()
{
    OMessageBox *box = newBox();
    showBox(box);
    QVERIFY(box->width() >= 480);
    QVERIFY(box->height() >= 150);
    QCOMPARE(box->devicePixelRatioF(), expectedRatio());
    const QList<QPushButton *> buttons = box->findChildren<QPushButton *>();
    int rowButtons = 0;
    for (QPushButton *button : buttons) {
        if (button->text().isEmpty())
            continue; // the bar's close button
        ++rowButtons;
        QCOMPARE(button->height(), 30);
        QCOMPARE(button->width(), 100);
    }
    QCOMPARE(rowButtons, 2);
    auto *icon = box->findChild<QLabel *>(QStringLiteral("icon"));
    QVERIFY(icon);
    QCOMPARE(icon->size(), QSize(48, 48));

    // The grab holds the device pixels of that size.
    const QPixmap grabbed = box->grab();
    QCOMPARE(grabbed.devicePixelRatioF(), expectedRatio());
    QVERIFY(qAbs(grabbed.width() - box->width() * expectedRatio()) <= 1);
    QVERIFY(qAbs(grabbed.height() - box->height() * expectedRatio()) <= 1);

    ImageButton button(makeBtnStyle_Default());
    button.setText(QStringLiteral("Go"));
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QCOMPARE(button.height(), 30);
}

void tst_HighDpi::libraryPicturesComeFromTheirTwins()
{
    const QPixmap success = loadImageWithTintColor(QStringLiteral(":/Orvane/kv_TipsSuccess.png"), QString());
    QCOMPARE(success.devicePixelRatioF(), scaled() ? 2.0 : 1.0);
    QCOMPARE(success.size() / success.devicePixelRatioF(), QSize(48, 48));
    // Names without an extension have their twin too.
    const QPixmap check = loadPixmapForRatio(QStringLiteral(":/Orvane/checkbox_1"), expectedRatio());
    QCOMPARE(check.size(), scaled() ? QSize(32, 32) : QSize(16, 16));
    // No twin: the picture itself.
    const QString lonely = lonelyCopy(m_dir, QStringLiteral(":/Orvane/kv_Loading.png"), QStringLiteral("spin.png"));
    QVERIFY(!lonely.isEmpty());
    QCOMPARE(loadImageWithTintColor(lonely, QString()).devicePixelRatioF(), 1.0);
    QCOMPARE(twinPath(QStringLiteral("a.b/c")), QStringLiteral("a.b/c@2x"));
    QCOMPARE(twinPath(QStringLiteral(":/x/y.png")), QStringLiteral(":/x/y@2x.png"));
}

void tst_HighDpi::messageBoxIconIsSharp()
{
    // The dark skin tints; the light skin shows the picture as stored.
    for (int skin : {2, 0}) {
        const int before = currentDialogSkin();
        setCurrentDialogSkin(skin);
        OMessageBox *box = newBox(Attention);
        setCurrentDialogSkin(before);
        showBox(box);
        auto *icon = box->findChild<QLabel *>(QStringLiteral("icon"));
        QVERIFY(icon);
        QCOMPARE(icon->pixmap(Qt::ReturnByValue).devicePixelRatioF(), scaled() ? 2.0 : 1.0);

        // The same label with the 1x picture, tinted alike.
        QLabel plain;
        plain.setFixedSize(48, 48);
        plain.setScaledContents(true);
        QPixmap one(QStringLiteral(":/Orvane/kv_TipsAttention.png"));
        pixmapTintColor(one, dialogSkinStyle(skin).iconTint);
        plain.setPixmap(one);
        plain.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plain));
        compareSharpness(argb(icon->grab()), argb(plain.grab()), skin == 2 ? "dark icon" : "light icon");
        box->close();
    }
}

void tst_HighDpi::closeButtonIsSharp()
{
    BarDialog dialog(nullptr, 2, Qt::WindowFlags());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QPushButton *close = nullptr;
    for (QPushButton *b : dialog.findChildren<QPushButton *>())
        close = b;
    QVERIFY(close);

    const QString lonely =
        lonelyCopy(m_dir, QStringLiteral(":/Orvane/kv_DlgCloseBtn.png"), QStringLiteral("close.png"));
    QVERIFY(!lonely.isEmpty());
    const QString twin =
        lonelyCopy(m_dir, QStringLiteral(":/Orvane/kv_DlgCloseBtn@2x.png"), QStringLiteral("closetwin.png"));
    QVERIFY(!twin.isEmpty());
    // The same picture with its twin beside it, outside the resources.
    const QString pair = lonelyCopy(m_dir, QStringLiteral(":/Orvane/kv_DlgCloseBtn.png"), QStringLiteral("pair.png"));
    QVERIFY(!pair.isEmpty());
    QVERIFY(!lonelyCopy(m_dir, QStringLiteral(":/Orvane/kv_DlgCloseBtn@2x.png"), QStringLiteral("pair@2x.png"))
                 .isEmpty());
    QWidget holder;
    holder.resize(90, 60);
    QPushButton *references[3];
    const QString pictures[3] = {lonely, twin, pair};
    for (int i = 0; i < 3; ++i) {
        references[i] = new QPushButton(&holder);
        references[i]->setFixedSize(close->size());
        references[i]->setIconSize(close->iconSize());
        QString sheet = dialogSkinStyle(2).closeButtonStyle;
        sheet.replace(QStringLiteral(":/Orvane/kv_DlgCloseBtn.png"), pictures[i]);
        references[i]->setStyleSheet(sheet);
    }
    holder.show();
    QVERIFY(QTest::qWaitForWindowExposed(&holder));
    compareWithTwin(argb(close->grab()), argb(references[1]->grab()), argb(references[0]->grab()), "close button",
                    PictureSource::StyleSheet, argb(references[2]->grab()));
}

void tst_HighDpi::checkBoxIndicatorIsSharp()
{
    OMessageBox *box = newBox();
    showBox(box);
    auto *check = box->findChild<QCheckBox *>(QStringLiteral("check"));
    QVERIFY(check);

    // The same check box drawn from the 1x pictures alone and from the twins
    // alone.
    QWidget holder;
    holder.resize(400, 60);
    QCheckBox *references[2];
    for (int i = 0; i < 2; ++i) {
        QString sheet = check->styleSheet();
        for (const char *name : {"checkbox_0", "checkbox_1"}) {
            const QString resource = QStringLiteral(":/Orvane/") + QLatin1String(name);
            const QString copy = lonelyCopy(m_dir, i == 0 ? resource : twinPath(resource),
                                            QLatin1String(name) + (i == 0 ? QLatin1String("_one") : QLatin1String("_twin")));
            QVERIFY(!copy.isEmpty());
            sheet.replace(resource + QLatin1Char(')'), copy + QLatin1Char(')'));
        }
        references[i] = new QCheckBox(check->text(), &holder);
        references[i]->setFont(check->font());
        references[i]->setStyleSheet(sheet);
        references[i]->setFixedSize(check->size());
        references[i]->move(0, 30 * i);
    }
    holder.show();
    QVERIFY(QTest::qWaitForWindowExposed(&holder));

    for (bool on : {false, true}) {
        check->setChecked(on);
        for (QCheckBox *reference : references)
            reference->setChecked(on);
        // The indicator: the leftmost 16 pixels.
        const QRect indicator(0, 0, 16, check->height());
        compareWithTwin(argb(check->grab(indicator)), argb(references[1]->grab(indicator)),
                        argb(references[0]->grab(indicator)), on ? "check box on" : "check box off",
                        PictureSource::StyleSheet);
    }
}

void tst_HighDpi::spinnerIsSharp()
{
    const QString path = QStringLiteral(":/Orvane/kv_Loading.png");
    RotationLabel ours;
    ours.setPixmap(loadImageWithTintColor(path, QString()));
    RotationLabel plain;
    plain.setPixmap(QPixmap(path));
    for (RotationLabel *label : {&ours, &plain}) {
        label->setFixedSize(32, 32);
        label->show();
        QVERIFY(QTest::qWaitForWindowExposed(label));
    }

    // While it spins, every frame keeps the source's ratio.
    const QPixmap upright = ours.pixmap(Qt::ReturnByValue);
    ours.startRotating(400);
    QTRY_VERIFY(ours.pixmap(Qt::ReturnByValue).cacheKey() != upright.cacheKey());
    QCOMPARE(ours.pixmap(Qt::ReturnByValue).devicePixelRatioF(), scaled() ? 2.0 : 1.0);
    QCOMPARE(ours.pixmap(Qt::ReturnByValue).size() / ours.pixmap(Qt::ReturnByValue).devicePixelRatioF(),
             QSize(32, 32));
    ours.stopRotating();

    // The same angle from the picture the library loads, from the twin and
    // from the 1x picture.
    ours.setPixmap(rotatedFrame(loadImageWithTintColor(path, QString()), 30));
    plain.setPixmap(rotatedFrame(QPixmap(path), 30));
    RotationLabel fromTwin;
    fromTwin.setPixmap(rotatedFrame(QPixmap(twinPath(path)), 30));
    fromTwin.setFixedSize(32, 32);
    fromTwin.show();
    QVERIFY(QTest::qWaitForWindowExposed(&fromTwin));
    compareWithTwin(argb(ours.grab()), argb(fromTwin.grab()), argb(plain.grab()), "spinner");
}

void tst_HighDpi::tintKeepsTheRatio()
{
    QPixmap twin = loadPixmapForRatio(QStringLiteral(":/Orvane/kv_TipsSuccess.png"), 2.0);
    QCOMPARE(twin.devicePixelRatioF(), 2.0);
    const QImage before = twin.toImage().convertToFormat(QImage::Format_ARGB32);
    pixmapTintColor(twin, QStringLiteral("#FF0000"));
    QCOMPARE(twin.devicePixelRatioF(), 2.0);
    QCOMPARE(twin.size(), QSize(96, 96));
    // Every visible device pixel is red, the bottom-right quarter included;
    // the alpha channel is the picture's.
    const QImage after = twin.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            const QRgb p = after.pixel(x, y);
            QCOMPARE(qAlpha(p), qAlpha(before.pixel(x, y)));
            if (qAlpha(p) == 255)
                QCOMPARE(QColor(p).name(), QStringLiteral("#ff0000"));
        }
    }
}

void tst_HighDpi::stretchedTwinKeepsTheCorners()
{
    // A 1x source with a pattern in every corner and its twin, each pixel
    // doubled, at ratio 2.
    QImage one(40, 40, QImage::Format_ARGB32);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            one.setPixel(x, y, qRgb(x * 6, y * 6, ((x ^ y) & 1) * 255));
    const QImage two = one.scaled(80, 80, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    QPixmap twin = QPixmap::fromImage(two);
    twin.setDevicePixelRatio(2.0);

    const QMargins margins(12, 12, 12, 12);
    QImage target1(100, 60, QImage::Format_ARGB32);
    target1.fill(Qt::transparent);
    {
        QPainter painter(&target1);
        drawStretchedImage(painter, QSize(100, 60), QPixmap::fromImage(one), margins);
    }
    QImage target2(200, 120, QImage::Format_ARGB32);
    target2.setDevicePixelRatio(2.0);
    target2.fill(Qt::transparent);
    {
        QPainter painter(&target2);
        drawStretchedImage(painter, QSize(100, 60), twin, margins);
    }
    // The corners are the 1x corners, each pixel as four device pixels.
    const QPoint corners[] = {{0, 0}, {88, 0}, {0, 48}, {88, 48}};
    for (const QPoint &corner : corners) {
        for (int y = 0; y < 12; ++y) {
            for (int x = 0; x < 12; ++x) {
                const QRgb expected = target1.pixel(corner.x() + x, corner.y() + y);
                for (int dy = 0; dy < 2; ++dy)
                    for (int dx = 0; dx < 2; ++dx)
                        QCOMPARE(target2.pixel(2 * (corner.x() + x) + dx, 2 * (corner.y() + y) + dy), expected);
            }
        }
    }
    // And the corners are the source's own corners, unscaled.
    QCOMPARE(target1.pixel(99, 59), one.pixel(39, 39));
    QCOMPARE(target1.pixel(0, 0), one.pixel(0, 0));
}

void tst_HighDpi::buttonShadowIsQts()
{
    Framed ours(makeBtnStyle_Default, false);
    Framed qts(makeBtnStyle_Default, true);
    QVERIFY(qobject_cast<CachedShadowEffect *>(ours.button->graphicsEffect()));
    for (Framed *f : {&ours, &qts}) {
        f->frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(f->frame.get()));
    }
    for (int state = 0; state < 2; ++state) {
        if (state == 1) {
            for (Framed *f : {&ours, &qts})
                f->button->bindMouseMoveIn(true), f->button->refresh();
        }
        const QImage a = argb(ours.frame->grab());
        const QImage b = argb(qts.frame->grab());
        QCOMPARE(a.devicePixelRatioF(), expectedRatio());
        COMPARE_LOOKS(a, b);
        // There is a shadow to compare: under the button, something shows.
        const QRect r = ours.button->geometry();
        const qreal k = expectedRatio();
        QVERIFY(qAlpha(a.pixel(int(r.center().x() * k), int((r.bottom() + 6) * k))) > 0);
    }
}

void tst_HighDpi::messageBoxShadowIsQts()
{
    OMessageBox *ours = newBox();
    OMessageBox *qts = newBox();
    setQtsMessageBoxShadow(qts);
    for (OMessageBox *box : {ours, qts})
        showBox(box);
    const QImage image = argb(ours->grab());
    COMPARE_LOOKS(image, argb(qts->grab()));
    // The band around the panel shows the shadow.
    QVERIFY(qAlpha(image.pixel(image.width() / 2, 2)) > 0);
}

void tst_HighDpi::shadowCacheKeepsRatiosApart()
{
    // One button drawn at ratio 1, then 2, then 1 again, against Qt's effect
    // at each: a kept shadow of one ratio never serves the other.
    CachedShadowEffect::dropSharedShadows();
    Framed ours(makeBtnStyle_Default, false);
    Framed qts(makeBtnStyle_Default, true);
    auto *effect = qobject_cast<CachedShadowEffect *>(ours.button->graphicsEffect());
    QVERIFY(effect);
    for (qreal dpr : {1.0, 2.0, 1.0}) {
        const QImage a = paint(*ours.frame, dpr);
        COMPARE_LOOKS(a, paint(*qts.frame, dpr));
    }
    // Two ratios, two blurs; the way back to 1 found its shadow again.
    QCOMPARE(effect->blurCount(), 2);
    // The screen's own ratio: one of the two, or a blur of its own.
    const QImage a = paint(*ours.frame, expectedRatio());
    COMPARE_LOOKS(a, paint(*qts.frame, expectedRatio()));
    QCOMPARE(effect->blurCount(), expectedRatio() == 1.0 || expectedRatio() == 2.0 ? 2 : 3);
}

void tst_HighDpi::messageBoxFollowsItsScreen()
{
    OMessageBox *box = newBox(Attention);
    showBox(box);
    auto *icon = box->findChild<QLabel *>(QStringLiteral("icon"));
    QVERIFY(icon);
    const QPixmap right = icon->pixmap(Qt::ReturnByValue);

    // As if it had been built on a screen of the other kind: the picture of
    // the other ratio, until Qt says the window changed screens.
    QPixmap wrong = loadPixmapForRatio(QStringLiteral(":/Orvane/kv_TipsAttention.png"), scaled() ? 1.0 : 2.0);
    QVERIFY(wrong.devicePixelRatioF() != right.devicePixelRatioF());
    icon->setPixmap(wrong);
    QEvent screenChange(QEvent::ScreenChangeInternal);
    QCoreApplication::sendEvent(box, &screenChange);
    const QPixmap now = icon->pixmap(Qt::ReturnByValue);
    QCOMPARE(now.devicePixelRatioF(), right.devicePixelRatioF());
    QCOMPARE(argb(now), argb(right));

    // The picture is shared between boxes (one per ratio and tint).
    OMessageBox *second = newBox(Attention);
    QCOMPARE(second->findChild<QLabel *>(QStringLiteral("icon"))->pixmap(Qt::ReturnByValue).cacheKey(),
             right.cacheKey());
    second->close();
}

void tst_HighDpi::slicesComeFromTheTwinSheet()
{
    SliceManager &catalogue = SliceManager::sharedInstance();
    const QPixmap a = catalogue.slice(QStringLiteral("hd_a"));
    const QPixmap b = catalogue.slice(QStringLiteral("hd_b"));
    QVERIFY(!a.isNull());
    QVERIFY(!b.isNull());
    const qreal ratio = scaled() ? 2.0 : 1.0;
    for (const QPixmap &p : {a, b}) {
        QCOMPARE(p.devicePixelRatioF(), ratio);
        QCOMPARE(p.size(), QSize(20, 20) * ratio);
    }
    const QImage ia = argb(a);
    const QImage ib = argb(b);
    // The twin's slice a is a checkerboard of device pixels; the 1x one flat.
    QCOMPARE(ia.pixel(0, 0) != ia.pixel(1, 0), scaled());
    QCOMPARE(qRed(ia.pixel(1, 0)), 255);
    // Slice b lies right of a on either sheet, all blue.
    QCOMPARE(ib.pixel(0, 0), qRgb(0, 0, 255));
    QCOMPARE(ib.pixel(ib.width() - 1, ib.height() - 1), qRgb(0, 0, 255));
}

int main(int argc, char *argv[])
{
    // What a host sets before its QApplication (see the README), but for
    // the rounding policy: the offscreen screen reports 100 dpi, which Qt's
    // default rounding counts as 100 % and pass-through as 104 %, and the
    // runs are meant to be exactly 100, 125, 150 and 200 %.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QApplication app(argc, argv);
    tst_HighDpi test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_highdpi.moc"
