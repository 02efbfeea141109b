#include <Orvane/dialogskinstyle.h>

// Every style sheet and colour of the dialog skins lives in this file.

namespace Orvane {

namespace {

// Three rules joined: normal, hover and pressed, each a horizontal gradient.
QString lightPrimaryButtonStyle()
{
    return QStringLiteral(
               "QPushButton{border:0px; border-radius: 15; font-size: 13px;color: #FFFFFF;background-color: qlineargradient(x1:0 y1:0, x2:1 y2:0, stop:0 %1, stop:1 %2);}"
               "QPushButton:hover{background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 %3, stop:1 %4);}"
               "QPushButton:pressed{background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 %5, stop:1 %6);}")
        .arg(QStringLiteral("#5C8BFF"), QStringLiteral("#9A68FF"), QStringLiteral("#80A4FF"),
             QStringLiteral("#BB99FF"), QStringLiteral("#4D7AE9"), QStringLiteral("#976EEA"));
}

// A transparent button with a blue ring that fills with the gradient on hover.
QString lightSecondaryButtonStyle()
{
    return QStringLiteral(
               "QPushButton{border:1px solid %7; border-radius: 15; font-size: 13px;color: #5C8BFF;background-color: qlineargradient(x1:0 y1:0, x2:1 y2:0, stop:0 %1, stop:1 %2);}"
               "QPushButton:hover{border:0px;background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 %3, stop:1 %4);color: #FFFFFF;}"
               "QPushButton:pressed{border:0px;background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 %5, stop:1 %6);color: #FFFFFF;}")
        .arg(QStringLiteral("#00FFFFFF"), QStringLiteral("#00FFFFFF"), QStringLiteral("#80A4FF"),
             QStringLiteral("#BB99FF"), QStringLiteral("#4D7AE9"), QStringLiteral("#976EEA"),
             QStringLiteral("#5C8BFF"));
}

DialogSkinStyle makeDarkSkin()
{
    DialogSkinStyle s;
    s.primaryButtonStyle = QStringLiteral(
        ".QPushButton{font: 13px; border-radius: 1; color: white; background-color: #8273FF;}");
    s.secondaryButtonStyle = QStringLiteral(
        ".QPushButton{font: 13px; border:1px solid #8273FF; border-radius: 1; color: #8273FF; background-color: #00FFFFFF;}"
        ".QPushButton:pressed{color: white; background-color: #8273FF;}");
    s.headingStyle = QStringLiteral(".QLabel{font: 14px; font-weight: bold; color: #E3E3E3;}");
    s.iconTint = QStringLiteral("#E3E3E3");
    s.titleStyle = QStringLiteral("QLabel{font: 14px; color: #979798;}");
    s.barStyle = QStringLiteral(
        ".QWidget#bar{background-color:#2E2F30; border: 1px solid #0F0F10;border-top-left-radius: 6px; border-top-right-radius: 6px;}");
    s.barOverlayStyle = QStringLiteral(
        ".QWidget#bar{background-color:transparent; border: 1px solid #0F0F10;border-top-left-radius: 6px; border-top-right-radius: 6px;}");
    s.closeButtonStyle = QStringLiteral(
        "QPushButton{image: url(:/Orvane/kv_DlgCloseBtn.png); border-radius: 2px;}"
        "QPushButton:hover{image: url(:/Orvane/kv_DlgCloseBtn_hover.png); background-color:#3B3C3D;}");
    s.contentStyle = QStringLiteral(
        ".QWidget#content{background-color:#2E2F30; border: 1px solid #0F0F10;border-top:0px; border-bottom-left-radius: 6px; border-bottom-right-radius:6px;}");
    s.dialogBackground = QStringLiteral("#2E2F30");
    return s;
}

// Skins 3 and 4: the light skin with other message-box buttons.
DialogSkinStyle makeLightSkin(const QString &primaryButtonStyle, const QString &secondaryButtonStyle)
{
    DialogSkinStyle s;
    s.primaryButtonStyle = primaryButtonStyle;
    s.secondaryButtonStyle = secondaryButtonStyle;
    return s;
}

int &currentSkin()
{
    static int skin = 2;
    return skin;
}

} // namespace

DialogSkinStyle::DialogSkinStyle()
    : primaryButtonStyle(lightPrimaryButtonStyle())
    , secondaryButtonStyle(lightSecondaryButtonStyle())
    , headingStyle(QStringLiteral(".QLabel{font: 14px; font-weight: bold; color: black;}"))
    , barHeight(28)
    , closeButtonSize(24)
    , barIconSize(16)
    , titleStyle(QStringLiteral("QLabel{font: 14px;}"))
    , barStyle(QStringLiteral(
          ".QWidget#bar{background-color:white; border: 1px solid #EEEEEE;border-top-left-radius: 6px; border-top-right-radius: 6px;}"))
    , barOverlayStyle(QStringLiteral(
          ".QWidget#bar{background-color:transparent; border: 1px solid #EEEEEE;border-top-left-radius: 6px; border-top-right-radius: 6px;}"))
    , closeButtonStyle(QStringLiteral(
          "QPushButton{image: url(:/Orvane/qm_DlgCloseBtn.png); border-radius: 2px;}QPushButton:hover{background-color:red;}"))
    , contentStyle(QStringLiteral(
          ".QWidget#content{background-color:white; border: 1px solid #EEEEEE;border-top:0px; border-bottom-left-radius: 6px; border-bottom-right-radius:6px;}"))
{
}

DialogSkinStyle dialogSkinStyle(int skin)
{
    // Built once each; every dialog then copies shared strings.
    switch (skin) {
    case 2: {
        static const DialogSkinStyle dark = makeDarkSkin();
        return dark;
    }
    case 3: {
        static const DialogSkinStyle skin3 = makeLightSkin(
            QStringLiteral("QPushButton{border:0px; border-radius: 0; font-size: 13px;color: #FFFFFF; background-color: #2782FF;}"),
            QStringLiteral(".QPushButton{font: 13px; border:1px solid #2782FF; border-radius: 1; color: #2782FF; background-color: #00FFFFFF;}"));
        return skin3;
    }
    case 4: {
        static const DialogSkinStyle skin4 = makeLightSkin(
            QStringLiteral("QPushButton{border:0px; border-radius: 4; font-size: 13px;color: #FFFFFF; background-color: #8372FF;}"),
            QStringLiteral(".QPushButton{font: 13px; border: 1px solid #8372FF; border-radius: 4; color: #8372FF;}"));
        return skin4;
    }
    default: {
        static const DialogSkinStyle light;
        return light;
    }
    }
}

int currentDialogSkin()
{
    return currentSkin();
}

void setCurrentDialogSkin(int skin)
{
    currentSkin() = skin;
}

} // namespace Orvane
