#include <Orvane/orvanelinks.h>
#include <Orvane/orvanelocale.h>
#include <Orvane/version.h>

#include "links/rdxurl_p.h"
#include "../locale/privatesettings.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>
#include <QUrlQuery>
#include <QtTest>

Q_DECLARE_METATYPE(Orvane::RdxUrlCategory)

// No browser is ever started: URLs handed to the desktop services are caught
// by this test's handler.
class tst_RdxUrl : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void catchUrl(const QUrl &url) { m_opened.append(url); }

private:
    static QString url(const char *query)
    {
        return QLatin1String("http://" ORVANE_TEST_RDX_HOST "/go?") + QLatin1String(query);
    }
    static void setPack(const QString &pack) { QSettings().setValue(QStringLiteral("Language"), pack); }

    QTemporaryDir m_settingsDir;
    QList<QUrl> m_opened;

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void categoryValues_data();
    void categoryValues();
    void codeTable_data();
    void codeTable();
    void openedUrlIsTheBuiltOne_data();
    void openedUrlIsTheBuiltOne();
    void urlHasTheEndpointsShape();
    void categories3And4GiveTheSameUrl();
    void categoryOutsideTheTableHasNoCode_data();
    void categoryOutsideTheTableHasNoCode();
    void codesAreRewrittenOnEveryAccess();
    void categoryMapHasNoLastingEffect_data();
    void categoryMapHasNoLastingEffect();

    void pidOfTheCurrentPack();
    void missingPackGetsPidZero();
    void pidFollowsTheSystemWithoutAStoredPack();
    void pidMapIsReplacedWhole();

    void launchRule_data();
    void launchRule();
    void upgradeOpensOnce();
    void firstLaunchOpensOnce();
#ifndef Q_OS_WIN
    // A Windows executable with its version resource always has a version.
    void unknownAppVersionIsAlwaysAFirstLaunch();
#endif
};

void tst_RdxUrl::initTestCase()
{
    QVERIFY(m_settingsDir.isValid());
    QVERIFY(usePrivateSettings(QStringLiteral("tst_rdxurl"), m_settingsDir.path()));
    QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "catchUrl");
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "catchUrl");
}

void tst_RdxUrl::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
}

void tst_RdxUrl::init()
{
    QSettings().clear();
    Orvane::setRdxPIDMap({});
    QCoreApplication::setApplicationVersion(QString());
    m_opened.clear();
}

void tst_RdxUrl::categoryValues_data()
{
    QTest::addColumn<Orvane::RdxUrlCategory>("category");
    QTest::addColumn<int>("value");
    QTest::newRow("Category0") << Orvane::Category0 << 0;
    QTest::newRow("Category9") << Orvane::Category9 << 9;
    QTest::newRow("FirstLaunch") << Orvane::FirstLaunch << 10;
    QTest::newRow("UpgradeLaunch") << Orvane::UpgradeLaunch << 11;
    QTest::newRow("Category12") << Orvane::Category12 << 12;
}

void tst_RdxUrl::categoryValues()
{
    QFETCH(Orvane::RdxUrlCategory, category);
    QFETCH(int, value);
    QCOMPARE(int(category), value);
}

void tst_RdxUrl::codeTable_data()
{
    QTest::addColumn<Orvane::RdxUrlCategory>("category");
    QTest::addColumn<QString>("expected");
    QTest::newRow("0 db") << Orvane::Category0 << url("pid=1234&a=db");
    QTest::newRow("1 g") << Orvane::Category1 << url("pid=1234&a=g");
    QTest::newRow("2 r") << Orvane::Category2 << url("pid=1234&a=r");
    QTest::newRow("3 ds") << Orvane::Category3 << url("pid=1234&a=ds");
    QTest::newRow("4 ds") << Orvane::Category4 << url("pid=1234&a=ds");
    QTest::newRow("5 do") << Orvane::Category5 << url("pid=1234&a=do");
    QTest::newRow("6 c3") << Orvane::Category6 << url("pid=1234&a=c3");
    QTest::newRow("7 dh") << Orvane::Category7 << url("pid=1234&a=dh");
    QTest::newRow("8 dp") << Orvane::Category8 << url("pid=1234&a=dp");
    QTest::newRow("9 no code") << Orvane::Category9 << url("pid=1234&a=");
    QTest::newRow("10 i") << Orvane::FirstLaunch << url("pid=1234&a=i");
    QTest::newRow("11 u") << Orvane::UpgradeLaunch << url("pid=1234&a=u");
    QTest::newRow("12 c1") << Orvane::Category12 << url("pid=1234&a=c1");
}

