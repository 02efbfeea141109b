// The bar dialog and the message box driven on a real desktop: drags by the
// bar, clicks on the buttons and the close button, and the keyboard. On X11
// the input is real (XTest) and positions are read back from the X server;
// on Wayland the drag must be handed to the compositor.

#include "desktopinput.h"

#include <Orvane/bardialog.h>
#include <Orvane/omessagebox.h>

#if __has_include("dialogs/dialogplatform_p.h")
#include "dialogs/dialogplatform_p.h"
#define HAVE_DRAG_COUNTERS 1
#endif

#include <QApplication>
#include <QMainWindow>
#include <QPointer>
#include <QScopedPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace Orvane;

namespace {

const QPoint dragDelta(150, 90);

bool onWayland()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

QPushButton *closeButtonOf(QWidget *dialog)
{
    const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
    for (QPushButton *b : buttons) {
        if (b->parentWidget() && b->parentWidget()->objectName() == QLatin1String("bar"))
            return b;
    }
    return nullptr;
}

QWidget *barOf(QWidget *dialog)
{
    QPushButton *close = closeButtonOf(dialog);
    return close ? close->parentWidget() : nullptr;
}

// The message box's own buttons, left to right.
QList<QPushButton *> buttonsOf(BarDialog *box)
{
    return box->contentWidget()->findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly);
}

// A point on the bar, left of the close button, in dialog coordinates.
QPoint gripOf(QWidget *dialog)
{
    QWidget *bar = barOf(dialog);
    return bar->mapTo(dialog, QPoint(40, bar->height() / 2));
}

QPoint centreOf(QWidget *dialog, QWidget *child)
{
    return child->mapTo(dialog, child->rect().center());
}

bool waitShown(QWidget *dialog)
{
    if (!QTest::qWaitForWindowExposed(dialog))
        return false;
    if (DesktopInput::realInput())
        DesktopInput::settledOrigin(dialog);
    return true;
}

} // namespace

class DesktopDialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void barDialogDragIsExactFromFirstDrag();
    void messageBoxDragIsExactFromFirstDrag();
    void dragInContentMovesNothing();
    void clickingNthButtonReturnsN();
    void closeButtonReturnsZero();
    void barDialogCloseButtonRejects();
    void escapeReturnsZero();
    void tabToButtonAndSpaceClicksIt();
    void returnOnFreshBoxDoesNotClose();

private:
    // Opens a message box with `buttons` through popupTips, lets `drive`
    // act on it once it is on screen, and returns popupTips' result. A box
    // still open after `drive` is closed with -1 so the test cannot hang.
    int runBox(const QStringList &buttons, const std::function<void(OMessageBox *)> &drive);
    void checkDrag(BarDialog *dialog);

    QMainWindow *m_main = nullptr;
};

void DesktopDialogsTest::initTestCase()
{
    qInfo("platform: %s, real input: %s", qPrintable(QGuiApplication::platformName()),
          DesktopInput::realInput() ? "XTest" : "QTest events");
    if (!onWayland())
        QVERIFY2(DesktopInput::realInput(), "no X connection for XTest");
    m_main = new QMainWindow;
    m_main->setStyleSheet(QStringLiteral("QMainWindow{background:#3A7BD5;}"));
    m_main->setGeometry(300, 150, 1000, 700);
    m_main->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_main));
}

void DesktopDialogsTest::cleanupTestCase()
{
    delete m_main;
}

void DesktopDialogsTest::checkDrag(BarDialog *dialog)
{
    const QPoint grip = gripOf(dialog);
    if (DesktopInput::realInput()) {
        const QPoint start = DesktopInput::serverOrigin(dialog);
        DesktopInput::drag(dialog, grip, dragDelta);
        const QPoint end = DesktopInput::settledOrigin(dialog);
        QCOMPARE(end - start, dragDelta);
        QTRY_COMPARE(dialog->pos(), end);
        return;
    }
#ifdef HAVE_DRAG_COUNTERS
    // A click on the bar stays a click; the first movement after a press
    // hands the window to the compositor, and nothing calls move().
    resetDragCounters();
    DesktopInput::click(dialog, grip);
    QCOMPARE(systemMoveCount(), 0);
    DesktopInput::drag(dialog, grip, dragDelta);
    QCOMPARE(systemMoveCount(), 1);
    QCOMPARE(dragMoveCount(), 0);
#else
    QFAIL("the library counts no drags: cannot tell whether the Wayland path calls move()");
#endif
}

void DesktopDialogsTest::barDialogDragIsExactFromFirstDrag()
{
    for (int i = 0; i < 20; ++i) {
        auto *dialog = new BarDialog(m_main, i % 2 ? 2 : 0);
        dialog->setWindowTitle(QStringLiteral("Drag %1").arg(i + 1));
        dialog->resize(420, 260);
        dialog->show();
        QVERIFY(waitShown(dialog));
        checkDrag(dialog);
        delete dialog;
        if (QTest::currentTestFailed())
            qWarning("bar dialog %d of 20", i + 1);
        QVERIFY(!QTest::currentTestFailed());
    }
}

void DesktopDialogsTest::messageBoxDragIsExactFromFirstDrag()
{
    for (int i = 0; i < 20; ++i) {
        QPointer<OMessageBox> box = new OMessageBox(
            Attention, {QStringLiteral("No"), QStringLiteral("Yes")},
            QStringLiteral("Drag me by the bar."), QStringLiteral("Box %1").arg(i + 1));
        box->show();
        QVERIFY(waitShown(box));
        checkDrag(box);
        if (box)
            delete box.data();
        if (QTest::currentTestFailed())
            qWarning("message box %d of 20", i + 1);
        QVERIFY(!QTest::currentTestFailed());
    }
}

