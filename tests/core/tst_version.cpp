#include <Orvane/orvanecore.h>

#include <QCoreApplication>
#include <QtTest>

#include <cstring>

class tst_Version : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gitVersionIsTheRevisionInParentheses();
    void libraryVersion();
    void appVersion_data();
    void appVersion();
    void appVersionIsReadOnEveryCall();
};

void tst_Version::gitVersionIsTheRevisionInParentheses()
{
    const char *revision = gitVersion();
    QVERIFY(revision);
    QCOMPARE(QString::fromLatin1(revision), QStringLiteral("(" ORVANE_TEST_REVISION ")"));
    QCOMPARE(gitVersion(), revision); // static storage, the same every time
    QVERIFY(std::strlen(revision) > 2);
}

void tst_Version::libraryVersion()
{
    QCOMPARE(Orvane::orvaneLibVersion(), QStringLiteral("1.0.0(" ORVANE_TEST_REVISION ")"));
    QCOMPARE(Orvane::orvaneLibVersion(), QStringLiteral("1.0.0") + QLatin1String(gitVersion()));
}

void tst_Version::appVersion_data()
{
    QTest::addColumn<QString>("applicationVersion");
    QTest::addColumn<QString>("expected");
    // The third of four fields is skipped, as in the Windows version record.
    QTest::newRow("3.1.0.25") << "3.1.0.25" << "3.1.25";
    QTest::newRow("2.0.7.0") << "2.0.7.0" << "2.0.0";
    QTest::newRow("1.2.3.4") << "1.2.3.4" << "1.2.4";
    QTest::newRow("empty stays empty") << "" << "";
    QTest::newRow("one number") << "4" << "4.0.0";
    QTest::newRow("two numbers") << "1.5" << "1.5.0";
    QTest::newRow("three numbers") << "2.0.7" << "2.0.0";
    QTest::newRow("five numbers") << "1.2.3.4.5" << "1.2.4";
    QTest::newRow("leading zeros dropped") << "01.02.0.09" << "1.2.9";
    QTest::newRow("suffix after digits") << "1.2.0.3-beta" << "1.2.3";
    QTest::newRow("not a number") << "x.y" << "0.0.0";
    QTest::newRow("16-bit fields") << "65536.65537.0.65535" << "0.1.65535";
}

void tst_Version::appVersion()
{
    QFETCH(QString, applicationVersion);
    QFETCH(QString, expected);
    QCoreApplication::setApplicationVersion(applicationVersion);
    QCOMPARE(Orvane::getAppVersion(), expected);
}

void tst_Version::appVersionIsReadOnEveryCall()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0.1"));
    QCOMPARE(Orvane::getAppVersion(), QStringLiteral("1.0.1"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0.2"));
    QCOMPARE(Orvane::getAppVersion(), QStringLiteral("1.0.2"));
}

QTEST_GUILESS_MAIN(tst_Version)
#include "tst_version.moc"