void tst_RdxUrl::codeTable()
{
    QFETCH(Orvane::RdxUrlCategory, category);
    QFETCH(QString, expected);
    Orvane::setRdxPIDMap({{QStringLiteral("French"), 1234}});
    Orvane::setCurrentLocale(QLocale(QLocale::French, QLocale::France));
    QCOMPARE(Orvane::buildRdxUrl(category), expected);
    QVERIFY(m_opened.isEmpty());
}

void tst_RdxUrl::openedUrlIsTheBuiltOne_data()
{
    codeTable_data();
}

void tst_RdxUrl::openedUrlIsTheBuiltOne()
{
    QFETCH(Orvane::RdxUrlCategory, category);
    QFETCH(QString, expected);
    Orvane::setRdxPIDMap({{QStringLiteral("French"), 1234}});
    setPack(QStringLiteral("French"));
    Orvane::openRdxUrl(category);
    QCOMPARE(m_opened, QList<QUrl>{QUrl(expected, QUrl::TolerantMode)});
    QCOMPARE(m_opened.first().toString(), expected);
    // Opening a page stores nothing.
    QCOMPARE(QSettings().allKeys(), QStringList{QStringLiteral("Language")});
}

void tst_RdxUrl::urlHasTheEndpointsShape()
{
    Orvane::setRdxPIDMap({{QStringLiteral("zh_CN"), 77}});
    setPack(QStringLiteral("zh_CN"));
    Orvane::openRdxUrl(Orvane::Category6);
    QCOMPARE(m_opened.size(), 1);
    const QUrl opened = m_opened.first();
    QVERIFY(opened.isValid());
    QCOMPARE(opened.scheme(), QStringLiteral("http"));
    QCOMPARE(opened.authority(), QStringLiteral(ORVANE_TEST_RDX_HOST));
    QCOMPARE(opened.path(), QStringLiteral("/go"));
    const QUrlQuery query(opened);
    QCOMPARE(query.queryItems().size(), 2);
    QCOMPARE(query.queryItemValue(QStringLiteral("pid")), QStringLiteral("77"));
    QCOMPARE(query.queryItemValue(QStringLiteral("a")), QStringLiteral("c3"));
}

void tst_RdxUrl::categories3And4GiveTheSameUrl()
{
    Orvane::setRdxPIDMap({{QStringLiteral("German"), 5}});
    setPack(QStringLiteral("German"));
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category3), Orvane::buildRdxUrl(Orvane::Category4));
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category4), url("pid=5&a=ds"));
}

void tst_RdxUrl::categoryOutsideTheTableHasNoCode_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("-1") << -1;
    QTest::newRow("13") << 13;
    QTest::newRow("1000") << 1000;
}

void tst_RdxUrl::categoryOutsideTheTableHasNoCode()
{
    QFETCH(int, value);
    const auto category = static_cast<Orvane::RdxUrlCategory>(value);
    setPack(QStringLiteral("French"));
    QVERIFY(!Orvane::rdxUrlCodeMap().contains(category));
    QCOMPARE(Orvane::buildRdxUrl(category), url("pid=0&a="));
    // The inserting lookup left an empty code behind.
    QVERIFY(Orvane::rdxUrlCodeMap().contains(category));
    QCOMPARE(Orvane::rdxUrlCodeMap().value(category), QString());
    Orvane::openRdxUrl(category);
    QCOMPARE(m_opened, QList<QUrl>{QUrl(url("pid=0&a="))});
}