void DesktopDialogsTest::dragInContentMovesNothing()
{
    QScopedPointer<BarDialog> owner(new BarDialog(m_main, 2));
    BarDialog *dialog = owner.data();
    dialog->resize(420, 260);
    dialog->show();
    QVERIFY(waitShown(dialog));
    const QPoint inContent = dialog->contentWidget()->mapTo(dialog, QPoint(30, 30));
#ifdef HAVE_DRAG_COUNTERS
    resetDragCounters();
#endif
    const QPoint start = DesktopInput::serverOrigin(dialog);
    const QPoint qtStart = dialog->pos();
    DesktopInput::drag(dialog, inContent, dragDelta);
    if (DesktopInput::realInput())
        QCOMPARE(DesktopInput::settledOrigin(dialog), start);
    QCOMPARE(dialog->pos(), qtStart);
#ifdef HAVE_DRAG_COUNTERS
    QCOMPARE(dragMoveCount(), 0);
    QCOMPARE(systemMoveCount(), 0);
#endif
}

int DesktopDialogsTest::runBox(const QStringList &buttons, const std::function<void(OMessageBox *)> &drive)
{
    QTimer::singleShot(0, this, [drive] {
        OMessageBox *box = nullptr;
        for (int wait = 0; wait < 100 && !box; ++wait) {
            box = qobject_cast<OMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                QTest::qWait(20);
        }
        if (!box)
            return;
        QPointer<OMessageBox> guard(box);
        // Its own deadline: whatever happens, popupTips returns.
        QTimer::singleShot(8000, box, [guard] {
            if (guard && guard->isVisible())
                guard->done(-1);
        });
        if (!waitShown(box))
            return;
        QTest::qWait(100);
        drive(box);
        QTest::qWait(300);
        // A box already done is only waiting for its deferred deletion.
        if (guard && guard->isVisible())
            guard->done(-1);
    });
    return OMessageBox::popupTips(Attention, buttons, QStringLiteral("Choose one of the buttons below."),
                                  QStringLiteral("A question"), -1, QString(), std::function<void(bool)>());
}

void DesktopDialogsTest::clickingNthButtonReturnsN()
{
    const QStringList texts = {QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third")};
    for (int n = 1; n <= texts.size(); ++n) {
        const int result = runBox(texts, [n](OMessageBox *box) {
            const QList<QPushButton *> buttons = buttonsOf(box);
            if (buttons.size() >= n)
                DesktopInput::click(box, centreOf(box, buttons.at(n - 1)));
        });
        QCOMPARE(result, n);
    }
}

void DesktopDialogsTest::closeButtonReturnsZero()
{
    const int result = runBox({QStringLiteral("One"), QStringLiteral("Two")}, [](OMessageBox *box) {
        if (QPushButton *close = closeButtonOf(box))
            DesktopInput::click(box, centreOf(box, close));
    });
    QCOMPARE(result, 0);
}

void DesktopDialogsTest::barDialogCloseButtonRejects()
{
    BarDialog dialog(m_main, 0);
    dialog.resize(420, 260);
    int finished = -1;
    connect(&dialog, &QDialog::finished, this, [&finished](int r) { finished = r; });
    dialog.show();
    QVERIFY(waitShown(&dialog));
    QPushButton *close = closeButtonOf(&dialog);
    QVERIFY(close);
    DesktopInput::click(&dialog, centreOf(&dialog, close));
    QTRY_COMPARE(finished, int(QDialog::Rejected));
    QVERIFY(!dialog.isVisible());
}

void DesktopDialogsTest::escapeReturnsZero()
{
    bool pressed = false;
    const int result = runBox({QStringLiteral("One"), QStringLiteral("Two")}, [&pressed](OMessageBox *box) {
        DesktopInput::key(box, Qt::Key_Escape);
        pressed = true;
    });
    QVERIFY(pressed);
    QCOMPARE(result, 0);
}

void DesktopDialogsTest::tabToButtonAndSpaceClicksIt()
{
    const QStringList texts = {QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third")};
    bool reached = false;
    bool closeFocused = false;
    const int result = runBox(texts, [&](OMessageBox *box) {
        QPushButton *target = buttonsOf(box).value(1);
        QPushButton *close = closeButtonOf(box);
        for (int tab = 0; tab < 6 && !reached; ++tab) {
            DesktopInput::key(box, Qt::Key_Tab);
            closeFocused = closeFocused || box->focusWidget() == close;
            reached = target && box->focusWidget() == target;
        }
        if (reached)
            DesktopInput::key(box, Qt::Key_Space);
    });
    QVERIFY2(reached, "Tab never reached the second button");
    QVERIFY2(!closeFocused, "Tab put the focus on the bar's close button");
    QCOMPARE(result, 2);
}

void DesktopDialogsTest::returnOnFreshBoxDoesNotClose()
{
    bool closeHadFocus = true;
    const int result = runBox({QStringLiteral("One"), QStringLiteral("Two")}, [&](OMessageBox *box) {
        QPushButton *close = closeButtonOf(box);
        closeHadFocus = !close || box->focusWidget() == close;
        DesktopInput::key(box, Qt::Key_Return);
    });
    QVERIFY2(!closeHadFocus, "the close button has the first focus");
    // Return either clicks the focused button or does nothing; it never
    // closes the box through the close button (result 0).
    QVERIFY2(result != 0, "Return closed the box");
}

QTEST_MAIN(DesktopDialogsTest)
#include "desktop_dialogs.moc"
