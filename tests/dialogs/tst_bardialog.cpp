#include <Orvane/bardialog.h>
#include <Orvane/dialogskinstyle.h>
#include <Orvane/languagepack.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <QWindow>
#include <QtTest>

using Orvane::BarDialog;

namespace {

// Opens the dialog's child pointers to the tests.
class Probe : public BarDialog
{
public:
    explicit Probe(int skin, QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags())
        : BarDialog(parent, skin, flags)
    {
    }
    using BarDialog::barIconLabel;
    using BarDialog::barOverlay;
    using BarDialog::closeButton;
    using BarDialog::content;
    using BarDialog::eventFilter;
    using BarDialog::titleLabel;
    using BarDialog::titleLayout;

    QWidget *lowerBar() const { return titleLabel->parentWidget(); }
};

QPixmap solidPixmap(const QColor &colour, int size = 32)
{
    QPixmap pixmap(size, size);
    pixmap.fill(colour);
    return pixmap;
}

bool sameImage(const QPixmap &a, const QPixmap &b)
{
    return !a.isNull() && a.toImage().convertToFormat(QImage::Format_ARGB32)
        == b.toImage().convertToFormat(QImage::Format_ARGB32);
}

bool near(const QColor &a, const QColor &b, int tolerance = 3)
{
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance
        && qAbs(a.blue() - b.blue()) <= tolerance && qAbs(a.alpha() - b.alpha()) <= tolerance;
}

// A point on the upper bar away from the icon and the close button.
QPoint barGrip(const Probe &dialog)
{
    return dialog.barOverlay->mapToGlobal(QPoint(dialog.barOverlay->width() / 2,
                                                 dialog.barOverlay->height() / 2));
}

// Real mouse input through the dialog's window, at global positions.
void press(QWidget *dialog, const QPoint &global)
{
    QWindow *window = dialog->windowHandle();
    QTest::mousePress(window, Qt::LeftButton, Qt::KeyboardModifiers(), window->mapFromGlobal(global));
}

void moveTo(QWidget *dialog, const QPoint &global)
{
    QWindow *window = dialog->windowHandle();
    QTest::mouseMove(window, window->mapFromGlobal(global));
    QCoreApplication::processEvents();
}

void release(QWidget *dialog, const QPoint &global)
{
    QWindow *window = dialog->windowHandle();
    QTest::mouseRelease(window, Qt::LeftButton, Qt::KeyboardModifiers(), window->mapFromGlobal(global));
}

void showAt(QWidget *dialog, const QPoint &position)
{
    dialog->resize(320, 200);
    dialog->move(position);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
}

} // namespace

// The app icon is shared by all bar dialogs and can only be set, so the
// functions that depend on it not being set run first, in declaration order.
class tst_BarDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void iconFromImagesFolderWithoutAppIcon();
    void iconEmptyWithoutAnyPicture();

    void classNameAndFlags_data();
    void classNameAndFlags();
    void treeByObjectNames_data();
    void treeByObjectNames();
    void layoutsAndSizes();
    void closeButtonImageResolves();
    void panelColourPerSkin_data();
    void panelColourPerSkin();

    void layoutMakersRedirectToContent();
    void showBarIconMovesTitle();
    void setWindowTitleSetsOnlyTheLabel();
    void setVisibleCloseButton();
    void closeButtonRejectsAndKeepsDialog();

    void dragByExactDelta();
    void dragFollowsEveryMove();
    void contentAreaDoesNotDrag();
    void dragWithHiddenCloseButton();
    void filterNeverConsumesAndIgnoresOtherEvents();
    void firstDragExactWhenPosIsStale();
    void closeButtonIsNamedAndTakesNoFocus();
    void escapeClosesAndFirstFocusInContent();

    void centresOverMainWindowOnEveryShow();
    void noMainWindowLeavesPosition();

    void appIconReplacesCatalogueIcon();
    void nullAppIconLeavesLabelEmpty();
    void closeImageNeverShown();
    void look_data();
    void look();

    void closeNameTranslated_data(); // installs a translator: keep it last
    void closeNameTranslated();
};

void tst_BarDialog::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_BarDialog::iconFromImagesFolderWithoutAppIcon()
{
    QDir dir(QCoreApplication::applicationDirPath());
    const bool madeFolder = !dir.exists(QStringLiteral("images"));
    QVERIFY(dir.mkpath(QStringLiteral("images")));
    const QString path = dir.filePath(QStringLiteral("images/AppIcon.png"));
    const QPixmap icon = solidPixmap(QColor(0x12, 0x80, 0xE0));
    QVERIFY(icon.save(path, "PNG"));

    Probe dialog(2);
    const bool ok = sameImage(dialog.barIconLabel->pixmap(Qt::ReturnByValue), icon);

    QFile::remove(path);
    if (madeFolder)
        dir.rmdir(QStringLiteral("images"));
    QVERIFY(ok);
}

