#include <Orvane/orvanelocale.h>

#include "localeprobe.h"
#include "privatesettings.h"

#include <QFile>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class tst_AppLocale : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_settingsDir;

private Q_SLOTS:
    void initTestCase();
    void init();

    void noStoredLocaleIsEnglish();
    void setAppLocaleStoresTheName();
    void storedNameIsReadAsItStands_data();
    void storedNameIsReadAsItStands();
    void langIsIndependentOfLanguage();

    void packName_data();
    void packName();
    void everyLanguageHasOneOfTheSixteenPacks();

    void osLanguageIsTheSystemsNativeName();
    void systemLocaleChosenByEnvironment_data();
    void systemLocaleChosenByEnvironment();
};

void tst_AppLocale::initTestCase()
{
    QVERIFY(m_settingsDir.isValid());
    QVERIFY(usePrivateSettings(QStringLiteral("tst_applocale"), m_settingsDir.path()));
}

void tst_AppLocale::init()
{
    QSettings().clear();
}

void tst_AppLocale::noStoredLocaleIsEnglish()
{
    const QLocale locale = Orvane::getAppLocale();
    QCOMPARE(locale, QLocale(QLocale::English));
    QCOMPARE(locale.language(), QLocale::English);
    QCOMPARE(Orvane::getAppLocaleName(), QStringLiteral("en_US"));
    // Reading does not store the default.
    QVERIFY(!QSettings().contains(QStringLiteral("Lang")));
}

void tst_AppLocale::setAppLocaleStoresTheName()
{
    QTest::ignoreMessage(QtDebugMsg, "setAppLocale Lang: fr_FR");
    Orvane::setAppLocale(QLocale(QLocale::French, QLocale::France));

    QCOMPARE(QSettings().value(QStringLiteral("Lang")), QVariant(QStringLiteral("fr_FR")));
    QCOMPARE(Orvane::getAppLocale().language(), QLocale::French);
    QCOMPARE(Orvane::getAppLocale().country(), QLocale::France);
    QCOMPARE(Orvane::getAppLocaleName(), QStringLiteral("fr_FR"));

    // The write reached the settings file.
    QFile file(QSettings().fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("Lang=fr_FR"));

    QTest::ignoreMessage(QtDebugMsg, "setAppLocale Lang: pt_BR");
    Orvane::setAppLocale(QLocale(QLocale::Portuguese, QLocale::Brazil));
    QCOMPARE(Orvane::getAppLocaleName(), QStringLiteral("pt_BR"));
}

void tst_AppLocale::storedNameIsReadAsItStands_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QLocale::Language>("language");

    QTest::newRow("de_CH") << "de_CH" << QLocale::German;
    QTest::newRow("dash, not normalised") << "fr-FR" << QLocale::French;
    QTest::newRow("garbage gives C") << "garbage" << QLocale::C;
    QTest::newRow("empty but present gives C") << "" << QLocale::C;
}

void tst_AppLocale::storedNameIsReadAsItStands()
{
    QFETCH(QString, stored);
    QFETCH(QLocale::Language, language);
    QSettings().setValue(QStringLiteral("Lang"), stored);
    QCOMPARE(Orvane::getAppLocaleName(), stored);
    QCOMPARE(Orvane::getAppLocale().language(), language);
}

void tst_AppLocale::langIsIndependentOfLanguage()
{
    QTest::ignoreMessage(QtDebugMsg, "setAppLocale Lang: de_DE");
    Orvane::setAppLocale(QLocale(QLocale::German, QLocale::Germany));
    QVERIFY(!QSettings().contains(QStringLiteral("Language")));
    QCOMPARE(Orvane::getCurrentLocalePackName(), Orvane::localePackName(QLocale::system()));

    Orvane::setCurrentLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    QCOMPARE(Orvane::getAppLocaleName(), QStringLiteral("de_DE"));
}

