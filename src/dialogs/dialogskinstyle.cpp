#include <Orvane/dialogskinstyle.h>

#include "dialogs/dialogskinstyle_p.h"

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
        .arg(QStringLiteral("#2B68FF"), QStringLiteral("#884DFF"), QStringLiteral("#2D68FF"),
             QStringLiteral("#884DFF"), QStringLiteral("#3C6DE7"), QStringLiteral("#8757E7"));
}

// A transparent button with a blue ring that fills with the gradient on hover.
QString lightSecondaryButtonStyle()
{
    return QStringLiteral(
               "QPushButton{border:1px solid %7; border-radius: 15; font-size: 13px;color: #2B68FF;background-color: qlineargradient(x1:0 y1:0, x2:1 y2:0, stop:0 %1, stop:1 %2);}"
               "QPushButton:hover{border:0px;background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 %3, stop:1 %4);color: #FFFFFF;}"
               "QPushButton:pressed{border:0px;background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 %5, stop:1 %6);color: #FFFFFF;}")
        .arg(QStringLiteral("#00FFFFFF"), QStringLiteral("#00FFFFFF"), QStringLiteral("#2D68FF"),
             QStringLiteral("#884DFF"), QStringLiteral("#3C6DE7"), QStringLiteral("#8757E7"),
             QStringLiteral("#2B68FF"));
}

DialogSkinStyle makeDarkSkin()
{
    DialogSkinStyle s;
    s.primaryButtonStyle = QStringLiteral(
        ".QPushButton{font: 13px; border-radius: 1; color: white; background-color: #6C5AFF;}");
    s.secondaryButtonStyle = QStringLiteral(
        ".QPushButton{font: 13px; border:1px solid #9588FF; border-radius: 1; color: #9588FF; background-color: #00FFFFFF;}"
        ".QPushButton:pressed{color: white; background-color: #6C5AFF;}");
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
            QStringLiteral("QPushButton{border:0px; border-radius: 0; font-size: 13px;color: #FFFFFF; background-color: #006BFF;}"),
            QStringLiteral(".QPushButton{font: 13px; border:1px solid #006BFF; border-radius: 1; color: #006BFF; background-color: #00FFFFFF;}"));
        return skin3;
    }
    case 4: {
        static const DialogSkinStyle skin4 = makeLightSkin(
            QStringLiteral("QPushButton{border:0px; border-radius: 4; font-size: 13px;color: #FFFFFF; background-color: #6D5AFF;}"),
            QStringLiteral(".QPushButton{font: 13px; border: 1px solid #6D5AFF; border-radius: 4; color: #6D5AFF;}"));
        return skin4;
    }
    default: {
        static const DialogSkinStyle light;
        return light;
    }
    }
}

DialogSkinStyle opaqueDialogSkinStyle(int skin)
{
    // Later declarations win in Qt's style sheets: the corners turn square.
    DialogSkinStyle s = dialogSkinStyle(skin);
    const QString squareBar = QStringLiteral(
        ".QWidget#bar{border-top-left-radius: 0px; border-top-right-radius: 0px;}");
    s.barStyle += squareBar;
    s.barOverlayStyle += squareBar;
    s.contentStyle += QStringLiteral(
        ".QWidget#content{border-bottom-left-radius: 0px; border-bottom-right-radius: 0px;}");
    return s;
}

QString messageTextStyle(int skin)
{
    return skin == 2 ? QStringLiteral("QLabel {     font: 14px; color: #CCCCCC;}")
                     : QStringLiteral("QLabel {     font: 14px; color: #333333;}");
}

QString checkBoxStyle(int skin)
{
    return QStringLiteral(
               "QCheckBox {\n    spacing: 10px;    font: 12px; color:%1;\n}\n\n"
               "QCheckBox::indicator {\n    width: 16px;\n    height: 16px;\n}\n\n"
               "QCheckBox::indicator:unchecked {\n    image: url(:/Orvane/checkbox_0);\n}\n\n"
               "QCheckBox::indicator:checked {\n    image: url(:/Orvane/checkbox_1);\n}")
        .arg(skin == 2 ? QStringLiteral("#AAAAAA") : QStringLiteral("#666666"));
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