void tst_BarDialog::iconEmptyWithoutAnyPicture()
{
    Probe dialog(0);
    QVERIFY(dialog.barIconLabel->pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(dialog.barIconLabel->isHidden());
}

void tst_BarDialog::classNameAndFlags_data()
{
    QTest::addColumn<int>("flags");
    QTest::newRow("window") << int(Qt::Window);
    QTest::newRow("none") << 0;
    QTest::newRow("stay on top, sheet") << int(Qt::Sheet | Qt::WindowStaysOnTopHint);
}

void tst_BarDialog::classNameAndFlags()
{
    QFETCH(int, flags);
    BarDialog dialog(nullptr, 2, Qt::WindowFlags(flags));
    QCOMPARE(dialog.metaObject()->className(), "Orvane::BarDialog");
    QCOMPARE(dialog.windowFlags(), Qt::Dialog | Qt::FramelessWindowHint | Qt::Tool);
    QVERIFY(dialog.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(!dialog.testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(dialog.windowTitle().isEmpty());
}

void tst_BarDialog::treeByObjectNames_data()
{
    QTest::addColumn<int>("skin");
    for (int skin : {0, 1, 2, 3, 7})
        QTest::newRow(qPrintable(QString::number(skin))) << skin;
}

void tst_BarDialog::treeByObjectNames()
{
    QFETCH(int, skin);
    const bool dark = skin == 2;
    const Orvane::DialogSkinStyle style = Orvane::dialogSkinStyle(skin);
    QCOMPARE(style.barStyle.contains(QLatin1String("#2E2F30")), dark);
    Probe dialog(skin);

    auto *bg = dialog.findChild<QWidget *>(QStringLiteral("bg"), Qt::FindDirectChildrenOnly);
    QVERIFY(bg);
    QCOMPARE(bg->styleSheet(), QStringLiteral(".QWidget#bg{background-color:transparent;}"));
    QCOMPARE(dialog.layout()->indexOf(bg), 0);

    const QList<QWidget *> bars = bg->findChildren<QWidget *>(QStringLiteral("bar"), Qt::FindDirectChildrenOnly);
    QCOMPARE(bars.size(), 2);
    QWidget *lower = dialog.lowerBar();
    QVERIFY(bars.contains(lower));
    QVERIFY(bars.contains(dialog.barOverlay));
    QCOMPARE(lower->styleSheet(), style.barStyle);
    QCOMPARE(dialog.barOverlay->styleSheet(), style.barOverlayStyle);

    auto *content = bg->findChild<QWidget *>(QStringLiteral("content"), Qt::FindDirectChildrenOnly);
    QVERIFY(content);
    QCOMPARE(content, dialog.contentWidget());
    QCOMPARE(content, dialog.content);
    QCOMPARE(content->styleSheet(), style.contentStyle);

    QCOMPARE(dialog.titleLabel->parentWidget(), lower);
    QCOMPARE(dialog.titleLabel->styleSheet(), style.titleStyle);
    QCOMPARE(dialog.barIconLabel->parentWidget(), dialog.barOverlay);
    QCOMPARE(dialog.closeButton->parentWidget(), dialog.barOverlay);
    QCOMPARE(dialog.closeButton->styleSheet(), style.closeButtonStyle);
}

void tst_BarDialog::layoutsAndSizes()
{
    Probe dialog(2);
    auto *bg = dialog.findChild<QWidget *>(QStringLiteral("bg"));

    // The root layout keeps the style's margins: a band around the panel.
    auto *root = qobject_cast<QVBoxLayout *>(dialog.layout());
    QVERIFY(root);
    const QMargins rootMargins = root->contentsMargins();
    QVERIFY(rootMargins.left() > 0 && rootMargins.top() > 0);
    QVERIFY(rootMargins.right() > 0 && rootMargins.bottom() > 0);

    auto *bgLayout = qobject_cast<QVBoxLayout *>(bg->layout());
    QVERIFY(bgLayout);
    QCOMPARE(bgLayout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(bgLayout->spacing(), 0);
    QCOMPARE(bgLayout->count(), 2);
    auto *stack = qobject_cast<QStackedLayout *>(bgLayout->itemAt(0)->layout());
    QVERIFY(stack);
    QCOMPARE(bgLayout->stretch(0), 0);
    QCOMPARE(bgLayout->itemAt(1)->widget(), dialog.content);
    QCOMPARE(bgLayout->stretch(1), 1);

    QCOMPARE(stack->stackingMode(), QStackedLayout::StackAll);
    QCOMPARE(stack->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(stack->count(), 2);
    QCOMPARE(stack->widget(0), dialog.lowerBar());
    QCOMPARE(stack->widget(1), dialog.barOverlay);
    QCOMPARE(stack->currentWidget(), dialog.barOverlay);
    // Raised: the overlay is last among its siblings, so it is painted on
    // top and takes the mouse.
    const QObjectList siblings = bg->children();
    QVERIFY(siblings.indexOf(dialog.barOverlay) > siblings.indexOf(dialog.lowerBar()));

    for (QWidget *bar : {dialog.lowerBar(), dialog.barOverlay}) {
        QCOMPARE(bar->minimumHeight(), 28);
        QCOMPARE(bar->maximumHeight(), 28);
    }

    QCOMPARE(dialog.titleLayout->parentWidget(), dialog.lowerBar());
    QCOMPARE(dialog.titleLayout->contentsMargins(), QMargins(8, 0, 8, 0));
    QCOMPARE(dialog.titleLayout->spacing(), 0);
    QCOMPARE(dialog.titleLayout->count(), 2);
    QCOMPARE(dialog.titleLayout->itemAt(0)->widget(), dialog.titleLabel);
    QCOMPARE(dialog.titleLayout->itemAt(0)->alignment(), Qt::AlignVCenter);
    QCOMPARE(dialog.titleLayout->stretch(0), 0);
    QVERIFY(dialog.titleLayout->itemAt(1)->spacerItem());
    QCOMPARE(dialog.titleLabel->alignment(), Qt::AlignLeft);

    auto *overlayLayout = qobject_cast<QHBoxLayout *>(dialog.barOverlay->layout());
    QVERIFY(overlayLayout);
    QCOMPARE(overlayLayout->contentsMargins(), QMargins(2, 0, 2, 0));
    QCOMPARE(overlayLayout->spacing(), 0);
    QCOMPARE(overlayLayout->alignment(), Qt::AlignVCenter);
    QCOMPARE(overlayLayout->count(), 4);
    QSpacerItem *gap = overlayLayout->itemAt(0)->spacerItem();
    QVERIFY(gap);
    QCOMPARE(gap->sizeHint().width(), 8);
    QCOMPARE(overlayLayout->itemAt(1)->widget(), dialog.barIconLabel);
    QVERIFY(overlayLayout->itemAt(2)->spacerItem());
    QCOMPARE(overlayLayout->itemAt(3)->widget(), dialog.closeButton);

    QCOMPARE(dialog.barIconLabel->minimumSize(), QSize(16, 16));
    QCOMPARE(dialog.barIconLabel->maximumSize(), QSize(16, 16));
    QVERIFY(dialog.barIconLabel->hasScaledContents());
    QVERIFY(dialog.barIconLabel->isHidden());

    QCOMPARE(dialog.closeButton->minimumSize(), QSize(24, 24));
    QCOMPARE(dialog.closeButton->maximumSize(), QSize(24, 24));
    QCOMPARE(dialog.closeButton->iconSize(), QSize(24, 24));

    QCOMPARE(dialog.content->minimumSize(), QSize(100, 60));
}

void tst_BarDialog::closeButtonImageResolves()
{
    // Building a dialog registers the library's images, which the close
    // button's style sheet names.
    Probe dialog(2);
    QVERIFY(QFile::exists(QStringLiteral(":/Orvane/kv_DlgCloseBtn.png")));
    QVERIFY(QFile::exists(QStringLiteral(":/Orvane/qm_DlgCloseBtn.png")));
}

void tst_BarDialog::panelColourPerSkin_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<QColor>("panel");
    const QColor white(Qt::white);
    const QColor dark(0x2E, 0x2F, 0x30);
    QTest::newRow("0") << 0 << white;
    QTest::newRow("1") << 1 << white;
    QTest::newRow("2") << 2 << dark;
    QTest::newRow("3") << 3 << white;
    QTest::newRow("7") << 7 << white;
    QTest::newRow("-1") << -1 << white;
}

void tst_BarDialog::panelColourPerSkin()
{
    QFETCH(int, skin);
    QFETCH(QColor, panel);
    Probe dialog(skin);
    showAt(&dialog, QPoint(60, 60));
    const QImage image = dialog.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    const QPoint inContent = dialog.content->mapTo(&dialog, dialog.content->rect().center());
    const QPoint inBar = dialog.barOverlay->mapTo(&dialog, QPoint(dialog.barOverlay->width() / 2, 14));
    QVERIFY2(near(image.pixelColor(inContent), panel), qPrintable(image.pixelColor(inContent).name(QColor::HexArgb)));
    QVERIFY2(near(image.pixelColor(inBar), panel), qPrintable(image.pixelColor(inBar).name(QColor::HexArgb)));
    QCOMPARE(image.pixelColor(1, 1).alpha(), 0);
    QCOMPARE(image.pixelColor(image.width() - 2, image.height() - 2).alpha(), 0);
    dialog.close();
}

void tst_BarDialog::layoutMakersRedirectToContent()
{
    {
        Probe dialog(2);
        QVBoxLayout *v = dialog.makeVBoxLayout(&dialog, 0, 0);
        QVERIFY(v);
        QCOMPARE(dialog.contentWidget()->layout(), v);
        QCOMPARE(v->parentWidget(), dialog.contentWidget());
        QCOMPARE(v->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(v->spacing(), 0);
        QVERIFY(qobject_cast<QVBoxLayout *>(dialog.layout())); // the root is untouched
        QVERIFY(dialog.layout() != v);
    }
    {
        Probe dialog(0);
        QHBoxLayout *h = dialog.makeHBoxLayout(&dialog, 5, 7);
        QCOMPARE(dialog.contentWidget()->layout(), h);
        QCOMPARE(h->contentsMargins(), QMargins(5, 5, 5, 5));
        QCOMPARE(h->spacing(), 7);
    }
    {
        Probe dialog(0);
        QStackedLayout *s = dialog.makeStackedLayout(&dialog);
        QCOMPARE(dialog.contentWidget()->layout(), s);
    }
    {
        // Any other parent is used as given.
        Probe dialog(2);
        auto *inner = new QWidget(dialog.contentWidget());
        QHBoxLayout *h = dialog.makeHBoxLayout(inner, 3, 4);
        QCOMPARE(inner->layout(), h);
        QCOMPARE(h->contentsMargins(), QMargins(3, 3, 3, 3));
        QCOMPARE(h->spacing(), 4);
        auto *other = new QWidget(dialog.contentWidget());
        QStackedLayout *s = dialog.makeStackedLayout(other);
        QCOMPARE(other->layout(), s);
        QVERIFY(!dialog.contentWidget()->layout());

        QVBoxLayout *loose = dialog.makeVBoxLayout(nullptr, 1, 2);
        QVERIFY(loose);
        QVERIFY(!loose->parent());
        QCOMPARE(loose->spacing(), 2);
        delete loose;
    }
}

void tst_BarDialog::showBarIconMovesTitle()
{
    Probe dialog(2);
    dialog.showBarIcon(true);
    QCOMPARE(dialog.titleLayout->contentsMargins(), QMargins(32, 0, 32, 0));
    QVERIFY(!dialog.barIconLabel->isHidden());
    dialog.showBarIcon(false);
    QCOMPARE(dialog.titleLayout->contentsMargins(), QMargins(8, 0, 8, 0));
    QVERIFY(dialog.barIconLabel->isHidden());
    dialog.showBarIcon(false);
    QCOMPARE(dialog.titleLayout->contentsMargins(), QMargins(8, 0, 8, 0));
}

void tst_BarDialog::setWindowTitleSetsOnlyTheLabel()
{
    Probe dialog(2);
    dialog.setWindowTitle(QStringLiteral("X"), Qt::AlignCenter);
    QCOMPARE(dialog.titleLabel->text(), QStringLiteral("X"));
    QCOMPARE(dialog.titleLabel->alignment(), Qt::AlignCenter);
    QVERIFY(dialog.windowTitle().isEmpty());

    dialog.setWindowTitle(QStringLiteral("Settings"));
    QCOMPARE(dialog.titleLabel->text(), QStringLiteral("Settings"));
    QCOMPARE(dialog.titleLabel->alignment(), Qt::AlignLeft);
    QVERIFY(dialog.windowTitle().isEmpty());

    dialog.setWindowTitle(QString(), Qt::AlignRight);
    QVERIFY(dialog.titleLabel->text().isEmpty());
    QCOMPARE(dialog.titleLabel->alignment(), Qt::AlignRight);
}

void tst_BarDialog::setVisibleCloseButton()
{
    Probe dialog(0);
    dialog.setVisibleCloseButton(false);
    QVERIFY(dialog.closeButton->isHidden());
    dialog.setVisibleCloseButton(true);
    QVERIFY(!dialog.closeButton->isHidden());
}

void tst_BarDialog::closeButtonRejectsAndKeepsDialog()
{
    Probe dialog(2);
    showAt(&dialog, QPoint(80, 80));
    dialog.setResult(9);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QSignalSpy finished(&dialog, &QDialog::finished);
    // Through the window, as a user clicks: the bar's filter lets it pass.
    const QPoint onButton = dialog.closeButton->mapToGlobal(dialog.closeButton->rect().center());
    press(&dialog, onButton);
    release(&dialog, onButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), int(QDialog::Rejected));
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void tst_BarDialog::dragByExactDelta()
{
    Probe dialog(2);
    showAt(&dialog, QPoint(200, 150));
    const QPoint start = dialog.pos();
    const QPoint grip = barGrip(dialog);

    press(&dialog, grip);
    QCOMPARE(dialog.property("mousePressed").toBool(), true);
    QCOMPARE(dialog.property("mousePressedPosition").toPoint(), grip);
    moveTo(&dialog, grip + QPoint(15, -4));
    QCOMPARE(dialog.pos(), start + QPoint(15, -4));
    QCOMPARE(dialog.property("mousePressedPosition").toPoint(), grip + QPoint(15, -4));
    release(&dialog, grip + QPoint(15, -4));
    QCOMPARE(dialog.property("mousePressed").toBool(), false);
    QCOMPARE(dialog.pos(), start + QPoint(15, -4));

    // After the release, moving no longer drags.
    moveTo(&dialog, grip + QPoint(40, 40));
    QCOMPARE(dialog.pos(), start + QPoint(15, -4));
}

void tst_BarDialog::dragFollowsEveryMove()
{
    Probe dialog(0);
    showAt(&dialog, QPoint(300, 300));
    const QPoint start = dialog.pos();
    const QPoint grip = barGrip(dialog);

    press(&dialog, grip);
    // No threshold: the first pixel already moves the window.
    moveTo(&dialog, grip + QPoint(1, 0));
    QCOMPARE(dialog.pos(), start + QPoint(1, 0));
    moveTo(&dialog, grip + QPoint(-20, 12));
    QCOMPARE(dialog.pos(), start + QPoint(-20, 12));
    moveTo(&dialog, grip + QPoint(-20, 12));
    QCOMPARE(dialog.pos(), start + QPoint(-20, 12));
    release(&dialog, grip + QPoint(-20, 12));
    QCOMPARE(dialog.pos(), start + QPoint(-20, 12));
}

void tst_BarDialog::contentAreaDoesNotDrag()
{
    Probe dialog(2);
    showAt(&dialog, QPoint(200, 150));
    const QPoint start = dialog.pos();
    const QPoint inside = dialog.content->mapToGlobal(dialog.content->rect().center());
    press(&dialog, inside);
    moveTo(&dialog, inside + QPoint(15, -4));
    moveTo(&dialog, inside + QPoint(30, 20));
    release(&dialog, inside + QPoint(30, 20));
    QCOMPARE(dialog.pos(), start);
    QVERIFY(!dialog.property("mousePressed").toBool());
    QVERIFY(!dialog.property("mousePressedPosition").isValid());
}

void tst_BarDialog::dragWithHiddenCloseButton()
{
    Probe dialog(2);
    dialog.setVisibleCloseButton(false);
    showAt(&dialog, QPoint(200, 150));
    const QPoint start = dialog.pos();
    // Right where the button would be: the bar itself now takes the press.
    const QPoint grip = dialog.barOverlay->mapToGlobal(
        QPoint(dialog.barOverlay->width() - 14, dialog.barOverlay->height() / 2));
    press(&dialog, grip);
    moveTo(&dialog, grip + QPoint(15, -4));
    release(&dialog, grip + QPoint(15, -4));
    QCOMPARE(dialog.pos(), start + QPoint(15, -4));
}

void tst_BarDialog::filterNeverConsumesAndIgnoresOtherEvents()
{
    Probe dialog(2);
    dialog.move(10, 20);
    const QPoint local(20, 10);
    // Events as the window system sends them: global and local agree.
    const QPoint global = dialog.barOverlay->mapToGlobal(local);

    // A move with no press before it does nothing.
    QMouseEvent moveFirst(QEvent::MouseMove, local, global + QPoint(9, 9), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &moveFirst));
    QCOMPARE(dialog.pos(), QPoint(10, 20));

    // A double click changes nothing either.
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, local, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &doubleClick));
    QVERIFY(!dialog.property("mousePressed").toBool());

    // Any button starts a drag; no button state is checked while moving.
    QMouseEvent rightPress(QEvent::MouseButtonPress, local, global, Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &rightPress));
    QVERIFY(dialog.property("mousePressed").toBool());
    QMouseEvent move(QEvent::MouseMove, local, global + QPoint(3, 4), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &move));
    QCOMPARE(dialog.pos(), QPoint(13, 24));

    // Mouse events of other objects, and events that are not mouse events
    // even when they carry a mouse type, are left alone.
    QMouseEvent elsewhere(QEvent::MouseMove, local, global + QPoint(50, 50), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.content, &elsewhere));
    QEvent bare(QEvent::MouseMove);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &bare));
    QEvent barePress(QEvent::MouseButtonRelease);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &barePress));
    QVERIFY(dialog.property("mousePressed").toBool());
    QCOMPARE(dialog.pos(), QPoint(13, 24));

    QMouseEvent middleRelease(QEvent::MouseButtonRelease, local, global, Qt::MiddleButton, Qt::NoButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &middleRelease));
    QVERIFY(!dialog.property("mousePressed").toBool());
}

