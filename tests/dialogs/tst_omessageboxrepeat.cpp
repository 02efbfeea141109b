// Later message boxes reuse what earlier ones made (the recoloured icons, the
// blurred shadows, Qt's own font and style caches). This test holds every
// later box to the pixels of the process's very first, cold box of its kind:
// boxes are grabbed first in a fresh process, then again after many boxes,
// after a skin switch and back, and after the shared shadows were dropped.
// It also holds closed boxes to leaving nothing of theirs behind.

#include <Orvane/dialogskinstyle.h>
#include <Orvane/omessagebox.h>

#include "widgets/cachedshadoweffect_p.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QMutex>
#include <QSet>
#include <QtTest>

#include <tuple>
#include <utility>

// Qt's object hooks (exported by QtCore for tools) tell the test of every
// QObject made and destroyed, widgets or not.
extern quintptr qtHookData[];

using Orvane::OMessageBox;

namespace {

enum Kind { Note, Full };

enum HookIndex { AddQObject = 3, RemoveQObject = 4 };
using ObjectHook = void (*)(QObject *);

// The QObjects made since the recorder was switched on and not destroyed yet.
QMutex madeMutex;
QSet<QObject *> madeAndAlive;
bool recording = false;
int madeCount = 0;
ObjectHook earlierAdd = nullptr;
ObjectHook earlierRemove = nullptr;

void recordMade(QObject *object)
{
    {
        QMutexLocker lock(&madeMutex);
        if (recording) {
            madeAndAlive.insert(object);
            ++madeCount;
        }
    }
    if (earlierAdd)
        earlierAdd(object);
}

void recordDestroyed(QObject *object)
{
    {
        QMutexLocker lock(&madeMutex);
        madeAndAlive.remove(object);
    }
    if (earlierRemove)
        earlierRemove(object);
}

// Sets Qt's object hooks; returns the ones set before.
std::pair<ObjectHook, ObjectHook> setObjectHooks(ObjectHook added, ObjectHook removed)
{
    const std::pair<ObjectHook, ObjectHook> earlier(reinterpret_cast<ObjectHook>(qtHookData[AddQObject]),
                                                    reinterpret_cast<ObjectHook>(qtHookData[RemoveQObject]));
    qtHookData[AddQObject] = reinterpret_cast<quintptr>(added);
    qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(removed);
    return earlier;
}

OMessageBox *makeBox(Kind kind)
{
    if (kind == Note)
        return new OMessageBox(Orvane::Success, QStringList(QStringLiteral("OK")), QStringLiteral("The file was saved."));
    return new OMessageBox(Orvane::Attention,
                           {QStringLiteral("Cancel"), QStringLiteral("Remind me later"), QStringLiteral("Update")},
                           QStringLiteral("Version 2.4 is ready to install. The application restarts when the update "
                                          "is done."),
                           QStringLiteral("An update is available"), -1, QStringLiteral("Don't ask again"),
                           [](bool) {});
}

// A box of `kind` in the current skin, shown, painted and grabbed, then
// closed (it deletes itself).
QImage grabBox(Kind kind)
{
    OMessageBox *box = makeBox(kind);
    box->show();
    if (!QTest::qWaitForWindowExposed(box))
        return QImage();
    QImage image = box->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    box->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return image;
}

// Some boxes of every kind and skin in between, each painted once.
void churn(int rounds)
{
    for (int i = 0; i < rounds; ++i) {
        for (int skin : {2, 0, 3}) {
            Orvane::setCurrentDialogSkin(skin);
            for (Kind kind : {Note, Full}) {
                OMessageBox *box = makeBox(kind);
                box->show();
                QCoreApplication::processEvents();
                box->close();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        }
    }
}

// The first pixel where two grabs differ, for the failure message.
QString firstDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return QStringLiteral("sizes differ: %1x%2 and %3x%4").arg(a.width()).arg(a.height()).arg(b.width()).arg(b.height());
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                return QStringLiteral("pixel (%1, %2): #%3 and #%4")
                    .arg(x)
                    .arg(y)
                    .arg(a.pixel(x, y), 8, 16, QLatin1Char('0'))
                    .arg(b.pixel(x, y), 8, 16, QLatin1Char('0'));
    return QStringLiteral("none");
}

} // namespace

