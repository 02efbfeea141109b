// The band around the rounded panel on a real X server, with and without a
// compositing manager: the root window's pixels are read back around the
// bar dialog and the message box, shown over a blue main window. With a
// compositor the band shows the main window (blended with the message box's
// shadow); without one the panel is opaque, square and nothing black shows.
// ORVANE_EXPECT_COMPOSITOR (0 or 1) says which of the two the run set up;
// each case also leaves a screenshot in ORVANE_DESKTOP_SHOTS.

#include "desktopinput.h"

#include <Orvane/bardialog.h>
#include <Orvane/dialogskinstyle.h>
#include <Orvane/omessagebox.h>

#include <QDir>
#include <QLabel>
#include <QMainWindow>
#include <QScopedPointer>
#include <QTest>
#include <QVBoxLayout>

using namespace Orvane;

namespace {

const QColor hostColour(0x3A, 0x7B, 0xD5);

// The main window's blue, possibly darkened by the shadow's grey.
bool isHost(QRgb p)
{
    return qBlue(p) - qRed(p) >= 60 && qBlue(p) >= 120;
}

bool isBlack(QRgb p)
{
    return qMax(qRed(p), qMax(qGreen(p), qBlue(p))) <= 8;
}

QString describe(QRgb p)
{
    return QColor(p).name();
}

} // namespace

class DesktopCompositorTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void bandAroundPanel_data();
    void bandAroundPanel();

private:
    bool m_compositor = false;
    QMainWindow *m_main = nullptr;
};

void DesktopCompositorTest::initTestCase()
{
    QVERIFY2(DesktopInput::realInput(), "needs the X11 platform");
    const QByteArray expect = qgetenv("ORVANE_EXPECT_COMPOSITOR");
    QVERIFY2(expect == "0" || expect == "1", "set ORVANE_EXPECT_COMPOSITOR to 0 or 1");
    m_compositor = expect == "1";
    QTRY_COMPARE_WITH_TIMEOUT(DesktopInput::compositorRunning(), m_compositor, 5000);

    m_main = new QMainWindow;
    auto *central = new QLabel;
    central->setStyleSheet(QStringLiteral("QLabel{background:%1;}").arg(hostColour.name()));
    m_main->setCentralWidget(central);
    m_main->setGeometry(200, 120, 1200, 800);
    m_main->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_main));
}

void DesktopCompositorTest::cleanupTestCase()
{
    delete m_main;
}

void DesktopCompositorTest::bandAroundPanel_data()
{
    QTest::addColumn<bool>("messageBox");
    QTest::addColumn<int>("skin");
    QTest::newRow("bardialog-light") << false << 0;
    QTest::newRow("bardialog-dark") << false << 2;
    QTest::newRow("messagebox-light") << true << 0;
    QTest::newRow("messagebox-dark") << true << 2;
}

void DesktopCompositorTest::bandAroundPanel()
{
    QFETCH(bool, messageBox);
    QFETCH(int, skin);

    // Deleted on every way out, a failed check included, so that no
    // dialog stays on screen for the next case.
    QScopedPointer<BarDialog> dialog;
    if (messageBox) {
        setCurrentDialogSkin(skin);
        dialog.reset(new OMessageBox(Attention, {QStringLiteral("Later"), QStringLiteral("Clean up")},
                                 QStringLiteral("Only 2 GB are left on the system disk."),
                                 QStringLiteral("The disk is almost full"), -1,
                                 QStringLiteral("Do not ask again"), std::function<void(bool)>(), m_main));
    } else {
        dialog.reset(new BarDialog(m_main, skin));
        dialog->setWindowTitle(QStringLiteral("Settings"));
        auto *layout = dialog->makeVBoxLayout(dialog.data(), 20, 10);
        // The host's own text, in a colour that reads on the skin's panel.
        auto *text = new QLabel(QStringLiteral("The content area."));
        text->setStyleSheet(skin == 2 ? QStringLiteral("QLabel{color:#E3E3E3;}") : QString());
        layout->addWidget(text);
        dialog->resize(440, 280);
    }
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.data()));
    DesktopInput::settledOrigin(dialog.data());
    QTest::qWait(400); // painted, and composited when a compositor runs

    const QImage root = DesktopInput::grabRoot();
    QVERIFY(!root.isNull());
    const QRect outer = DesktopInput::serverGeometry(dialog.data());
    QWidget *bg = dialog->findChild<QWidget *>(QStringLiteral("bg"));
    QVERIFY(bg);
    const QRect panel(outer.topLeft() + bg->mapTo(dialog.data(), QPoint(0, 0)), bg->size());

    const QString dir = QString::fromLocal8Bit(qgetenv("ORVANE_DESKTOP_SHOTS"));
    if (!dir.isEmpty()) {
        QDir().mkpath(dir);
        const QString name = QStringLiteral("%1/%2-%3.png").arg(dir, QString::fromLatin1(QTest::currentDataTag()),
                                                                m_compositor ? QStringLiteral("compositor")
                                                                             : QStringLiteral("no-compositor"));
        QVERIFY(root.copy(outer.adjusted(-40, -40, 40, 40)).save(name));
    }

    // Just outside the window: the main window, whatever the mode.
    for (const QPoint &p : {QPoint(outer.center().x(), outer.top() - 2), QPoint(outer.center().x(), outer.bottom() + 2),
                            QPoint(outer.left() - 2, outer.center().y()), QPoint(outer.right() + 2, outer.center().y())})
        QVERIFY2(isHost(root.pixel(p)), qPrintable(describe(root.pixel(p))));

    int wrong = 0;
    QPoint firstWrong;
    if (m_compositor) {
        // The band between window edge and panel shows the main window.
        QVERIFY2(panel != outer, "no room for the shadow around the panel");
        for (int y = outer.top(); y <= outer.bottom(); ++y) {
            for (int x = outer.left(); x <= outer.right(); ++x) {
                if (panel.contains(x, y) || isHost(root.pixel(x, y)))
                    continue;
                if (!wrong++)
                    firstWrong = QPoint(x, y);
            }
        }
        QVERIFY2(wrong == 0, qPrintable(QStringLiteral("%1 band pixels are not the main window, first at (%2,%3): %4")
                                            .arg(wrong).arg(firstWrong.x()).arg(firstWrong.y())
                                            .arg(describe(root.pixel(firstWrong)))));
    } else {
        // No band: the outermost pixels of the window are the opaque
        // panel, corners included, and none is black.
        const QRect inner = outer.adjusted(6, 6, -6, -6);
        for (int y = outer.top(); y <= outer.bottom(); ++y) {
            for (int x = outer.left(); x <= outer.right(); ++x) {
                if (inner.contains(x, y) || !isBlack(root.pixel(x, y)))
                    continue;
                if (!wrong++)
                    firstWrong = QPoint(x, y);
            }
        }
        QVERIFY2(wrong == 0, qPrintable(QStringLiteral("%1 black pixels at the window's edge, first at (%2,%3)")
                                            .arg(wrong).arg(firstWrong.x()).arg(firstWrong.y())));
        for (const QPoint &corner : {outer.topLeft(), outer.topRight(), outer.bottomLeft(), outer.bottomRight()})
            QVERIFY2(!isHost(root.pixel(corner)), "a rounded corner lets the main window through");
    }
}

QTEST_MAIN(DesktopCompositorTest)
#include "desktop_compositor.moc"
