// Where dialogs open on two screens side by side (X.Org with Xinerama, each
// 1920x1080): over a main window on the second screen, inside one screen
// when centring would cut them, and under the pointer without a main window.
// Positions are read back from the X server.

#include "desktopinput.h"

#include <Orvane/bardialog.h>
#include <Orvane/omessagebox.h>

#include <QGuiApplication>
#include <QMainWindow>
#include <QPointer>
#include <QScopedPointer>
#include <QScreen>
#include <QTest>

#include <algorithm>

using namespace Orvane;

class DesktopScreensTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void dialogOpensOnMainWindowsScreen();
    void centringPartlyOffScreenMovesInside_data();
    void centringPartlyOffScreenMovesInside();
    void centringWhollyOnOneScreenStays();
    void messageBoxWithoutMainWindowFollowsPointer_data();
    void messageBoxWithoutMainWindowFollowsPointer();

private:
    QMainWindow *showMain(const QRect &geometry);
    QRect showDialog(BarDialog *dialog);

    QList<QScreen *> m_screens; // left to right
    QScopedPointer<QMainWindow> m_main;
};

void DesktopScreensTest::initTestCase()
{
    QVERIFY2(DesktopInput::realInput(), "needs the X11 platform");
    m_screens = QGuiApplication::screens();
    QCOMPARE(m_screens.size(), 2);
    std::sort(m_screens.begin(), m_screens.end(),
              [](QScreen *a, QScreen *b) { return a->geometry().x() < b->geometry().x(); });
    QCOMPARE(m_screens.at(0)->geometry(), QRect(0, 0, 1920, 1080));
    QCOMPARE(m_screens.at(1)->geometry(), QRect(1920, 0, 1920, 1080));
}

void DesktopScreensTest::cleanup()
{
    m_main.reset();
}

QMainWindow *DesktopScreensTest::showMain(const QRect &geometry)
{
    m_main.reset(new QMainWindow);
    m_main->setGeometry(geometry);
    m_main->show();
    if (!QTest::qWaitForWindowExposed(m_main.data()))
        return nullptr;
    DesktopInput::settledOrigin(m_main.data());
    return m_main.data();
}

QRect DesktopScreensTest::showDialog(BarDialog *dialog)
{
    dialog->show();
    if (!QTest::qWaitForWindowExposed(dialog))
        return QRect();
    DesktopInput::settledOrigin(dialog);
    return DesktopInput::serverGeometry(dialog);
}

void DesktopScreensTest::dialogOpensOnMainWindowsScreen()
{
    QVERIFY(showMain(QRect(1920 + 300, 200, 900, 600)));
    BarDialog dialog(m_main.data(), 0);
    dialog.resize(400, 260);
    const QRect placed = showDialog(&dialog);
    QVERIFY2(m_screens.at(1)->geometry().contains(placed),
             qPrintable(QStringLiteral("dialog at %1,%2").arg(placed.x()).arg(placed.y())));
}

void DesktopScreensTest::centringPartlyOffScreenMovesInside_data()
{
    QTest::addColumn<QRect>("mainGeometry");
    QTest::addColumn<int>("screen"); // the one holding the main window's centre
    // Centring on a small window in the top right corner of the second
    // screen sticks out above and to the right of every screen.
    QTest::newRow("off the right edge") << QRect(3840 - 320, 60, 300, 200) << 1;
    // A main window across the boundary, its centre on the first screen:
    // centring puts the dialog across both screens.
    QTest::newRow("across both screens") << QRect(1500, 300, 800, 400) << 0;
}

void DesktopScreensTest::centringPartlyOffScreenMovesInside()
{
    QFETCH(QRect, mainGeometry);
    QFETCH(int, screen);
    QVERIFY(showMain(mainGeometry));
    BarDialog dialog(m_main.data(), 0);
    dialog.resize(600, 400);
    const QRect placed = showDialog(&dialog);
    const QRect available = m_screens.at(screen)->availableGeometry();
    QVERIFY2(available.contains(placed),
             qPrintable(QStringLiteral("dialog at %1,%2 %3x%4 is not inside %5,%6 %7x%8")
                            .arg(placed.x()).arg(placed.y()).arg(placed.width()).arg(placed.height())
                            .arg(available.x()).arg(available.y()).arg(available.width()).arg(available.height())));
}

void DesktopScreensTest::centringWhollyOnOneScreenStays()
{
    QVERIFY(showMain(QRect(2200, 300, 800, 400)));
    BarDialog dialog(m_main.data(), 0);
    dialog.resize(400, 300);
    const QRect placed = showDialog(&dialog);
    const QPoint mainOrigin = DesktopInput::serverOrigin(m_main.data());
    QCOMPARE(placed.topLeft(), mainOrigin + QPoint((800 - 400) / 2, (400 - 300) / 2));
}

void DesktopScreensTest::messageBoxWithoutMainWindowFollowsPointer_data()
{
    QTest::addColumn<int>("screen");
    QTest::newRow("second screen") << 1;
    QTest::newRow("first screen") << 0;
}

void DesktopScreensTest::messageBoxWithoutMainWindowFollowsPointer()
{
    QFETCH(int, screen);
    const QRect available = m_screens.at(screen)->availableGeometry();
    DesktopInput::movePointer(available.topLeft() + QPoint(100, 100));
    QPointer<OMessageBox> box = new OMessageBox(Attention, {QStringLiteral("OK")}, QStringLiteral("Where am I?"));
    const QRect placed = showDialog(box);
    delete box.data();
    const QPoint offset = placed.center() - available.center();
    QVERIFY2(qAbs(offset.x()) <= 1 && qAbs(offset.y()) <= 1,
             qPrintable(QStringLiteral("centre %1,%2, screen centre %3,%4")
                            .arg(placed.center().x()).arg(placed.center().y())
                            .arg(available.center().x()).arg(available.center().y())));
}

QTEST_MAIN(DesktopScreensTest)
#include "desktop_screens.moc"