void tst_AppLocale::packName_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("pack");

    // The thirteen rows of the table.
    QTest::newRow("Russian") << QLocale(QLocale::Russian, QLocale::Russia) << "Russian";
    QTest::newRow("French") << QLocale(QLocale::French, QLocale::France) << "French";
    QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany) << "German";
    QTest::newRow("Japanese") << QLocale(QLocale::Japanese, QLocale::Japan) << "Japanese";
    QTest::newRow("Spanish") << QLocale(QLocale::Spanish, QLocale::Spain) << "Spanish";
    QTest::newRow("Portuguese") << QLocale(QLocale::Portuguese, QLocale::Portugal) << "Portuguese";
    QTest::newRow("Korean") << QLocale(QLocale::Korean, QLocale::SouthKorea) << "Korean";
    QTest::newRow("Italian") << QLocale(QLocale::Italian, QLocale::Italy) << "Italian";
    QTest::newRow("Arabic") << QLocale(QLocale::Arabic, QLocale::SaudiArabia) << "Arabic";
    QTest::newRow("Turkish") << QLocale(QLocale::Turkish, QLocale::Turkey) << "Turkish";
    QTest::newRow("Dutch") << QLocale(QLocale::Dutch, QLocale::Netherlands) << "Dutch";
    QTest::newRow("Indonesian") << QLocale(QLocale::Indonesian, QLocale::Indonesia) << "Indonesian";
    QTest::newRow("Hindi") << QLocale(QLocale::Hindi, QLocale::India) << "Hindi";

    // The country never matters.
    QTest::newRow("German, Austria") << QLocale(QLocale::German, QLocale::Austria) << "German";
    QTest::newRow("German, Switzerland") << QLocale(QLocale::German, QLocale::Switzerland) << "German";
    QTest::newRow("German, any country") << QLocale(QLocale::German) << "German";
    QTest::newRow("Portuguese, Brazil") << QLocale(QLocale::Portuguese, QLocale::Brazil) << "Portuguese";
    QTest::newRow("Spanish, Mexico") << QLocale(QLocale::Spanish, QLocale::Mexico) << "Spanish";
    QTest::newRow("Arabic, Egypt") << QLocale(QLocale::Arabic, QLocale::Egypt) << "Arabic";

    // Not rows of the table: English is the fallback.
    QTest::newRow("Swedish") << QLocale(QLocale::Swedish, QLocale::Sweden) << "English";
    QTest::newRow("English") << QLocale(QLocale::English) << "English";
    QTest::newRow("English, UK") << QLocale(QLocale::English, QLocale::UnitedKingdom) << "English";
    QTest::newRow("C locale") << QLocale::c() << "English";
    QTest::newRow("garbage name") << QLocale(QStringLiteral("garbage")) << "English";
    QTest::newRow("Cantonese") << QLocale(QLocale::Cantonese) << "English";

    // Chinese: the script decides, not the country.
    QTest::newRow("Chinese, simplified, China")
        << QLocale(QLocale::Chinese, QLocale::SimplifiedHanScript, QLocale::China) << "zh_CN";
    QTest::newRow("Chinese, Singapore") << QLocale(QLocale::Chinese, QLocale::Singapore) << "zh_CN";
    QTest::newRow("Chinese, any country") << QLocale(QLocale::Chinese) << "zh_CN";
    QTest::newRow("Chinese, simplified, Taiwan")
        << QLocale(QLocale::Chinese, QLocale::SimplifiedHanScript, QLocale::Taiwan) << "zh_CN";
    QTest::newRow("Chinese, traditional, Taiwan")
        << QLocale(QLocale::Chinese, QLocale::TraditionalHanScript, QLocale::Taiwan) << "zh_TW";
    QTest::newRow("Chinese, Taiwan") << QLocale(QLocale::Chinese, QLocale::Taiwan) << "zh_TW";
    QTest::newRow("Chinese, Hong Kong") << QLocale(QLocale::Chinese, QLocale::HongKong) << "zh_TW";
    QTest::newRow("Chinese, Macau") << QLocale(QLocale::Chinese, QLocale::Macau) << "zh_TW";
    QTest::newRow("Chinese, traditional, China")
        << QLocale(QLocale::Chinese, QLocale::TraditionalHanScript, QLocale::China) << "zh_TW";
    QTest::newRow("zh_HK by name") << QLocale(QStringLiteral("zh_HK")) << "zh_TW";
}