void tst_BarDialog::firstDragExactWhenPosIsStale()
{
    // Right after mapping under a reparenting window manager Qt may still
    // believe the window is at (0, 0) while it really is at (411, 320): the
    // events carry the real position, pos() the stale one.
    Probe dialog(2);
    dialog.resize(320, 200);
    dialog.move(0, 0);
    const QPoint real(411, 320);
    const QPoint local(40, 10);
    const QPoint inDialog = dialog.barOverlay->mapTo(&dialog, local);
    const QPoint grip = real + inDialog;

    QMouseEvent pressEvent(QEvent::MouseButtonPress, local, grip, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &pressEvent));
    QCOMPARE(dialog.property("mousePressed").toBool(), true);
    QCOMPARE(dialog.property("mousePressedPosition").toPoint(), grip);

    // The pointer moves by (+150, +90); the window lands at real + delta,
    // not at the stale (0, 0) + delta.
    QMouseEvent moveEvent(QEvent::MouseMove, local + QPoint(150, 90), grip + QPoint(150, 90), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &moveEvent));
    QCOMPARE(dialog.pos(), real + QPoint(150, 90));
    QCOMPARE(dialog.property("mousePressedPosition").toPoint(), grip + QPoint(150, 90));

    // Later moves continue from there, by the pointer's delta each time.
    QMouseEvent second(QEvent::MouseMove, local, grip + QPoint(140, 100), Qt::NoButton, Qt::LeftButton,
                       Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &second));
    QCOMPARE(dialog.pos(), real + QPoint(140, 100));

    QMouseEvent releaseEvent(QEvent::MouseButtonRelease, local, grip + QPoint(140, 100), Qt::LeftButton,
                             Qt::NoButton, Qt::NoModifier);
    QVERIFY(!dialog.eventFilter(dialog.barOverlay, &releaseEvent));
    QVERIFY(!dialog.property("mousePressed").toBool());
    QCOMPARE(dialog.pos(), real + QPoint(140, 100));
}