class tst_OMessageBoxRepeat : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void laterBoxesMatchTheFirst();
    void closedBoxesLeaveNothingBehind();
    void cleanup();
};

void tst_OMessageBoxRepeat::initTestCase()
{
    std::tie(earlierAdd, earlierRemove) = setObjectHooks(&recordMade, &recordDestroyed);
}

void tst_OMessageBoxRepeat::cleanupTestCase()
{
    setObjectHooks(earlierAdd, earlierRemove);
}

void tst_OMessageBoxRepeat::cleanup()
{
    Orvane::setCurrentDialogSkin(2);
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_OMessageBoxRepeat::laterBoxesMatchTheFirst()
{
    // The cold boxes: nothing in this process has made a box before.
    struct Cold
    {
        int skin;
        Kind kind;
        QImage image;
    };
    QVector<Cold> cold;
    for (int skin : {2, 0}) {
        Orvane::setCurrentDialogSkin(skin);
        for (Kind kind : {Note, Full})
            cold.append({skin, kind, grabBox(kind)});
    }
    for (const Cold &c : cold) {
        QVERIFY(!c.image.isNull());
        // A real picture: the panel is opaque at the centre, the band is not.
        QCOMPARE(qAlpha(c.image.pixel(c.image.width() / 2, c.image.height() / 2)), 255);
        QVERIFY(qAlpha(c.image.pixel(0, 0)) < 255);
    }
    // The dark and light boxes differ, so the comparison below can fail.
    QVERIFY(cold.at(0).image != cold.at(2).image);

    // The tenth box of each kind, other skins in between, then the same after
    // the shared shadows were dropped.
    for (int pass = 0; pass < 2; ++pass) {
        churn(3);
        if (pass == 1)
            Orvane::CachedShadowEffect::dropSharedShadows();
        for (const Cold &c : cold) {
            Orvane::setCurrentDialogSkin(c.skin);
            const QImage warm = grabBox(c.kind);
            const QString name = QStringLiteral("skin %1, %2, pass %3")
                                     .arg(c.skin)
                                     .arg(c.kind == Note ? QStringLiteral("note") : QStringLiteral("full"))
                                     .arg(pass);
            if (warm != c.image) {
                c.image.save(QDir::temp().filePath(QStringLiteral("orvane-repeat-cold.png")), "PNG");
                warm.save(QDir::temp().filePath(QStringLiteral("orvane-repeat-warm.png")), "PNG");
            }
            QVERIFY2(warm == c.image, qPrintable(name + QStringLiteral(": ") + firstDifference(c.image, warm)));
        }
    }
}

void tst_OMessageBoxRepeat::closedBoxesLeaveNothingBehind()
{
    // What the first boxes of each kind and skin make for all later ones
    // (shared shadows, tinted icons, Qt's style objects) is made here.
    churn(2);
    const int widgetsBefore = QApplication::allWidgets().size();
    {
        QMutexLocker lock(&madeMutex);
        madeAndAlive.clear();
        madeCount = 0;
        recording = true;
    }
    churn(50); // 300 boxes, each shown, painted and closed
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QMutexLocker lock(&madeMutex);
    recording = false;
    // The hooks saw the boxes: each is a dialog of more than ten objects.
    QVERIFY2(madeCount > 300 * 10, qPrintable(QString::number(madeCount)));
    QStringList left;
    for (QObject *object : qAsConst(madeAndAlive))
        left.append(QString::fromLatin1(object->metaObject()->className()) + QLatin1Char(' ') + object->objectName());
    QVERIFY2(left.isEmpty(), qPrintable(QStringLiteral("still alive after 300 boxes: ") + left.join(QStringLiteral(", "))));
    QCOMPARE(QApplication::allWidgets().size(), widgetsBefore);
}

QTEST_MAIN(tst_OMessageBoxRepeat)
#include "tst_omessageboxrepeat.moc"