void tst_RdxUrl::codesAreRewrittenOnEveryAccess()
{
    setPack(QStringLiteral("French"));
    Orvane::rdxUrlCodeMap()[Orvane::Category1] = QStringLiteral("x");
    Orvane::rdxUrlCodeMap()[Orvane::Category9] = QStringLiteral("y");
    // Category9 has no default, so a value written into the table stays.
    QCOMPARE(Orvane::rdxUrlCodeMap().value(Orvane::Category1), QStringLiteral("g"));
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category1), url("pid=0&a=g"));
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category9), url("pid=0&a=y"));
    Orvane::rdxUrlCodeMap().remove(Orvane::Category9);
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category9), url("pid=0&a="));
}

void tst_RdxUrl::categoryMapHasNoLastingEffect_data()
{
    QTest::addColumn<Orvane::RdxUrlCategory>("category");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Category1 -> x") << Orvane::Category1 << url("pid=0&a=g");
    QTest::newRow("Category9 -> x") << Orvane::Category9 << url("pid=0&a=");
    QTest::newRow("FirstLaunch -> x") << Orvane::FirstLaunch << url("pid=0&a=i");
    QTest::newRow("13 -> x") << static_cast<Orvane::RdxUrlCategory>(13) << url("pid=0&a=");
}

void tst_RdxUrl::categoryMapHasNoLastingEffect()
{
    QFETCH(Orvane::RdxUrlCategory, category);
    QFETCH(QString, expected);
    setPack(QStringLiteral("Dutch"));
    const QMap<Orvane::RdxUrlCategory, QString> before = Orvane::rdxUrlCodeMap();
    Orvane::setRdxUrlCategoryMap({{category, QStringLiteral("x")}, {Orvane::Category12, QStringLiteral("z")}});
    QCOMPARE(Orvane::rdxUrlCodeMap(), before);
    QCOMPARE(Orvane::buildRdxUrl(category), expected);
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category12), url("pid=0&a=c1"));
    Orvane::setRdxUrlCategoryMap({});
}

void tst_RdxUrl::pidOfTheCurrentPack()
{
    Orvane::setRdxPIDMap({{QStringLiteral("French"), 1234}, {QStringLiteral("zh_TW"), 99}});
    Orvane::setCurrentLocale(QLocale(QLocale::French, QLocale::Canada));
    QCOMPARE(Orvane::getCurrentPID(), QStringLiteral("1234"));
    QVERIFY(Orvane::buildRdxUrl(Orvane::Category1).endsWith(QLatin1String("/go?pid=1234&a=g")));
    Orvane::setCurrentLocale(QLocale(QLocale::Chinese, QLocale::Taiwan));
    QCOMPARE(Orvane::getCurrentPID(), QStringLiteral("99"));
    QCOMPARE(Orvane::rdxPIDMap().size(), 2);
}

void tst_RdxUrl::missingPackGetsPidZero()
{
    Orvane::setRdxPIDMap({{QStringLiteral("French"), 1234}});
    setPack(QStringLiteral("German"));
    QVERIFY(!Orvane::rdxPIDMap().contains(QStringLiteral("German")));
    QCOMPARE(Orvane::getCurrentPID(), QStringLiteral("0"));
    QCOMPARE(Orvane::rdxPIDMap().size(), 2);
    QVERIFY(Orvane::rdxPIDMap().contains(QStringLiteral("German")));
    QCOMPARE(Orvane::rdxPIDMap().value(QStringLiteral("German"), -1), 0);

    setPack(QStringLiteral("Klingon"));
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category2), url("pid=0&a=r"));
    QCOMPARE(Orvane::rdxPIDMap().value(QStringLiteral("Klingon"), -1), 0);

    // Negative ids are printed as they are.
    Orvane::setRdxPIDMap({{QStringLiteral("German"), -7}});
    setPack(QStringLiteral("German"));
    QCOMPARE(Orvane::getCurrentPID(), QStringLiteral("-7"));
}