void tst_BarDialog::closeButtonIsNamedAndTakesNoFocus()
{
    Probe dialog(2);
    QCOMPARE(dialog.closeButton->focusPolicy(), Qt::NoFocus);
    QVERIFY(!dialog.closeButton->autoDefault());
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(dialog.closeButton);
    QVERIFY(accessible);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Close"));
    QCOMPARE(accessible->role(), QAccessible::Button);

    // Still a mouse target.
    showAt(&dialog, QPoint(100, 100));
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QTest::mouseClick(dialog.closeButton, Qt::LeftButton);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_BarDialog::escapeClosesAndFirstFocusInContent()
{
    Probe dialog(0);
    auto *layout = dialog.makeVBoxLayout(&dialog, 10, 10);
    auto *edit = new QPushButton(QStringLiteral("Inside"), dialog.content);
    layout->addWidget(edit);
    showAt(&dialog, QPoint(100, 100));
    QApplication::setActiveWindow(&dialog);
    QTRY_VERIFY(dialog.isActiveWindow());
    QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(edit));
    // Tab never lands on the close button.
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(QApplication::focusWidget() != dialog.closeButton);
    }
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_BarDialog::centresOverMainWindowOnEveryShow()
{
    QMainWindow main;
    main.resize(801, 601);
    main.move(40, 30);
    main.show();
    QVERIFY(QTest::qWaitForWindowExposed(&main));

    // The dialog's own parent plays no part.
    QWidget elsewhere;
    elsewhere.setGeometry(700, 500, 100, 100);
    auto *dialog = new Probe(2, &elsewhere);
    dialog->resize(320, 201);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    const QPoint centred = main.mapToGlobal(QPoint((801 - 320) / 2, (601 - 201) / 2));
    QCOMPARE(dialog->pos(), centred);

    const QPoint grip = barGrip(*dialog);
    press(dialog, grip);
    moveTo(dialog, grip + QPoint(15, -4));
    release(dialog, grip + QPoint(15, -4));
    QCOMPARE(dialog->pos(), centred + QPoint(15, -4));

    dialog->hide();
    dialog->show();
    QCOMPARE(dialog->pos(), centred);
    dialog->close();
}

