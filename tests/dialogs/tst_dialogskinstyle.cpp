#include <Orvane/dialogskinstyle.h>

#include <QtTest>

#include <climits>

using Orvane::DialogSkinStyle;

namespace {

// The expected values, written out once here for the whole test.
const QString lightTitle = QStringLiteral("QLabel{font: 14px;}");
const QString darkTitle = QStringLiteral("QLabel{font: 14px; color: #979798;}");
const QString lightBar = QStringLiteral(".QWidget#bar{background-color:white; border: 1px solid #EEEEEE;border-top-left-radius: 6px; border-top-right-radius: 6px;}");
const QString darkBar = QStringLiteral(".QWidget#bar{background-color:#2E2F30; border: 1px solid #0F0F10;border-top-left-radius: 6px; border-top-right-radius: 6px;}");
const QString lightOverlay = QStringLiteral(".QWidget#bar{background-color:transparent; border: 1px solid #EEEEEE;border-top-left-radius: 6px; border-top-right-radius: 6px;}");
const QString darkOverlay = QStringLiteral(".QWidget#bar{background-color:transparent; border: 1px solid #0F0F10;border-top-left-radius: 6px; border-top-right-radius: 6px;}");
const QString lightClose = QStringLiteral("QPushButton{image: url(:/Orvane/qm_DlgCloseBtn.png); border-radius: 2px;}QPushButton:hover{background-color:red;}");
const QString darkClose = QStringLiteral("QPushButton{image: url(:/Orvane/kv_DlgCloseBtn.png); border-radius: 2px;}QPushButton:hover{image: url(:/Orvane/kv_DlgCloseBtn_hover.png); background-color:#3B3C3D;}");
const QString lightContent = QStringLiteral(".QWidget#content{background-color:white; border: 1px solid #EEEEEE;border-top:0px; border-bottom-left-radius: 6px; border-bottom-right-radius:6px;}");
const QString darkContent = QStringLiteral(".QWidget#content{background-color:#2E2F30; border: 1px solid #0F0F10;border-top:0px; border-bottom-left-radius: 6px; border-bottom-right-radius:6px;}");

// The button colours that failed a 4.5:1 contrast with their text are the
// nearest shades of the same hue that pass.
const QString lightPrimary = QStringLiteral(
    "QPushButton{border:0px; border-radius: 15; font-size: 13px;color: #FFFFFF;background-color: qlineargradient(x1:0 y1:0, x2:1 y2:0, stop:0 #2B68FF, stop:1 #884DFF);}"
    "QPushButton:hover{background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 #2D68FF, stop:1 #884DFF);}"
    "QPushButton:pressed{background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 #3C6DE7, stop:1 #8757E7);}");
const QString lightSecondary = QStringLiteral(
    "QPushButton{border:1px solid #2B68FF; border-radius: 15; font-size: 13px;color: #2B68FF;background-color: qlineargradient(x1:0 y1:0, x2:1 y2:0, stop:0 #00FFFFFF, stop:1 #00FFFFFF);}"
    "QPushButton:hover{border:0px;background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 #2D68FF, stop:1 #884DFF);color: #FFFFFF;}"
    "QPushButton:pressed{border:0px;background-color: qlineargradient( x1:0 y1:0, x2:1 y2:0, stop:0 #3C6DE7, stop:1 #8757E7);color: #FFFFFF;}");
const QString darkPrimary = QStringLiteral(".QPushButton{font: 13px; border-radius: 1; color: white; background-color: #6C5AFF;}");
const QString darkSecondary = QStringLiteral(
    ".QPushButton{font: 13px; border:1px solid #9588FF; border-radius: 1; color: #9588FF; background-color: #00FFFFFF;}"
    ".QPushButton:pressed{color: white; background-color: #6C5AFF;}");
const QString skin3Primary = QStringLiteral("QPushButton{border:0px; border-radius: 0; font-size: 13px;color: #FFFFFF; background-color: #006BFF;}");
const QString skin3Secondary = QStringLiteral(".QPushButton{font: 13px; border:1px solid #006BFF; border-radius: 1; color: #006BFF; background-color: #00FFFFFF;}");
const QString skin4Primary = QStringLiteral("QPushButton{border:0px; border-radius: 4; font-size: 13px;color: #FFFFFF; background-color: #6D5AFF;}");
const QString skin4Secondary = QStringLiteral(".QPushButton{font: 13px; border: 1px solid #6D5AFF; border-radius: 4; color: #6D5AFF;}");
const QString lightHeading = QStringLiteral(".QLabel{font: 14px; font-weight: bold; color: black;}");
const QString darkHeading = QStringLiteral(".QLabel{font: 14px; font-weight: bold; color: #E3E3E3;}");

} // namespace

class tst_DialogSkinStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void currentSkinStartsDark();
    void setCurrentSkin_data();
    void setCurrentSkin();
    void barFields_data();
    void barFields();
    void messageBoxFields_data();
    void messageBoxFields();
    void defaultRecordIsLight();
    void recordsAreIndependentCopies();
};

void tst_DialogSkinStyle::currentSkinStartsDark()
{
    // Runs first: nothing has set the skin yet.
    QCOMPARE(Orvane::currentDialogSkin(), 2);
}

