// Keeping a centred window on the screens: the rule's position stays when it
// lies wholly on one screen; otherwise the window moves inside the available
// geometry of the screen that holds the anchor (the main window's centre).

#include <Orvane/helpers.h>
#include <Orvane/omessagebox.h>

#include "core/helpers_p.h"

#include <QApplication>
#include <QCursor>
#include <QMainWindow>
#include <QScreen>
#include <QtTest>

#include <memory>

using Orvane::ScreenArea;

Q_DECLARE_METATYPE(QVector<ScreenArea>)

namespace {

// Two 1920x1080 screens side by side, each with a 40-pixel panel at the
// bottom.
QVector<ScreenArea> twoScreens()
{
    return {{QRect(0, 0, 1920, 1080), QRect(0, 0, 1920, 1040)},
            {QRect(1920, 0, 1920, 1080), QRect(1920, 0, 1920, 1040)}};
}

} // namespace

class tst_ScreenFit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void keepOnScreens_data();
    void keepOnScreens();
    void moveToCenterKeepsWindowOnScreen();
    void moveToCenterKeepsRulePosition();
    void messageBoxWithoutMainWindowOnPointerScreen();
};

void tst_ScreenFit::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_ScreenFit::keepOnScreens_data()
{
    QTest::addColumn<QVector<ScreenArea>>("screens");
    QTest::addColumn<QRect>("window");
    QTest::addColumn<QPoint>("anchor");
    QTest::addColumn<QRect>("expected");

    const QVector<ScreenArea> two = twoScreens();
    QTest::newRow("wholly on the first screen stays") << two << QRect(411, 320, 480, 200) << QPoint(650, 420)
                                                        << QRect(411, 320, 480, 200);
    QTest::newRow("wholly on the second screen stays") << two << QRect(2300, 500, 480, 200) << QPoint(2540, 600)
                                                         << QRect(2300, 500, 480, 200);
    // Over the panel, yet wholly on the screen: the rule holds.
    QTest::newRow("over the panel stays") << two << QRect(100, 1000, 300, 80) << QPoint(250, 1040)
                                          << QRect(100, 1000, 300, 80);
    QTest::newRow("across both screens, anchor on the second")
        << two << QRect(1800, 300, 480, 200) << QPoint(2040, 400) << QRect(1920, 300, 480, 200);
    QTest::newRow("across both screens, anchor on the first")
        << two << QRect(1800, 300, 480, 200) << QPoint(1900, 400) << QRect(1440, 300, 480, 200);
    QTest::newRow("off the right edge") << two << QRect(3700, 100, 480, 200) << QPoint(3800, 200)
                                        << QRect(3360, 100, 480, 200);
    QTest::newRow("above the top") << two << QRect(500, -50, 480, 200) << QPoint(740, 50)
                                   << QRect(500, 0, 480, 200);
    QTest::newRow("below into the panel") << two << QRect(2000, 1000, 480, 200) << QPoint(2240, 1000)
                                          << QRect(2000, 840, 480, 200);
    QTest::newRow("left of everything, anchor outside") << two << QRect(-300, 100, 480, 200)
                                                         << QPoint(-100, 200) << QRect(0, 100, 480, 200);
    QTest::newRow("larger than the screen keeps its top-left inside")
        << two << QRect(1900, -10, 2000, 1200) << QPoint(2500, 500) << QRect(1920, 0, 2000, 1200);
    QTest::newRow("no screens leaves it") << QVector<ScreenArea>() << QRect(-300, 100, 480, 200) << QPoint(0, 0)
                                          << QRect(-300, 100, 480, 200);
}

void tst_ScreenFit::keepOnScreens()
{
    QFETCH(QVector<ScreenArea>, screens);
    QFETCH(QRect, window);
    QFETCH(QPoint, anchor);
    QFETCH(QRect, expected);
    QCOMPARE(Orvane::keepOnScreens(window, screens, anchor), expected);
}

void tst_ScreenFit::moveToCenterKeepsWindowOnScreen()
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QMainWindow mainWindow;
    mainWindow.setGeometry(screen.right() - 100, screen.top() + 100, 200, 150);
    QWidget dialog;
    dialog.resize(400, 300);
    Orvane::moveToCenter(&dialog, nullptr);
    // The rule would put it 100 pixels past the right edge.
    QVERIFY(screen.contains(QRect(dialog.pos(), dialog.size())));
    QCOMPARE(dialog.x() + dialog.width() - 1, QGuiApplication::primaryScreen()->availableGeometry().right());
}

void tst_ScreenFit::moveToCenterKeepsRulePosition()
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QMainWindow mainWindow;
    mainWindow.setGeometry(screen.left() + 100, screen.top() + 100, 500, 400);
    QWidget dialog;
    dialog.resize(300, 200);
    Orvane::moveToCenter(&dialog, nullptr);
    QCOMPARE(dialog.pos(), mainWindow.mapToGlobal(QPoint(100, 100)));
}

void tst_ScreenFit::messageBoxWithoutMainWindowOnPointerScreen()
{
    QScreen *screen = QGuiApplication::primaryScreen();
    QCursor::setPos(screen->geometry().center() + QPoint(10, 10));
    std::unique_ptr<Orvane::OMessageBox> box(new Orvane::OMessageBox(Orvane::Success, {QStringLiteral("OK")},
                                                                     QStringLiteral("Saved.")));
    box->move(-500, -500);
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    const QRect placed(box->pos(), box->size());
    QVERIFY(screen->availableGeometry().contains(placed));
    QVERIFY(qAbs(placed.center().x() - screen->availableGeometry().center().x()) <= 1);
    QVERIFY(qAbs(placed.center().y() - screen->availableGeometry().center().y()) <= 1);
}

QTEST_MAIN(tst_ScreenFit)
#include "tst_screenfit.moc"
