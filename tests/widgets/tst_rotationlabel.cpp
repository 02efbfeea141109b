#include <Orvane/orvanewidgets.h>

#include <QApplication>
#include <QImage>
#include <QMutex>
#include <QPainter>
#include <QPointer>
#include <QVariantAnimation>
#include <QtTest>

#include <climits>

// Qt's object hooks (exported by QtCore for tools) let the test reach the
// animation the label makes for itself, and drive its current time.
extern quintptr qtHookData[];

namespace {

enum HookIndex { AddQObject = 3, RemoveQObject = 4 };
using ObjectHook = void (*)(QObject *);

QMutex liveMutex;
QList<QObject *> liveObjects;
ObjectHook chainedAdd = nullptr;
ObjectHook chainedRemove = nullptr;

void noteAdded(QObject *object)
{
    {
        QMutexLocker lock(&liveMutex);
        liveObjects.append(object);
    }
    if (chainedAdd)
        chainedAdd(object);
}

void noteRemoved(QObject *object)
{
    {
        QMutexLocker lock(&liveMutex);
        liveObjects.removeOne(object);
    }
    if (chainedRemove)
        chainedRemove(object);
}

// The animations alive now, oldest first.
QList<QVariantAnimation *> liveAnimations()
{
    QMutexLocker lock(&liveMutex);
    QList<QVariantAnimation *> found;
    for (QObject *object : qAsConst(liveObjects))
        if (auto *animation = qobject_cast<QVariantAnimation *>(object))
            found.append(animation);
    return found;
}

// The one animation alive, or null when there is none or more than one.
QVariantAnimation *theAnimation()
{
    const QList<QVariantAnimation *> found = liveAnimations();
    return found.size() == 1 ? found.first() : nullptr;
}

const QColor sourceBlue(0, 0, 255);
const QColor markerRed(255, 0, 0);

// An opaque blue square with a red mark at the middle of its top edge, so
// that the angle of a frame can be read from where the mark went.
QPixmap markedPicture(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(sourceBlue);
    QPainter painter(&image);
    painter.fillRect(QRect(width * 3 / 8, 0, width / 4, height / 4), markerRed);
    painter.end();
    return QPixmap::fromImage(image);
}

QImage shownImage(const QLabel &label)
{
    return label.pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_ARGB32);
}

bool isColour(QRgb pixel, const QColor &colour)
{
    const int tolerance = 40;
    return qAlpha(pixel) > 255 - tolerance && qAbs(qRed(pixel) - colour.red()) < tolerance
        && qAbs(qGreen(pixel) - colour.green()) < tolerance && qAbs(qBlue(pixel) - colour.blue()) < tolerance;
}

bool isTransparent(QRgb pixel)
{
    return qAlpha(pixel) < 10;
}

// Where the mark of a 64-pixel picture is after a number of quarter turns
// clockwise: top, right, bottom, left.
const QPoint markPlaces[4] = {QPoint(32, 8), QPoint(55, 32), QPoint(32, 55), QPoint(8, 32)};

// Empty when the mark is in place `quarter` and the other three places are
// blue; else what was found.
QString checkMark(const QImage &frame, int quarter)
{
    for (int place = 0; place < 4; ++place) {
        const QRgb pixel = frame.pixel(markPlaces[place]);
        const QColor expected = place == quarter % 4 ? markerRed : sourceBlue;
        if (!isColour(pixel, expected))
            return QStringLiteral("place %1 has #%2, expected %3")
                .arg(place)
                .arg(pixel, 8, 16, QLatin1Char('0'))
                .arg(expected.name());
    }
    return QString();
}

// Sets `picture` on the label, starts the spin and returns the animation.
QVariantAnimation *startSpin(Orvane::RotationLabel &label, const QPixmap &picture, int duration = 1000)
{
    label.setPixmap(picture);
    label.startRotating(duration);
    return theAnimation();
}

bool cornersCut(const QImage &frame)
{
    const int right = frame.width() - 1;
    const int bottom = frame.height() - 1;
    return isTransparent(frame.pixel(0, 0)) && isTransparent(frame.pixel(right, 0))
        && isTransparent(frame.pixel(0, bottom)) && isTransparent(frame.pixel(right, bottom));
}

} // namespace

class tst_RotationLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void classAndConstructor();
    void startMakesEndlessAnimation();
    void turnsOncePerDurationClockwise_data();
    void turnsOncePerDurationClockwise();
    void keepsTurningInRealTime();
    void squareAt45DegreesHasCornersCut_data();
    void squareAt45DegreesHasCornersCut();
    void oblongFrameKeepsSourceSize_data();
    void oblongFrameKeepsSourceSize();
    void stopWithoutStartDoesNothing();
    void stopKeepsLastFrame();
    void restartWhileSpinningTakesShownFrame();
    void restartAfterStopTakesShownFrame();
    void startWithoutPixmapDrawsNothing();
    void badDurationDoesNothing_data();
    void badDurationDoesNothing();
    void destructorDeletesAnimation();
    void framesKeepDevicePixelRatio();
};

