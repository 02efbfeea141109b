#include <Orvane/omessagebox.h>

#include <Orvane/dialogskinstyle.h>
#include <Orvane/helpers.h>
#include <Orvane/slicemanager.h>

#include "core/helpers_p.h"
#include "dialogs/dialogskinstyle_p.h"
#include "core/ratiopixmaps_p.h"
#include "widgets/cachedshadoweffect_p.h"

#include <QCheckBox>
#include <QCursor>
#include <QDebug>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace Orvane {

namespace {

const Qt::WindowFlags tipsFlags =
    Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint | Qt::WindowCloseButtonHint;

// A library picture recoloured to `tint`, made once per picture, colour and
// picture ratio (1x, or the @2x twin for scaled screens): every box of a
// kind on screens of one kind shows the same pixels, so they are shared.
// Kept until the process ends.
QPixmap tintedPicture(const QString &path, const QString &tint, qreal ratio)
{
    static auto *made = new QHash<QString, QPixmap>;
    const int pictureScale = pictureRatio(ratio);
    const QString key = tint + QLatin1Char('|') + QString::number(pictureScale) + QLatin1Char('|') + path;
    const auto found = made->constFind(key);
    if (found != made->constEnd())
        return *found;
    QPixmap pixmap = loadPixmapForRatio(path, ratio);
    pixmapTintColor(pixmap, tint);
    made->insert(key, pixmap);
    return pixmap;
}

QPixmap iconPicture(MessageBoxIconType icon, const QString &tint, qreal ratio)
{
    switch (icon) {
    case AppIcon:
        return SliceManager::appIcon();
    case Attention:
    case Warning:
        return tintedPicture(QStringLiteral(":/Orvane/kv_TipsAttention.png"), tint, ratio);
    case Success:
        return tintedPicture(QStringLiteral(":/Orvane/kv_TipsSuccess.png"), tint, ratio);
    }
    return QPixmap();
}

// The box of the shortcuts with one "OK" button; it deletes itself on close.
OMessageBox *newOkBox(MessageBoxIconType icon, const QString &text, const QString &heading)
{
    return new OMessageBox(icon, QStringList(OMessageBox::tr("OK")), text, heading, -1, QString(),
                           std::function<void(bool)>(), nullptr, tipsFlags);
}

} // namespace