void tst_AppLocale::packName()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, pack);
    QCOMPARE(Orvane::localePackName(locale), pack);
}

void tst_AppLocale::everyLanguageHasOneOfTheSixteenPacks()
{
    const QSet<QString> packs = {
        QStringLiteral("Russian"), QStringLiteral("French"), QStringLiteral("German"),
        QStringLiteral("Japanese"), QStringLiteral("Spanish"), QStringLiteral("Portuguese"),
        QStringLiteral("Korean"), QStringLiteral("Italian"), QStringLiteral("Arabic"),
        QStringLiteral("Turkish"), QStringLiteral("Dutch"), QStringLiteral("Indonesian"),
        QStringLiteral("Hindi"), QStringLiteral("zh_CN"), QStringLiteral("zh_TW"),
        QStringLiteral("English")};
    QSet<QString> seen;
    for (int language = 0; language <= QLocale::LastLanguage; ++language) {
        const QString pack = Orvane::localePackName(QLocale(static_cast<QLocale::Language>(language)));
        QVERIFY2(packs.contains(pack), qPrintable(QString::number(language) + QLatin1String(": ") + pack));
        seen.insert(pack);
    }
    // Every language on its own gives the simplified script for Chinese.
    seen.insert(Orvane::localePackName(QLocale(QLocale::Chinese, QLocale::TraditionalHanScript, QLocale::Taiwan)));
    QCOMPARE(seen, packs);
}

void tst_AppLocale::osLanguageIsTheSystemsNativeName()
{
    QCOMPARE(Orvane::getOSLanguage(), QLocale::system().nativeLanguageName());
    // Nothing is stored.
    QVERIFY(QSettings().allKeys().isEmpty());
}

void tst_AppLocale::systemLocaleChosenByEnvironment_data()
{
    QTest::addColumn<QString>("lcAll");
    QTest::addColumn<QString>("pack");
    QTest::addColumn<QString>("native");

#ifdef Q_OS_WIN
    // Windows takes the system locale from the user's settings, never from
    // a process's environment: the child follows the user's locale, which
    // is this process's, whatever LC_ALL says.
    const QLocale user = QLocale::system();
    QTest::newRow("the user's locale") << "de_DE.UTF-8" << Orvane::localePackName(user) << user.nativeLanguageName();
#else
    QTest::newRow("Hindi") << "hi_IN.UTF-8" << "Hindi"
                           << QLocale(QLocale::Hindi, QLocale::India).nativeLanguageName();
    QTest::newRow("German") << "de_DE.UTF-8" << "German" << "Deutsch";
    QTest::newRow("Japanese") << "ja_JP.UTF-8" << "Japanese"
                              << QLocale(QLocale::Japanese, QLocale::Japan).nativeLanguageName();
    QTest::newRow("Chinese, Taiwan") << "zh_TW.UTF-8" << "zh_TW"
                                     << QLocale(QLocale::Chinese, QLocale::Taiwan).nativeLanguageName();
    QTest::newRow("Swedish") << "sv_SE.UTF-8" << "English" << "svenska";
    QTest::newRow("C") << "C" << "English" << QLocale::c().nativeLanguageName();
#endif
}

// The system locale is read once per process, so each row runs in a child
// process started with that locale.
void tst_AppLocale::systemLocaleChosenByEnvironment()
{
    QFETCH(QString, lcAll);
    QFETCH(QString, pack);
    QFETCH(QString, native);

    const QMap<QString, QString> probe = runLocaleProbe(lcAll, QStringLiteral("system"));
    QCOMPARE(probe.value(QStringLiteral("pack")), pack);
    QCOMPARE(probe.value(QStringLiteral("native")), native);
    // With "Language" absent the current pack follows the system; once set
    // it no longer does.
    QCOMPARE(probe.value(QStringLiteral("current")), pack);
    QCOMPARE(probe.value(QStringLiteral("afterJapanese")), QStringLiteral("Japanese"));
}

QTEST_GUILESS_MAIN(tst_AppLocale)
#include "tst_applocale.moc"