void tst_DialogSkinStyle::setCurrentSkin_data()
{
    QTest::addColumn<int>("skin");
    QTest::newRow("light") << 0;
    QTest::newRow("dark") << 2;
    QTest::newRow("skin 3") << 3;
    QTest::newRow("negative") << -7;
    QTest::newRow("huge") << INT_MAX;
}

void tst_DialogSkinStyle::setCurrentSkin()
{
    QFETCH(int, skin);
    Orvane::setCurrentDialogSkin(skin);
    QCOMPARE(Orvane::currentDialogSkin(), skin);
    Orvane::setCurrentDialogSkin(2);
    QCOMPARE(Orvane::currentDialogSkin(), 2);
}

void tst_DialogSkinStyle::barFields_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<bool>("dark");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << false;
    QTest::newRow("2") << 2 << true;
    QTest::newRow("3") << 3 << false;
    QTest::newRow("4") << 4 << false;
    QTest::newRow("7") << 7 << false;
    QTest::newRow("-1") << -1 << false;
    QTest::newRow("INT_MIN") << INT_MIN << false;
    QTest::newRow("INT_MAX") << INT_MAX << false;
}

void tst_DialogSkinStyle::barFields()
{
    QFETCH(int, skin);
    QFETCH(bool, dark);
    const DialogSkinStyle s = Orvane::dialogSkinStyle(skin);
    QCOMPARE(s.barHeight, 28);
    QCOMPARE(s.closeButtonSize, 24);
    QCOMPARE(s.barIconSize, 16);
    QCOMPARE(s.titleStyle, dark ? darkTitle : lightTitle);
    QCOMPARE(s.barStyle, dark ? darkBar : lightBar);
    QCOMPARE(s.barOverlayStyle, dark ? darkOverlay : lightOverlay);
    QCOMPARE(s.closeButtonStyle, dark ? darkClose : lightClose);
    QCOMPARE(s.contentStyle, dark ? darkContent : lightContent);
    QCOMPARE(s.dialogBackground, dark ? QStringLiteral("#2E2F30") : QString());
    QCOMPARE(s.dialogBackground.isEmpty(), !dark);
}

void tst_DialogSkinStyle::messageBoxFields_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<QString>("primary");
    QTest::addColumn<QString>("secondary");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QString>("tint");
    QTest::newRow("light 0") << 0 << lightPrimary << lightSecondary << lightHeading << QString();
    QTest::newRow("light 1") << 1 << lightPrimary << lightSecondary << lightHeading << QString();
    QTest::newRow("light -3") << -3 << lightPrimary << lightSecondary << lightHeading << QString();
    QTest::newRow("dark") << 2 << darkPrimary << darkSecondary << darkHeading << QStringLiteral("#E3E3E3");
    QTest::newRow("skin 3") << 3 << skin3Primary << skin3Secondary << lightHeading << QString();
    QTest::newRow("skin 4") << 4 << skin4Primary << skin4Secondary << lightHeading << QString();
    QTest::newRow("skin 5") << 5 << lightPrimary << lightSecondary << lightHeading << QString();
}

void tst_DialogSkinStyle::messageBoxFields()
{
    QFETCH(int, skin);
    QFETCH(QString, primary);
    QFETCH(QString, secondary);
    QFETCH(QString, heading);
    QFETCH(QString, tint);
    const DialogSkinStyle s = Orvane::dialogSkinStyle(skin);
    QCOMPARE(s.primaryButtonStyle, primary);
    QCOMPARE(s.secondaryButtonStyle, secondary);
    QCOMPARE(s.headingStyle, heading);
    QCOMPARE(s.iconTint, tint);
    QCOMPARE(s.iconTint.isEmpty(), skin != 2);
}

void tst_DialogSkinStyle::defaultRecordIsLight()
{
    const DialogSkinStyle s;
    QCOMPARE(s.primaryButtonStyle, lightPrimary);
    QCOMPARE(s.secondaryButtonStyle, lightSecondary);
    QCOMPARE(s.headingStyle, lightHeading);
    QVERIFY(s.iconTint.isEmpty());
    QCOMPARE(s.barHeight, 28);
    QCOMPARE(s.closeButtonSize, 24);
    QCOMPARE(s.barIconSize, 16);
    QCOMPARE(s.titleStyle, lightTitle);
    QCOMPARE(s.barStyle, lightBar);
    QCOMPARE(s.barOverlayStyle, lightOverlay);
    QCOMPARE(s.closeButtonStyle, lightClose);
    QCOMPARE(s.contentStyle, lightContent);
    QVERIFY(s.dialogBackground.isEmpty());
}

void tst_DialogSkinStyle::recordsAreIndependentCopies()
{
    // A caller changing its copy does not change what the next caller gets.
    DialogSkinStyle s = Orvane::dialogSkinStyle(2);
    s.barHeight = 99;
    s.barStyle.clear();
    s.dialogBackground = QStringLiteral("#FFFFFF");
    const DialogSkinStyle again = Orvane::dialogSkinStyle(2);
    QCOMPARE(again.barHeight, 28);
    QCOMPARE(again.barStyle, darkBar);
    QCOMPARE(again.dialogBackground, QStringLiteral("#2E2F30"));
}

QTEST_GUILESS_MAIN(tst_DialogSkinStyle)
#include "tst_dialogskinstyle.moc"