void tst_RdxUrl::pidFollowsTheSystemWithoutAStoredPack()
{
    const QString systemPack = Orvane::localePackName(QLocale::system());
    Orvane::setRdxPIDMap({{systemPack, 42}});
    QCOMPARE(Orvane::getCurrentPID(), QStringLiteral("42"));
    QCOMPARE(Orvane::buildRdxUrl(Orvane::Category0), url("pid=42&a=db"));
}

void tst_RdxUrl::pidMapIsReplacedWhole()
{
    setPack(QStringLiteral("French"));
    Orvane::setRdxPIDMap({{QStringLiteral("French"), 1}, {QStringLiteral("Dutch"), 3}});
    Orvane::setRdxPIDMap({{QStringLiteral("German"), 2}});
    QCOMPARE(Orvane::rdxPIDMap(), (QMap<QString, int>{{QStringLiteral("German"), 2}}));
    QCOMPARE(Orvane::getCurrentPID(), QStringLiteral("0"));

    // Handing back the map that is held changes nothing.
    Orvane::setRdxPIDMap(Orvane::rdxPIDMap());
    QCOMPARE(Orvane::rdxPIDMap(),
             (QMap<QString, int>{{QStringLiteral("German"), 2}, {QStringLiteral("French"), 0}}));
}

void tst_RdxUrl::launchRule_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("applicationVersion");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QVariant>("storedAfter");

    const QVariant none;
#ifdef Q_OS_WIN
    // On Windows the version is this executable's own resource, file version
    // 2.0.0.1 (see CMakeLists.txt), which the application version set below
    // does not change: every row runs at 2.0.1.
    QTest::newRow("no stored version: first launch")
        << none << "2.0.0.1" << "2.0.1" << url("pid=8&a=i") << QVariant("2.0.1");
    QTest::newRow("stored empty: first launch")
        << QVariant("") << "2.0.0.1" << "2.0.1" << url("pid=8&a=i") << QVariant("2.0.1");
    QTest::newRow("2.0.0 to 2.0.1: update")
        << QVariant("2.0.0") << "2.0.0.1" << "2.0.1" << url("pid=8&a=u") << QVariant("2.0.1");
    QTest::newRow("2.0.10 to 2.0.1: string order, nothing")
        << QVariant("2.0.10") << "2.0.0.1" << "2.0.1" << QString() << QVariant("2.0.10");
    QTest::newRow("10.0.0 to 2.0.1: string order, update")
        << QVariant("10.0.0") << "2.0.0.1" << "2.0.1" << url("pid=8&a=u") << QVariant("2.0.1");
    QTest::newRow("same version: nothing")
        << QVariant("2.0.1") << "2.0.0.1" << "2.0.1" << QString() << QVariant("2.0.1");
    QTest::newRow("stored later: nothing")
        << QVariant("3.0.0") << "2.0.0.1" << "2.0.1" << QString() << QVariant("3.0.0");
