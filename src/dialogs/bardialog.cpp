#include <Orvane/bardialog.h>

#include <Orvane/dialogskinstyle.h>
#include <Orvane/helpers.h>
#include <Orvane/slicemanager.h>
#include <Orvane/startup.h>

#include "core/qtcompat_p.h"
#include "dialogs/dialogplatform_p.h"
#include "dialogs/dialogskinstyle_p.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <QWindow>

namespace Orvane {

namespace {

const char pressedProperty[] = "mousePressed";
const char pressedPositionProperty[] = "mousePressedPosition";
// Where the drag has put the window, taken from the press event itself.
const char dragOriginProperty[] = "mousePressedWindowOrigin";

// Shared by every bar dialog; made on first use and never destroyed.
QPixmap *&storedAppIcon()
{
    static QPixmap *icon = nullptr;
    return icon;
}

QPixmap *&storedCloseImage()
{
    static QPixmap *image = nullptr;
    return image;
}

int &barIconSize()
{
    static int size = 16;
    return size;
}

// The constructor's answer to platformShowsTranslucency(), handed to
// setupUI() so that the platform is asked once per dialog; -1 outside the
// constructor, where setupUI() asks itself.
int &translucencyForSetup()
{
    static int answer = -1;
    return answer;
}

void store(QPixmap *&slot, const QPixmap &pixmap)
{
    if (slot)
        *slot = pixmap;
    else
        slot = new QPixmap(pixmap);
}

} // namespace

BarDialog::BarDialog(QWidget *parent, int skin, Qt::WindowFlags flags)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , barIconLabel(nullptr)
    , titleLabel(nullptr)
    , titleLayout(nullptr)
    , barOverlay(nullptr)
    , content(nullptr)
    , closeButton(nullptr)
{
    Q_UNUSED(flags)
    // The window's flags and translucency are settled before any child
    // exists: changing them later re-applies the style (and the style
    // sheets) to every child built so far.
    setWindowFlags(windowFlags() | Qt::Tool);
    // Without a compositor the transparent band would show black: setupUI()
    // then builds an opaque, square panel that fills the window.
    const bool translucent = platformShowsTranslucency(parent);
    if (translucent)
        setAttribute(Qt::WA_TranslucentBackground);
    translucencyForSetup() = translucent ? 1 : 0;
    setupUI(skin);
    translucencyForSetup() = -1;
}

BarDialog::~BarDialog() = default;

void BarDialog::setupUI(int skin)
{
    const bool translucent =
        translucencyForSetup() >= 0 ? translucencyForSetup() != 0 : platformShowsTranslucency(parentWidget());
    const DialogSkinStyle style = translucent ? dialogSkinStyle(skin) : opaqueDialogSkinStyle(skin);
    barIconSize() = style.barIconSize;

    // The root layout keeps the style's margins: they leave a transparent
    // band around the rounded panel. An opaque panel fills the window.
    auto *rootLayout = new QVBoxLayout(this);
    if (!translucent)
        rootLayout->setContentsMargins(0, 0, 0, 0);

    auto *bg = new QWidget(this);
    bg->setObjectName(QStringLiteral("bg"));
    bg->setStyleSheet(QStringLiteral(".QWidget#bg{background-color:transparent;}"));
    rootLayout->addWidget(bg);
    QVBoxLayout *bgLayout = Orvane::makeVBoxLayout(bg, 0, 0);

    // Two bars stacked: the lower one is painted and holds the title, the
    // upper one is transparent, takes the mouse and holds icon and button.
    auto *barStack = new QStackedLayout;
    barStack->setStackingMode(QStackedLayout::StackAll);
    barStack->setContentsMargins(0, 0, 0, 0);
    bgLayout->addLayout(barStack, 0);

    auto *bar = new QWidget(bg);
    bar->setObjectName(QStringLiteral("bar"));
    bar->setFixedHeight(style.barHeight);
    bar->setStyleSheet(style.barStyle);
    titleLayout = Orvane::makeHBoxLayout(bar, 0, 0);
    titleLayout->setContentsMargins(8, 0, 8, 0);
    titleLabel = new QLabel(bar);
    titleLabel->setAlignment(Qt::AlignLeft);
    if (!style.titleStyle.isEmpty())
        titleLabel->setStyleSheet(style.titleStyle);
    titleLayout->addWidget(titleLabel, 0, Qt::AlignVCenter);
    titleLayout->addStretch();
    barStack->addWidget(bar);

    barOverlay = new QWidget(bg);
    barOverlay->setObjectName(QStringLiteral("bar"));
    barOverlay->setFixedHeight(style.barHeight);
    // Styled before the stack shows (and so polishes) it: a sheet set on a
    // polished widget polishes it again.
    barOverlay->setStyleSheet(style.barOverlayStyle);
    barStack->addWidget(barOverlay);
    barStack->setCurrentWidget(barOverlay);
    barOverlay->installEventFilter(this);
    QHBoxLayout *overlayLayout = Orvane::makeHBoxLayout(barOverlay, 0, 0);
    overlayLayout->setContentsMargins(2, 0, 2, 0);
    overlayLayout->setAlignment(Qt::AlignVCenter);
    overlayLayout->addSpacing(8);

    barIconLabel = new QLabel(barOverlay);
    barIconLabel->setFixedSize(style.barIconSize, style.barIconSize);
    barIconLabel->setScaledContents(true);
    barIconLabel->hide();
    const QPixmap icon = storedAppIcon() ? *storedAppIcon() : SliceManager::appIcon();
    if (!icon.isNull())
        barIconLabel->setPixmap(icon);
    overlayLayout->addWidget(barIconLabel);
    overlayLayout->addStretch();

    // The close button's style sheet names images in the library's bundle.
    ensureOrvaneResources();

    closeButton = new QPushButton(barOverlay);
    closeButton->setIconSize(QSize(style.closeButtonSize, style.closeButtonSize));
    closeButton->setFixedSize(style.closeButtonSize, style.closeButtonSize);
    closeButton->setStyleSheet(style.closeButtonStyle);
    // A mouse target only: the keyboard closes the dialog with Escape, so the
    // first focus, and Return, go to the content.
    closeButton->setFocusPolicy(Qt::NoFocus);
    closeButton->setAutoDefault(false);
    closeButton->setAccessibleName(tr("Close"));
    overlayLayout->addWidget(closeButton);
    barOverlay->raise();

    content = new QWidget(bg);
    content->setObjectName(QStringLiteral("content"));
    content->setStyleSheet(style.contentStyle);
    content->setMinimumSize(100, 60);
    bgLayout->addWidget(content, 1);

    connect(closeButton, SIGNAL(clicked(bool)), this, SLOT(close()));
}

QWidget *BarDialog::contentWidget() const
{
    return content;
}

QHBoxLayout *BarDialog::makeHBoxLayout(QWidget *parent, int margin, int spacing)
{
    return Orvane::makeHBoxLayout(parent == this ? content : parent, margin, spacing);
}

QVBoxLayout *BarDialog::makeVBoxLayout(QWidget *parent, int margin, int spacing)
{
    return Orvane::makeVBoxLayout(parent == this ? content : parent, margin, spacing);
}

QStackedLayout *BarDialog::makeStackedLayout(QWidget *parent)
{
    return new QStackedLayout(parent == this ? content : parent);
}

void BarDialog::setAppIcon(const QPixmap &icon)
{
    store(storedAppIcon(), icon);
}

void BarDialog::setCloseImage(const QPixmap &image)
{
    store(storedCloseImage(), image);
}

void BarDialog::setVisibleCloseButton(bool visible)
{
    if (closeButton)
        closeButton->setVisible(visible);
}

void BarDialog::setWindowTitle(const QString &text, Qt::Alignment align)
{
    if (!titleLabel)
        return;
    titleLabel->setText(text);
    titleLabel->setAlignment(align);
}

void BarDialog::showBarIcon(bool show)
{
    if (!barIconLabel || !titleLayout)
        return;
    barIconLabel->setVisible(show);
    const int margin = show ? barIconSize() + 16 : 8;
    titleLayout->setContentsMargins(margin, 0, margin, 0);
}

void BarDialog::showEvent(QShowEvent *event)
{
    // QDialog's own positioning is skipped on purpose: the dialog always
    // comes up over the main window, whatever its parent.
    Q_UNUSED(event)
    moveToCenter(this, nullptr);
}

bool BarDialog::eventFilter(QObject *watched, QEvent *event)
{
    auto *mouseEvent = dynamic_cast<QMouseEvent *>(event);
    if (mouseEvent && watched == barOverlay) {
        const bool pressed = property(pressedProperty).toBool();
        switch (mouseEvent->type()) {
        case QEvent::MouseButtonPress:
            setProperty(pressedProperty, true);
            setProperty(pressedPositionProperty, mouseGlobalPoint(mouseEvent));
            // The window's origin as the window system sees it at the press:
            // pos() can still be stale right after the window was mapped.
            setProperty(dragOriginProperty,
                        mouseGlobalPoint(mouseEvent) - barOverlay->mapTo(this, mouseLocalPosition(mouseEvent).toPoint()));
            break;
        case QEvent::MouseButtonRelease:
            setProperty(pressedProperty, false);
            break;
        case QEvent::MouseMove:
            if (pressed) {
                if (platformUsesSystemMove()) {
                    // The compositor places the window; it takes the pointer
                    // from here, so this press ends.
                    setProperty(pressedProperty, false);
                    countSystemMove();
                    if (QWindow *handle = windowHandle())
                        handle->startSystemMove();
                    break;
                }
                const QPoint globalPos = mouseGlobalPoint(mouseEvent);
                const QPoint origin = property(dragOriginProperty).toPoint() + globalPos
                    - property(pressedPositionProperty).toPoint();
                countDragMove();
                move(origin);
                setProperty(dragOriginProperty, origin);
                setProperty(pressedPositionProperty, globalPos);
            }
            break;
        default:
            break;
        }
    }
    // Never consumed: the close button on the bar still gets its clicks.
    return QDialog::eventFilter(watched, event);
}

} // namespace Orvane