void tst_BarDialog::noMainWindowLeavesPosition()
{
    Probe dialog(0);
    showAt(&dialog, QPoint(123, 45));
    QCOMPARE(dialog.pos(), QPoint(123, 45));
}

void tst_BarDialog::appIconReplacesCatalogueIcon()
{
    const QPixmap first = solidPixmap(Qt::red);
    BarDialog::setAppIcon(first);
    Probe a(2);
    QVERIFY(sameImage(a.barIconLabel->pixmap(Qt::ReturnByValue), first));

    // Replacing it reaches dialogs built afterwards, not those built before.
    const QPixmap second = solidPixmap(Qt::green, 48);
    BarDialog::setAppIcon(second);
    Probe b(0);
    QVERIFY(sameImage(b.barIconLabel->pixmap(Qt::ReturnByValue), second));
    QVERIFY(sameImage(a.barIconLabel->pixmap(Qt::ReturnByValue), first));
    // The label keeps its own size whatever the picture's.
    QCOMPARE(b.barIconLabel->maximumSize(), QSize(16, 16));
}

void tst_BarDialog::nullAppIconLeavesLabelEmpty()
{
    BarDialog::setAppIcon(QPixmap());
    Probe dialog(2);
    QVERIFY(dialog.barIconLabel->pixmap(Qt::ReturnByValue).isNull());
}

