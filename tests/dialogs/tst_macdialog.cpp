#include <Orvane/macdialog.h>

#include <QApplication>
#include <QtTest>

#include <climits>

using Orvane::MacDialog;

class tst_MacDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void className();
    void styleSheetPerSkin_data();
    void styleSheetPerSkin();
    void flagsHonouredAndStaysOnTop_data();
    void flagsHonouredAndStaysOnTop();
    void parentKept();
    void darkBackgroundPainted();
    void notMovedOnShow();
};

void tst_MacDialog::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_MacDialog::className()
{
    MacDialog dialog(nullptr, 2, Qt::Dialog);
    QCOMPARE(dialog.metaObject()->className(), "Orvane::MacDialog");
    QVERIFY(qobject_cast<QDialog *>(&dialog));
}

void tst_MacDialog::styleSheetPerSkin_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<QString>("styleSheet");
    QTest::newRow("0") << 0 << QString();
    QTest::newRow("1") << 1 << QString();
    QTest::newRow("2") << 2 << QStringLiteral("QDialog{background: #2E2F30; border-top:1px solid #0F0F10;}");
    QTest::newRow("3") << 3 << QString();
    QTest::newRow("4") << 4 << QString();
    QTest::newRow("-1") << -1 << QString();
    QTest::newRow("INT_MAX") << INT_MAX << QString();
}

void tst_MacDialog::styleSheetPerSkin()
{
    QFETCH(int, skin);
    QFETCH(QString, styleSheet);
    MacDialog dialog(nullptr, skin, Qt::Dialog);
    QCOMPARE(dialog.styleSheet(), styleSheet);
    QVERIFY(dialog.autoFillBackground());
    QVERIFY(!dialog.testAttribute(Qt::WA_TranslucentBackground));
}

void tst_MacDialog::flagsHonouredAndStaysOnTop_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("expected");
    QTest::newRow("dialog") << int(Qt::Dialog) << int(Qt::Dialog | Qt::WindowStaysOnTopHint);
    QTest::newRow("frameless window") << int(Qt::Window | Qt::FramelessWindowHint)
                                      << int(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    QTest::newRow("tool with title")
        << int(Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
        << int(Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint);
    QTest::newRow("already on top") << int(Qt::Dialog | Qt::WindowStaysOnTopHint)
                                    << int(Qt::Dialog | Qt::WindowStaysOnTopHint);
}

void tst_MacDialog::flagsHonouredAndStaysOnTop()
{
    QFETCH(int, flags);
    QFETCH(int, expected);
    MacDialog dialog(nullptr, 0, Qt::WindowFlags(flags));
    const Qt::WindowFlags got = dialog.windowFlags();
    QCOMPARE(got & Qt::WindowType_Mask, Qt::WindowFlags(expected) & Qt::WindowType_Mask);
    // Qt adds its own default decoration hints to a dialog given none; every
    // flag asked for, and the stay-on-top hint, must be there.
    QCOMPARE(got & Qt::WindowFlags(expected), Qt::WindowFlags(expected));
    QVERIFY(got.testFlag(Qt::WindowStaysOnTopHint));
    // Exactly what Qt makes of the caller's flags plus stay-on-top.
    const QDialog reference(nullptr, Qt::WindowFlags(expected));
    QCOMPARE(got, reference.windowFlags());
}

void tst_MacDialog::parentKept()
{
    QWidget host;
    auto *dialog = new MacDialog(&host, 2, Qt::Dialog);
    QCOMPARE(dialog->parentWidget(), &host);
    QVERIFY(dialog->isWindow());
}

void tst_MacDialog::darkBackgroundPainted()
{
    MacDialog dialog(nullptr, 2, Qt::Dialog);
    dialog.resize(120, 80);
    const QImage image = dialog.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    const QColor middle = image.pixelColor(60, 40);
    QCOMPARE(middle.name(), QStringLiteral("#2e2f30"));
    QCOMPARE(middle.alpha(), 255);

    MacDialog light(nullptr, 0, Qt::Dialog);
    light.resize(120, 80);
    const QImage lightImage = light.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    QVERIFY(lightImage.pixelColor(60, 40) != QColor(0x2E, 0x2F, 0x30));
}

void tst_MacDialog::notMovedOnShow()
{
    MacDialog dialog(nullptr, 2, Qt::Dialog);
    dialog.resize(200, 100);
    dialog.move(37, 53);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.pos(), QPoint(37, 53));
    dialog.close();
}

QTEST_MAIN(tst_MacDialog)
#include "tst_macdialog.moc"
