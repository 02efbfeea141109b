// The dialogs' answers to the windowing platform: the opaque panel used
// without a compositor, and the Wayland drag handed to the compositor. The
// platform's answer is forced through the library's internal hooks.

#include <Orvane/bardialog.h>
#include <Orvane/dialogskinstyle.h>
#include <Orvane/omessagebox.h>

#include "dialogs/dialogplatform_p.h"

#include <QApplication>
#include <QDir>
#include <QGraphicsEffect>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>
#include <QtTest>

#include <memory>

using Orvane::BarDialog;

namespace {

class Probe : public BarDialog
{
public:
    explicit Probe(int skin)
        : BarDialog(nullptr, skin)
    {
    }
    using BarDialog::barOverlay;
    using BarDialog::closeButton;
    using BarDialog::content;
};

QImage argb(const QPixmap &pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

bool near(const QColor &a, const QColor &b, int tolerance = 3)
{
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance
        && qAbs(a.blue() - b.blue()) <= tolerance && qAbs(a.alpha() - b.alpha()) <= tolerance;
}

QStringList objectNames(QWidget *root)
{
    QStringList names;
    for (QWidget *w : root->findChildren<QWidget *>())
        names << QString::fromLatin1(w->metaObject()->className()) + QLatin1Char('#') + w->objectName();
    names.sort();
    return names;
}

void showAt(QWidget *dialog, const QPoint &position)
{
    dialog->resize(320, 200);
    dialog->move(position);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
}

void save(const QImage &image, const QString &name)
{
    image.save(QDir::temp().filePath(QStringLiteral("orvane-%1.png").arg(name)), "PNG");
}

} // namespace

class tst_DialogPlatform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void offscreenComposites();
    void opaqueBarDialog_data();
    void opaqueBarDialog();
    void opaqueMessageBox_data();
    void opaqueMessageBox();
    void decidedPerDialog();
    void systemMoveOnFirstMoveOnly();
    void clickOnBarStaysClick();
    void deltaMoveCounted();
};

void tst_DialogPlatform::cleanup()
{
    Orvane::setTranslucencyOverride(-1);
    Orvane::setSystemMoveOverride(-1);
    Orvane::resetDragCounters();
    Orvane::setCurrentDialogSkin(2);
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_DialogPlatform::offscreenComposites()
{
    // The offscreen platform draws translucency itself, and does not hand
    // drags to a compositor.
    QVERIFY(Orvane::platformShowsTranslucency(nullptr));
    QVERIFY(!Orvane::platformUsesSystemMove());
    Probe dialog(2);
    QVERIFY(dialog.testAttribute(Qt::WA_TranslucentBackground));
}

void tst_DialogPlatform::opaqueBarDialog_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<QColor>("panel");
    QTest::addColumn<QColor>("border");
    QTest::newRow("dark") << 2 << QColor(0x2E, 0x2F, 0x30) << QColor(0x0F, 0x0F, 0x10);
    QTest::newRow("light") << 0 << QColor(Qt::white) << QColor(0xEE, 0xEE, 0xEE);
}

void tst_DialogPlatform::opaqueBarDialog()
{
    QFETCH(int, skin);
    QFETCH(QColor, panel);
    QFETCH(QColor, border);

    Probe translucent(skin);
    Orvane::setTranslucencyOverride(0);
    Probe dialog(skin);
    QVERIFY(!dialog.testAttribute(Qt::WA_TranslucentBackground));
    // The same widgets, by the same names.
    QCOMPARE(objectNames(&dialog), objectNames(&translucent));

    dialog.setWindowTitle(QStringLiteral("Settings"));
    dialog.resize(320, 200);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QImage grab = argb(dialog.grab());
    save(grab, QStringLiteral("bardialog-opaque-%1").arg(skin));

    // No band: the panel reaches the window's edge.
    const QPoint barOrigin = dialog.barOverlay->mapTo(&dialog, QPoint(0, 0));
    QCOMPARE(barOrigin, QPoint(0, 0));
    const QRect contentRect(dialog.content->mapTo(&dialog, QPoint(0, 0)), dialog.content->size());
    QCOMPARE(contentRect.bottomRight(), QPoint(dialog.width() - 1, dialog.height() - 1));

    // Square corners: each corner pixel is the opaque border, and every pixel
    // of the window is opaque.
    const int w = grab.width() - 1;
    const int h = grab.height() - 1;
    for (const QPoint &corner : {QPoint(0, 0), QPoint(w, 0), QPoint(0, h), QPoint(w, h)})
        QVERIFY2(near(grab.pixelColor(corner), border), qPrintable(grab.pixelColor(corner).name(QColor::HexArgb)));
    for (int y = 0; y <= h; ++y)
        for (int x = 0; x <= w; ++x)
            QVERIFY(qAlpha(grab.pixel(x, y)) == 255);
    // Just inside the border, at the corners too, lies the panel.
    QVERIFY(near(grab.pixelColor(1, h - 1), panel));
    QVERIFY(near(grab.pixelColor(w - 1, h - 1), panel));
    QVERIFY(near(grab.pixelColor(1, 1), panel));
    dialog.hide();
    translucent.hide();
}

void tst_DialogPlatform::opaqueMessageBox_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<QColor>("border");
    QTest::newRow("dark") << 2 << QColor(0x0F, 0x0F, 0x10);
    QTest::newRow("light") << 0 << QColor(0xEE, 0xEE, 0xEE);
}