OMessageBox::OMessageBox(MessageBoxIconType icon, QStringList buttons, const QString &text,
                         const QString &heading, int defaultButton, const QString &checkText,
                         std::function<void(bool)> onChecked, QWidget *parent, Qt::WindowFlags flags)
    : BarDialog(parent, currentDialogSkin(), flags)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setMinimumSize(480, 150);
    setAttribute(Qt::WA_DeleteOnClose);
    m_onChecked = std::move(onChecked);

    const int skin = currentDialogSkin();
    const DialogSkinStyle style = dialogSkinStyle(skin);

    // Every widget is made on the content widget, where the layouts put it
    // anyway, so nothing is reparented (and re-polished) afterwards.
    QVBoxLayout *root = makeVBoxLayout(this, 0, 0);
    root->setContentsMargins(25, 25, 25, 20);

    auto *topRow = new QHBoxLayout;
    topRow->setContentsMargins(0, 0, 0, 0);
    topRow->setSpacing(0);
    root->addLayout(topRow);

    auto *iconLabel = new QLabel(content);
    iconLabel->setObjectName(QStringLiteral("icon"));
    iconLabel->setFixedSize(48, 48);
    iconLabel->setScaledContents(true);
    const QPixmap picture = iconPicture(icon, style.iconTint, devicePixelRatioF());
    if (!picture.isNull())
        iconLabel->setPixmap(picture);
    // On a screen of another scale the picture of that ratio is shown.
    if (icon != AppIcon && !picture.isNull()) {
        new RatioWatcher(this, [iconLabel, icon, tint = style.iconTint](qreal ratio) {
            const QPixmap shown = iconLabel->pixmap(Qt::ReturnByValue);
            if (shown.devicePixelRatioF() != pictureRatio(ratio))
                iconLabel->setPixmap(iconPicture(icon, tint, ratio));
        });
    }
    topRow->addWidget(iconLabel, 0, Qt::AlignTop);
    topRow->addSpacing(25);

    auto *textColumn = new QVBoxLayout;
    textColumn->setContentsMargins(0, 0, 0, 0);
    textColumn->setSpacing(20);
    topRow->addLayout(textColumn);

    if (!heading.isEmpty()) {
        auto *headingLabel = new QLabel(heading, content);
        headingLabel->setObjectName(QStringLiteral("heading"));
        headingLabel->setWordWrap(true);
        headingLabel->setStyleSheet(style.headingStyle);
        textColumn->addWidget(headingLabel);
    }
    if (!text.isEmpty()) {
        // The line feed leaves a blank line under the message.
        auto *messageLabel = new QLabel(text + QLatin1Char('\n'), content);
        messageLabel->setObjectName(QStringLiteral("message"));
        messageLabel->setWordWrap(true);
        messageLabel->setStyleSheet(messageTextStyle(skin));
        textColumn->addWidget(messageLabel);
    }
    if (!checkText.isEmpty()) {
        auto *checkRow = new QHBoxLayout;
        textColumn->addLayout(checkRow);
        auto *checkBox = new QCheckBox(checkText, content);
        checkBox->setObjectName(QStringLiteral("check"));
        checkBox->setStyleSheet(checkBoxStyle(skin));
        checkRow->addWidget(checkBox);
        if (m_onChecked) {
            connect(checkBox, &QCheckBox::stateChanged, checkBox,
                    [callback = m_onChecked](int state) { callback(state == Qt::Checked); },
                    Qt::DirectConnection);
        }
    }

    root->addSpacing(25);

    auto *buttonRow = new QHBoxLayout;
    buttonRow->setSpacing(10);
    root->addLayout(buttonRow);
    buttonRow->addStretch();

    const QFontMetrics metrics(font());
    const int count = buttons.size();
    for (int i = 1; i <= count; ++i) {
        const QString &label = buttons.at(i - 1);
        auto *button = new QPushButton(label, content);
        button->setMinimumSize(110, 30);
        // Short labels get a uniform 100-pixel button; this overrides the
        // minimum above.
        const int w = metrics.horizontalAdvance(label);
        button->setFixedSize((w < 100 ? 82 : w) + 18, 30);
        const bool primary = i == defaultButton || (defaultButton == -1 && i == count);
        button->setStyleSheet(primary ? style.primaryButtonStyle : style.secondaryButtonStyle);
        connect(button, &QPushButton::clicked, button, [this, i] { done(i); }, Qt::DirectConnection);
        buttonRow->addWidget(button);
    }

    // The shadow lives in the transparent band; an opaque panel (no
    // compositor) has neither.
    if (testAttribute(Qt::WA_TranslucentBackground)) {
        auto *shadow = new CachedShadowEffect(this);
        shadow->setOffset(0, 0);
        shadow->setBlurRadius(30.0);
        shadow->setColor(QColor(92, 93, 102, 51));
        setGraphicsEffect(shadow);
    }
    updateGeometry();
}

OMessageBox::~OMessageBox()
{
    qDebug("~OMessageBox");
    m_onChecked = nullptr;
}

void OMessageBox::showEvent(QShowEvent *event)
{
    // What BarDialog::showEvent() does, with the main window looked for once.
    Q_UNUSED(event)
    if (QWidget *mainWindow = findMainWindow())
        centreOver(this, mainWindow);
    else
        // With no main window to centre over, the box comes up where the
        // user looks: centred on the screen under the pointer.
        centreOnScreenAt(this, QCursor::pos());
}

int OMessageBox::popupTips(MessageBoxIconType icon, const QString &text, const QString &heading)
{
    return newOkBox(icon, text, heading)->exec();
}

int OMessageBox::popupTips(MessageBoxIconType icon, const QStringList &buttons, const QString &text,
                           const QString &heading, int defaultButton, const QString &checkText,
                           std::function<void(bool)> onChecked)
{
    auto *box = new OMessageBox(icon, buttons, text, heading, defaultButton, checkText, std::move(onChecked),
                                nullptr, tipsFlags);
    return box->exec();
}

void OMessageBox::showTips(MessageBoxIconType icon, const QString &text, const QString &heading)
{
    newOkBox(icon, text, heading)->show();
}

} // namespace Orvane