void tst_BarDialog::closeImageNeverShown()
{
    BarDialog::setCloseImage(solidPixmap(Qt::blue, 24));
    for (int skin : {0, 2}) {
        Probe dialog(skin);
        QCOMPARE(dialog.closeButton->styleSheet(), Orvane::dialogSkinStyle(skin).closeButtonStyle);
        QVERIFY(dialog.closeButton->icon().isNull());
    }
}

void tst_BarDialog::look_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<QColor>("panel");
    QTest::addColumn<QString>("file");
    QTest::newRow("dark") << 2 << QColor(0x2E, 0x2F, 0x30) << QStringLiteral("orvane-bardialog-dark.png");
    QTest::newRow("light") << 0 << QColor(Qt::white) << QStringLiteral("orvane-bardialog-light.png");
}

void tst_BarDialog::look()
{
    QFETCH(int, skin);
    QFETCH(QColor, panel);
    QFETCH(QString, file);

    // An application icon: a rounded blue square with a white dot.
    QPixmap icon(64, 64);
    icon.fill(Qt::transparent);
    {
        QPainter p(&icon);
        p.setRenderHint(QPainter::Antialiasing);
        p.setBrush(QColor(0x3D, 0x7B, 0xFF));
        p.setPen(Qt::NoPen);
        p.drawRoundedRect(QRectF(2, 2, 60, 60), 14, 14);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(32, 32), 12, 12);
    }
    BarDialog::setAppIcon(icon);

    Probe dialog(skin);
    dialog.setWindowTitle(QStringLiteral("Orvane settings"));
    dialog.showBarIcon(true);
    QVBoxLayout *layout = dialog.makeVBoxLayout(&dialog, 20, 10);
    auto *text = new QLabel(QStringLiteral("Some content in the panel."));
    if (skin == 2)
        text->setStyleSheet(QStringLiteral("color: #E3E3E3;"));
    layout->addWidget(text);
    layout->addStretch();
    auto *button = new QPushButton(QStringLiteral("Apply"));
    layout->addWidget(button, 0, Qt::AlignRight);
    showAt(&dialog, QPoint(100, 100));
    dialog.resize(360, 220);
    QCoreApplication::processEvents();

    const QImage image = dialog.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    const QString path = QDir::temp().filePath(file);
    QVERIFY(image.save(path, "PNG"));

    // Panel colour in the content, below the text and left of the button.
    const QPoint inContent = dialog.content->mapTo(&dialog, QPoint(12, dialog.content->height() - 12));
    QVERIFY2(near(image.pixelColor(inContent), panel), qPrintable(image.pixelColor(inContent).name(QColor::HexArgb)));
    // The bar, between the title and the close button.
    const QPoint inBar = dialog.barOverlay->mapTo(&dialog, QPoint(dialog.barOverlay->width() - 60, 6));
    QVERIFY2(near(image.pixelColor(inBar), panel), qPrintable(image.pixelColor(inBar).name(QColor::HexArgb)));
    // The icon is shown where the bar starts.
    QVERIFY(dialog.barIconLabel->isVisible());
    const QPoint inIcon = dialog.barIconLabel->mapTo(&dialog, dialog.barIconLabel->rect().center());
    QVERIFY(near(image.pixelColor(inIcon), Qt::white, 40));

    // The band around the panel is fully transparent on all four sides.
    const QRect panelRect(dialog.findChild<QWidget *>(QStringLiteral("bg"))->geometry());
    QVERIFY(panelRect.left() > 0 && panelRect.top() > 0);
    for (const QPoint &p : {QPoint(panelRect.left() / 2, image.height() / 2),
                            QPoint(image.width() / 2, panelRect.top() / 2),
                            QPoint(image.width() - 1 - panelRect.left() / 2, image.height() / 2),
                            QPoint(image.width() / 2, image.height() - 1 - panelRect.top() / 2),
                            QPoint(0, 0)}) {
        QCOMPARE(image.pixelColor(p).alpha(), 0);
    }
    // The panel's rounded corner lets the band show through.
    QVERIFY(image.pixelColor(panelRect.topLeft()).alpha() < 255);
    dialog.close();
}