void tst_RotationLabel::initTestCase()
{
    chainedAdd = reinterpret_cast<ObjectHook>(qtHookData[AddQObject]);
    chainedRemove = reinterpret_cast<ObjectHook>(qtHookData[RemoveQObject]);
    qtHookData[AddQObject] = reinterpret_cast<quintptr>(&noteAdded);
    qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(&noteRemoved);
}

void tst_RotationLabel::cleanupTestCase()
{
    qtHookData[AddQObject] = reinterpret_cast<quintptr>(chainedAdd);
    qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(chainedRemove);
}

void tst_RotationLabel::cleanup()
{
    QVERIFY(liveAnimations().isEmpty());
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_RotationLabel::classAndConstructor()
{
    Orvane::RotationLabel label;
    QCOMPARE(label.metaObject()->className(), "Orvane::RotationLabel");
    QVERIFY(qobject_cast<QLabel *>(&label));
    QVERIFY(!label.parent());
    QCOMPARE(label.windowFlags(), QLabel().windowFlags());
    QVERIFY(label.pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(liveAnimations().isEmpty());
}

void tst_RotationLabel::startMakesEndlessAnimation()
{
    Orvane::RotationLabel label;
    QVariantAnimation *animation = startSpin(label, markedPicture(64, 64));
    QVERIFY(animation);
    QVERIFY(!animation->parent());
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
    QCOMPARE(animation->duration(), 1000);
    QCOMPARE(animation->loopCount(), -1);
    QCOMPARE(animation->startValue().userType(), int(QMetaType::Float));
    QCOMPARE(animation->endValue().userType(), int(QMetaType::Float));
    QCOMPARE(animation->startValue().toFloat(), 0.0f);
    QCOMPARE(animation->endValue().toFloat(), 360.0f);
    label.stopRotating();
}

void tst_RotationLabel::turnsOncePerDurationClockwise_data()
{
    QTest::addColumn<int>("duration");
    QTest::addColumn<int>("time");
    QTest::addColumn<int>("quarters");
    QTest::newRow("start") << 1000 << 0 << 0;
    QTest::newRow("quarter second") << 1000 << 250 << 1;
    QTest::newRow("half second") << 1000 << 500 << 2;
    QTest::newRow("three quarters") << 1000 << 750 << 3;
    QTest::newRow("one second, second turn") << 1000 << 1000 << 0;
    QTest::newRow("second turn, quarter") << 1000 << 1250 << 1;
    QTest::newRow("eleventh turn, half") << 1000 << 10500 << 2;
    QTest::newRow("two-second turn, half second") << 2000 << 500 << 1;
    QTest::newRow("two-second turn, one second") << 2000 << 1000 << 2;
}

void tst_RotationLabel::turnsOncePerDurationClockwise()
{
    QFETCH(int, duration);
    QFETCH(int, time);
    QFETCH(int, quarters);
    Orvane::RotationLabel label;
    label.setPixmap(markedPicture(64, 64));
    QVERIFY(checkMark(shownImage(label), 0).isEmpty());
    label.startRotating(duration);
    QVariantAnimation *animation = theAnimation();
    QVERIFY(animation);

    // Visit another angle first, so that every row draws a fresh frame.
    animation->setCurrentTime(time + duration / 8);
    animation->setCurrentTime(time);
    QCOMPARE(animation->currentValue().toReal(), 90.0 * quarters);
    const QImage frame = shownImage(label);
    QCOMPARE(frame.size(), QSize(64, 64));
    const QString problem = checkMark(frame, quarters);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
    label.stopRotating();
}

void tst_RotationLabel::keepsTurningInRealTime()
{
    Orvane::RotationLabel label;
    label.setPixmap(markedPicture(64, 64));
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    const qint64 upright = label.pixmap(Qt::ReturnByValue).cacheKey();
    label.startRotating(200);
    QPointer<QVariantAnimation> animation = theAnimation();
    QVERIFY(animation);
    QTRY_VERIFY(label.pixmap(Qt::ReturnByValue).cacheKey() != upright);
    // Several turns go by without the animation stopping.
    QTRY_VERIFY_WITH_TIMEOUT(animation && animation->currentLoop() >= 2, 10000);
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
    QCOMPARE(label.pixmap(Qt::ReturnByValue).size(), QSize(64, 64));
    label.stopRotating();
    QVERIFY(!animation);
}

void tst_RotationLabel::squareAt45DegreesHasCornersCut_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("32") << 32;
    QTest::newRow("64") << 64;
    QTest::newRow("65, odd") << 65;
    QTest::newRow("128") << 128;
}

void tst_RotationLabel::squareAt45DegreesHasCornersCut()
{
    QFETCH(int, size);
    Orvane::RotationLabel label;
    const QPixmap picture = markedPicture(size, size);
    QVERIFY(!cornersCut(picture.toImage().convertToFormat(QImage::Format_ARGB32)));
    QVariantAnimation *animation = startSpin(label, picture);
    QVERIFY(animation);
    animation->setCurrentTime(125);
    QCOMPARE(animation->currentValue().toReal(), 45.0);

    const QImage frame = shownImage(label);
    QCOMPARE(frame.size(), QSize(size, size));
    QVERIFY(cornersCut(frame));
    const int middle = size / 2;
    QVERIFY(isColour(frame.pixel(middle, middle), sourceBlue));
    // Centred: the turned square's tips touch the frame's four edges at
    // their middles, and the cut corners are equally deep on either side.
    int left = 0;
    while (left < size && isTransparent(frame.pixel(left, size / 8)))
        ++left;
    int right = size - 1;
    while (right >= 0 && isTransparent(frame.pixel(right, size / 8)))
        --right;
    QVERIFY(left > 0);
    QVERIFY2(qAbs(left - (size - 1 - right)) <= 1, qPrintable(QStringLiteral("%1 %2").arg(left).arg(right)));
    int top = 0;
    while (top < size && isTransparent(frame.pixel(size / 8, top)))
        ++top;
    int bottom = size - 1;
    while (bottom >= 0 && isTransparent(frame.pixel(size / 8, bottom)))
        --bottom;
    QVERIFY(top > 0);
    QVERIFY2(qAbs(top - (size - 1 - bottom)) <= 1, qPrintable(QStringLiteral("%1 %2").arg(top).arg(bottom)));
    QVERIFY(!isTransparent(frame.pixel(middle, 0)));
    QVERIFY(!isTransparent(frame.pixel(0, middle)));
    QVERIFY(!isTransparent(frame.pixel(size - 1, middle)));
    QVERIFY(!isTransparent(frame.pixel(middle, size - 1)));
    label.stopRotating();
}

void tst_RotationLabel::oblongFrameKeepsSourceSize_data()
{
    QTest::addColumn<int>("time");
    QTest::newRow("30 degrees") << 83;
    QTest::newRow("45 degrees") << 125;
    QTest::newRow("90 degrees") << 250;
    QTest::newRow("135 degrees") << 375;
    QTest::newRow("180 degrees") << 500;
}

void tst_RotationLabel::oblongFrameKeepsSourceSize()
{
    QFETCH(int, time);
    Orvane::RotationLabel label;
    QVariantAnimation *animation = startSpin(label, markedPicture(80, 40));
    QVERIFY(animation);
    animation->setCurrentTime(time);
    const QImage frame = shownImage(label);
    QCOMPARE(frame.size(), QSize(80, 40));
    QVERIFY(isColour(frame.pixel(40, 20), sourceBlue));
    label.stopRotating();
}

void tst_RotationLabel::stopWithoutStartDoesNothing()
{
    Orvane::RotationLabel label;
    label.stopRotating();
    QVERIFY(label.pixmap(Qt::ReturnByValue).isNull());

    const QPixmap picture = markedPicture(64, 64);
    label.setPixmap(picture);
    label.stopRotating();
    label.stopRotating();
    QCOMPARE(label.pixmap(Qt::ReturnByValue).cacheKey(), picture.cacheKey());
    QVERIFY(liveAnimations().isEmpty());
}

void tst_RotationLabel::stopKeepsLastFrame()
{
    Orvane::RotationLabel label;
    label.setPixmap(markedPicture(64, 64));
    // A top-level window may be wider than the picture (Windows keeps room
    // for the title bar's buttons): centred, the picture's centre is the
    // widget's.
    label.setAlignment(Qt::AlignCenter);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    label.startRotating(1000);
    QPointer<QVariantAnimation> animation = theAnimation();
    QVERIFY(animation);
    animation->setCurrentTime(125);
    const QImage turned = shownImage(label);
    QVERIFY(cornersCut(turned));

    label.stopRotating();
    QVERIFY(!animation);
    QCOMPARE(shownImage(label), turned);
    QTest::qWait(100);
    QCOMPARE(shownImage(label), turned);
    // The widget draws the turned frame too: its corners show the background.
    const QImage drawn = label.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    const QPoint centre = drawn.rect().center();
    QVERIFY(isColour(drawn.pixel(centre), sourceBlue));
    QVERIFY(!isColour(drawn.pixel(centre - QPoint(30, 30)), sourceBlue));
}

void tst_RotationLabel::restartWhileSpinningTakesShownFrame()
{
    Orvane::RotationLabel label;
    QPointer<QVariantAnimation> first = startSpin(label, markedPicture(64, 64));
    QVERIFY(first);
    first->setCurrentTime(125);
    const QImage turned = shownImage(label);

    label.startRotating(1000);
    QVERIFY(!first);
    QVariantAnimation *second = theAnimation();
    QVERIFY(second);
    QCOMPARE(second->state(), QAbstractAnimation::Running);
    QCOMPARE(second->currentTime(), 0);
    QCOMPARE(second->currentValue().toReal(), 0.0);
    QCOMPARE(shownImage(label), turned);

    // A quarter turn on from the start is 45 degrees from the turned frame:
    // the mark points right, and the corners were cut twice.
    second->setCurrentTime(125);
    const QImage frame = shownImage(label);
    QCOMPARE(frame.size(), QSize(64, 64));
    const QString problem = checkMark(frame, 1);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QVERIFY(cornersCut(frame));
    label.stopRotating();
}

void tst_RotationLabel::restartAfterStopTakesShownFrame()
{
    Orvane::RotationLabel label;
    label.setPixmap(markedPicture(64, 64));
    label.startRotating(1000);
    theAnimation()->setCurrentTime(125);
    label.stopRotating();
    const QImage turned = shownImage(label);

    label.startRotating(1000);
    QVariantAnimation *animation = theAnimation();
    QVERIFY(animation);
    QCOMPARE(shownImage(label), turned);
    animation->setCurrentTime(125);
    const QImage frame = shownImage(label);
    const QString problem = checkMark(frame, 1);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QVERIFY(cornersCut(frame));

    // Setting the upright picture again gives a plain quarter turn, whose
    // corners are whole.
    label.stopRotating();
    label.setPixmap(markedPicture(64, 64));
    label.startRotating(1000);
    theAnimation()->setCurrentTime(250);
    QVERIFY(checkMark(shownImage(label), 1).isEmpty());
    QVERIFY(!cornersCut(shownImage(label)));
    label.stopRotating();
}

void tst_RotationLabel::startWithoutPixmapDrawsNothing()
{
    Orvane::RotationLabel label;
    label.setText(QStringLiteral("Busy"));
    label.startRotating(1000);
    QPointer<QVariantAnimation> animation = theAnimation();
    QVERIFY(animation);
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
    animation->setCurrentTime(125);
    animation->setCurrentTime(600);
    QVERIFY(label.pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(label.text(), QStringLiteral("Busy"));
    label.stopRotating();
    QVERIFY(!animation);
    QCOMPARE(label.text(), QStringLiteral("Busy"));
}

void tst_RotationLabel::badDurationDoesNothing_data()
{
    QTest::addColumn<int>("duration");
    QTest::newRow("zero") << 0;
    QTest::newRow("minus one") << -1;
    QTest::newRow("most negative") << INT_MIN;
}

void tst_RotationLabel::badDurationDoesNothing()
{
    QFETCH(int, duration);
    Orvane::RotationLabel label;
    const QPixmap picture = markedPicture(64, 64);
    label.setPixmap(picture);
    label.startRotating(duration);
    QVERIFY(liveAnimations().isEmpty());
    QCOMPARE(label.pixmap(Qt::ReturnByValue).cacheKey(), picture.cacheKey());

    // A spin already running goes on with its own source.
    label.startRotating(1000);
    QVariantAnimation *animation = theAnimation();
    QVERIFY(animation);
    animation->setCurrentTime(125);
    label.startRotating(duration);
    QCOMPARE(theAnimation(), animation);
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
    animation->setCurrentTime(250);
    QVERIFY(checkMark(shownImage(label), 1).isEmpty());
    label.stopRotating();
}

void tst_RotationLabel::destructorDeletesAnimation()
{
    auto *label = new Orvane::RotationLabel;
    label->setPixmap(markedPicture(32, 32));
    label->startRotating(500);
    QPointer<QVariantAnimation> animation = theAnimation();
    QVERIFY(animation);
    delete label;
    QVERIFY(!animation);
}

void tst_RotationLabel::framesKeepDevicePixelRatio()
{
    Orvane::RotationLabel label;
    QPixmap picture = markedPicture(64, 64);
    picture.setDevicePixelRatio(2.0);
    label.setPixmap(picture);
    label.startRotating(1000);
    theAnimation()->setCurrentTime(125);
    const QPixmap frame = label.pixmap(Qt::ReturnByValue);
    QCOMPARE(frame.size(), QSize(64, 64));
    QCOMPARE(frame.devicePixelRatio(), 2.0);
    label.stopRotating();
}

QTEST_MAIN(tst_RotationLabel)
#include "tst_rotationlabel.moc"