void tst_DialogPlatform::opaqueMessageBox()
{
    QFETCH(int, skin);
    QFETCH(QColor, border);
    Orvane::setCurrentDialogSkin(skin);
    const QStringList buttons = {QStringLiteral("Cancel"), QStringLiteral("Update")};
    const QString text = QStringLiteral("Version 2.4 is ready to install.");
    const QString heading = QStringLiteral("An update is available");

    std::unique_ptr<Orvane::OMessageBox> translucent(
        new Orvane::OMessageBox(Orvane::Attention, buttons, text, heading, -1, QStringLiteral("Don't ask again")));
    QVERIFY(translucent->graphicsEffect());
    Orvane::setTranslucencyOverride(0);
    std::unique_ptr<Orvane::OMessageBox> box(
        new Orvane::OMessageBox(Orvane::Attention, buttons, text, heading, -1, QStringLiteral("Don't ask again")));
    QVERIFY(!box->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(!box->graphicsEffect()); // no drop shadow without a band
    QCOMPARE(objectNames(box.get()), objectNames(translucent.get()));

    box->setWindowTitle(QStringLiteral("Updates"));
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    const QImage grab = argb(box->grab());
    save(grab, QStringLiteral("omessagebox-opaque-%1").arg(skin));
    const int w = grab.width() - 1;
    const int h = grab.height() - 1;
    for (const QPoint &corner : {QPoint(0, 0), QPoint(w, 0), QPoint(0, h), QPoint(w, h)})
        QVERIFY2(near(grab.pixelColor(corner), border), qPrintable(grab.pixelColor(corner).name(QColor::HexArgb)));
    for (int x = 0; x <= w; ++x) {
        QVERIFY(qAlpha(grab.pixel(x, 0)) == 255);
        QVERIFY(qAlpha(grab.pixel(x, h)) == 255);
    }
    for (int y = 0; y <= h; ++y) {
        QVERIFY(qAlpha(grab.pixel(0, y)) == 255);
        QVERIFY(qAlpha(grab.pixel(w, y)) == 255);
    }

    // The translucent box keeps its band and shadow.
    translucent->setWindowTitle(QStringLiteral("Updates"));
    translucent->show();
    QVERIFY(QTest::qWaitForWindowExposed(translucent.get()));
    const QImage shadowed = argb(translucent->grab());
    save(shadowed, QStringLiteral("omessagebox-translucent-%1").arg(skin));
    QVERIFY(qAlpha(shadowed.pixel(0, 0)) < 255);
}

void tst_DialogPlatform::decidedPerDialog()
{
    // A dialog follows the state at its construction; later dialogs follow
    // a change.
    Orvane::setTranslucencyOverride(0);
    Probe before(2);
    Orvane::setTranslucencyOverride(1);
    Probe after(2);
    QVERIFY(!before.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(after.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(before.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QVERIFY(after.layout()->contentsMargins() != QMargins(0, 0, 0, 0));
}

void tst_DialogPlatform::systemMoveOnFirstMoveOnly()
{
    Orvane::setSystemMoveOverride(1);
    Probe dialog(2);
    showAt(&dialog, QPoint(200, 150));
    const QPoint start = dialog.pos();
    QWindow *window = dialog.windowHandle();
    const QPoint grip(dialog.barOverlay->mapTo(&dialog, QPoint(dialog.barOverlay->width() / 2, 10)));

    QTest::mousePress(window, Qt::LeftButton, Qt::KeyboardModifiers(), grip);
    QCOMPARE(Orvane::systemMoveCount(), 0); // not on the press
    QTest::mouseMove(window, grip + QPoint(15, -4));
    QCoreApplication::processEvents();
    QCOMPARE(Orvane::systemMoveCount(), 1);
    QTest::mouseMove(window, grip + QPoint(30, 8));
    QCoreApplication::processEvents();
    QCOMPARE(Orvane::systemMoveCount(), 1); // the compositor has the drag
    QTest::mouseRelease(window, Qt::LeftButton, Qt::KeyboardModifiers(), grip + QPoint(30, 8));
    // The client never places the window itself.
    QCOMPARE(Orvane::dragMoveCount(), 0);
    QCOMPARE(dialog.pos(), start);
    QVERIFY(!dialog.property("mousePressed").toBool());
}

void tst_DialogPlatform::clickOnBarStaysClick()
{
    Orvane::setSystemMoveOverride(1);
    Probe dialog(0);
    dialog.resize(320, 200);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QTest::mouseClick(dialog.closeButton, Qt::LeftButton);
    QCOMPARE(rejected.count(), 1);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QPoint grip(dialog.barOverlay->width() / 2, 10);
    QTest::mouseClick(dialog.barOverlay, Qt::LeftButton, Qt::KeyboardModifiers(), grip);
    QCOMPARE(Orvane::systemMoveCount(), 0);
    QCOMPARE(Orvane::dragMoveCount(), 0);
}

void tst_DialogPlatform::deltaMoveCounted()
{
    Orvane::setSystemMoveOverride(0);
    Probe dialog(2);
    showAt(&dialog, QPoint(200, 150));
    const QPoint start = dialog.pos();
    QWindow *window = dialog.windowHandle();
    // Global positions, mapped into the window as it is at each event.
    const QPoint grip = dialog.barOverlay->mapToGlobal(QPoint(dialog.barOverlay->width() / 2, 10));
    QTest::mousePress(window, Qt::LeftButton, Qt::KeyboardModifiers(), window->mapFromGlobal(grip));
    QTest::mouseMove(window, window->mapFromGlobal(grip + QPoint(15, -4)));
    QCoreApplication::processEvents();
    QTest::mouseRelease(window, Qt::LeftButton, Qt::KeyboardModifiers(), window->mapFromGlobal(grip + QPoint(15, -4)));
    QCOMPARE(Orvane::dragMoveCount(), 1);
    QCOMPARE(Orvane::systemMoveCount(), 0);
    QCOMPARE(dialog.pos(), start + QPoint(15, -4));
}

QTEST_MAIN(tst_DialogPlatform)
#include "tst_dialogplatform.moc"