#else
    QTest::newRow("no stored version: first launch")
        << none << "1.2.0.3" << "1.2.3" << url("pid=8&a=i") << QVariant("1.2.3");
    QTest::newRow("stored empty: first launch")
        << QVariant("") << "1.2.0.3" << "1.2.3" << url("pid=8&a=i") << QVariant("1.2.3");
    QTest::newRow("2.0.0 to 2.0.1: update")
        << QVariant("2.0.0") << "2.0.0.1" << "2.0.1" << url("pid=8&a=u") << QVariant("2.0.1");
    QTest::newRow("1.9.1 to 1.10.0: string order, nothing")
        << QVariant("1.9.1") << "1.10.0.0" << "1.10.0" << QString() << QVariant("1.9.1");
    QTest::newRow("1.10.0 to 1.9.1: string order, update")
        << QVariant("1.10.0") << "1.9.0.1" << "1.9.1" << url("pid=8&a=u") << QVariant("1.9.1");
    QTest::newRow("same version: nothing")
        << QVariant("2.0.1") << "2.0.0.1" << "2.0.1" << QString() << QVariant("2.0.1");
    QTest::newRow("stored later: nothing")
        << QVariant("3.0.0") << "2.0.0.1" << "2.0.1" << QString() << QVariant("3.0.0");
    QTest::newRow("stored, version unknown: nothing")
        << QVariant("1.0.0") << "" << "" << QString() << QVariant("1.0.0");
#endif
}

void tst_RdxUrl::launchRule()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, applicationVersion);
    QFETCH(QString, current);
    QFETCH(QString, opened);
    QFETCH(QVariant, storedAfter);

    Orvane::setRdxPIDMap({{QStringLiteral("Hindi"), 8}});
    setPack(QStringLiteral("Hindi"));
    if (!stored.isNull())
        QSettings().setValue(QStringLiteral("version"), stored);
    QCoreApplication::setApplicationVersion(applicationVersion);
    QCOMPARE(Orvane::getAppVersion(), current);

    QTest::ignoreMessage(QtDebugMsg, qPrintable(QLatin1String("curVersion: ") + current));
    Orvane::jumpRdxByLaunchApp();

    const QList<QUrl> expected = opened.isEmpty() ? QList<QUrl>() : QList<QUrl>{QUrl(opened)};
    QCOMPARE(m_opened, expected);
    QCOMPARE(QSettings().value(QStringLiteral("version")), storedAfter);
}

void tst_RdxUrl::upgradeOpensOnce()
{
    QSettings().setValue(QStringLiteral("version"), QStringLiteral("2.0.0"));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0.1"));
    QTest::ignoreMessage(QtDebugMsg, "curVersion: 2.0.1");
    Orvane::jumpRdxByLaunchApp();
    QCOMPARE(m_opened.size(), 1);
    QCOMPARE(QUrlQuery(m_opened.first()).queryItemValue(QStringLiteral("a")), QStringLiteral("u"));
    QCOMPARE(QSettings().value(QStringLiteral("version")).toString(), QStringLiteral("2.0.1"));

    QTest::ignoreMessage(QtDebugMsg, "curVersion: 2.0.1");
    Orvane::jumpRdxByLaunchApp();
    QCOMPARE(m_opened.size(), 1);
}

void tst_RdxUrl::firstLaunchOpensOnce()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0.1"));
    for (int start = 0; start < 3; ++start) {
        QTest::ignoreMessage(QtDebugMsg, "curVersion: 2.0.1");
        Orvane::jumpRdxByLaunchApp();
    }
    QCOMPARE(m_opened, QList<QUrl>{QUrl(url("pid=0&a=i"))});
    QCOMPARE(QSettings().value(QStringLiteral("version")).toString(), QStringLiteral("2.0.1"));
}

#ifndef Q_OS_WIN
void tst_RdxUrl::unknownAppVersionIsAlwaysAFirstLaunch()
{
    // An empty version is stored, which reads back as no version.
    for (int start = 0; start < 2; ++start) {
        QTest::ignoreMessage(QtDebugMsg, "curVersion: ");
        Orvane::jumpRdxByLaunchApp();
    }
    QCOMPARE(m_opened, (QList<QUrl>{QUrl(url("pid=0&a=i")), QUrl(url("pid=0&a=i"))}));
    QVERIFY(QSettings().contains(QStringLiteral("version")));
    QCOMPARE(QSettings().value(QStringLiteral("version")).toString(), QString());
}
#endif

QTEST_MAIN(tst_RdxUrl)
#include "tst_rdxurl.moc"