void tst_BarDialog::closeNameTranslated_data()
{
    QTest::addColumn<QString>("pack");
    QTest::addColumn<QString>("name");
    QTest::newRow("Arabic") << QStringLiteral("Arabic") << QString::fromUtf8("إغلاق");
    QTest::newRow("Dutch") << QStringLiteral("Dutch") << QStringLiteral("Sluiten");
    QTest::newRow("French") << QStringLiteral("French") << QStringLiteral("Fermer");
    QTest::newRow("German") << QStringLiteral("German") << QString::fromUtf8("Schließen");
    QTest::newRow("Hindi") << QStringLiteral("Hindi") << QString::fromUtf8("बंद करें");
    QTest::newRow("Indonesian") << QStringLiteral("Indonesian") << QStringLiteral("Tutup");
    QTest::newRow("Italian") << QStringLiteral("Italian") << QStringLiteral("Chiudi");
    QTest::newRow("Japanese") << QStringLiteral("Japanese") << QString::fromUtf8("閉じる");
    QTest::newRow("Korean") << QStringLiteral("Korean") << QString::fromUtf8("닫기");
    QTest::newRow("Portuguese") << QStringLiteral("Portuguese") << QStringLiteral("Fechar");
    QTest::newRow("Russian") << QStringLiteral("Russian") << QString::fromUtf8("Закрыть");
    QTest::newRow("Spanish") << QStringLiteral("Spanish") << QStringLiteral("Cerrar");
    QTest::newRow("Turkish") << QStringLiteral("Turkish") << QStringLiteral("Kapat");
    QTest::newRow("zh_CN") << QStringLiteral("zh_CN") << QString::fromUtf8("关闭");
    QTest::newRow("zh_TW") << QStringLiteral("zh_TW") << QString::fromUtf8("關閉");
}

void tst_BarDialog::closeNameTranslated()
{
    QFETCH(QString, pack);
    QFETCH(QString, name);
    Orvane::freshLanguage(pack);
    {
        Probe dialog(2);
        QCOMPARE(QAccessible::queryAccessibleInterface(dialog.closeButton)->text(QAccessible::Name), name);
    }
    Orvane::freshLanguage(QStringLiteral("English"));
    Probe english(2);
    QCOMPARE(english.closeButton->accessibleName(), QStringLiteral("Close"));
}

QTEST_MAIN(tst_BarDialog)
#include "tst_bardialog.moc"
