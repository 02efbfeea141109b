#include <Orvane/orvanelocale.h>

#include "locale/languagepack_p.h"
#include "localeprobe.h"
#include "privatesettings.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QPointer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

// The translator state is process-wide and only the very first call of
// freshLanguage() can show the "first empty name does nothing" rule, so the
// functions below run in declaration order and each starts from the state
// the previous one left.
class tst_LanguagePack : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static QString translatedOk() { return QCoreApplication::translate("Orvane::OMessageBox", "OK"); }
    static QString systemPack() { return Orvane::localePackName(QLocale::system()); }
    void fresh(const QString &name);
    int installedLibraryTranslators();

    QTemporaryDir m_settingsDir;
    // The translation of "OK" seen at each LanguageChange the application
    // received: one entry per install of a non-empty translator and per
    // removal.
    QStringList m_changes;
    // Every translator the library has installed; deleted ones turn null.
    QList<QPointer<QTranslator>> m_seen;

private Q_SLOTS:
    void initTestCase();
    void init();

    void fileNameToPath_data();
    void fileNameToPath();
    void languageStringIsPlainMemory();
    void currentPackFollowsTheSystem();
    void setCurrentLocaleStoresThePackAtOnce_data();
    void setCurrentLocaleStoresThePackAtOnce();
    void storedPackIsReturnedAsItStands_data();
    void storedPackIsReturnedAsItStands();

    void firstEmptyCallDoesNothing();
    void germanTwiceInstallsOne();
    void frenchReplacesGerman();
    void emptyAfterGermanLoadsTheSystemPack();
    void oneTranslatorAfterGermanFrenchAndEmpty();
    void lastRequestedIsTheNameAsPassed();
    void englishLeavesTextsUntranslated();
    void unknownPackInstallsAnEmptyTranslator();
    void everyPackLoads_data();
    void everyPackLoads();
    void emptyAfterGermanWithAFrenchSystem();
};

bool tst_LanguagePack::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == QCoreApplication::instance() && event->type() == QEvent::LanguageChange)
        m_changes.append(translatedOk());
    return QObject::eventFilter(watched, event);
}

void tst_LanguagePack::fresh(const QString &name)
{
    Orvane::freshLanguage(name);
    QTranslator *translator = Orvane::installedLanguageTranslator();
    if (translator && !m_seen.contains(QPointer<QTranslator>(translator)))
        m_seen.append(translator);
}

// Counts the library's translators that are in the application's list: each
// one ever seen is taken out (which succeeds only when it was installed) and
// put back in the same order.
int tst_LanguagePack::installedLibraryTranslators()
{
    QList<QTranslator *> removed;
    for (const QPointer<QTranslator> &translator : qAsConst(m_seen)) {
        if (translator && QCoreApplication::removeTranslator(translator))
            removed.append(translator);
    }
    for (QTranslator *translator : qAsConst(removed))
        QCoreApplication::installTranslator(translator);
    m_changes.clear();
    return removed.size();
}

void tst_LanguagePack::initTestCase()
{
    QVERIFY(m_settingsDir.isValid());
    QVERIFY(usePrivateSettings(QStringLiteral("tst_languagepack"), m_settingsDir.path()));
    QCoreApplication::instance()->installEventFilter(this);
}

void tst_LanguagePack::init()
{
    QSettings().clear();
    m_changes.clear();
}

void tst_LanguagePack::fileNameToPath_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::newRow("zh_CN") << "zh_CN" << ":/Orvane/zh_CN.qm";
    QTest::newRow("German") << "German" << ":/Orvane/German.qm";
    QTest::newRow("English, no such file") << "English" << ":/Orvane/English.qm";
    QTest::newRow("empty") << "" << ":/Orvane/.qm";
    QTest::newRow("not checked") << "../x" << ":/Orvane/../x.qm";
}

void tst_LanguagePack::fileNameToPath()
{
    QFETCH(QString, name);
    QFETCH(QString, path);
    QCOMPARE(Orvane::languageFileNameToPath(name), path);
}

void tst_LanguagePack::languageStringIsPlainMemory()
{
    QVERIFY(Orvane::getlanguage().isNull());
    Orvane::setlanguage(QStringLiteral("French"));
    QCOMPARE(Orvane::getlanguage(), QStringLiteral("French"));
    Orvane::setlanguage(QStringLiteral(""));
    QVERIFY(Orvane::getlanguage().isEmpty());
    QVERIFY(!Orvane::getlanguage().isNull());
    Orvane::setlanguage(QString());
    QVERIFY(Orvane::getlanguage().isNull());

    // Neither settings nor translators are touched.
    QVERIFY(QSettings().allKeys().isEmpty());
    QVERIFY(!Orvane::installedLanguageTranslator());
    QVERIFY(m_changes.isEmpty());
}

void tst_LanguagePack::currentPackFollowsTheSystem()
{
    QCOMPARE(Orvane::getCurrentLocalePackName(), systemPack());
    // The derived name is not written back.
    QVERIFY(!QSettings().contains(QStringLiteral("Language")));
}

void tst_LanguagePack::setCurrentLocaleStoresThePackAtOnce_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("pack");
    QTest::newRow("Japanese") << QLocale(QLocale::Japanese, QLocale::Japan) << "Japanese";
    QTest::newRow("Portuguese, Brazil") << QLocale(QLocale::Portuguese, QLocale::Brazil) << "Portuguese";
    QTest::newRow("Chinese, Hong Kong") << QLocale(QLocale::Chinese, QLocale::HongKong) << "zh_TW";
    QTest::newRow("Chinese, China") << QLocale(QLocale::Chinese, QLocale::China) << "zh_CN";
    QTest::newRow("Swedish") << QLocale(QLocale::Swedish, QLocale::Sweden) << "English";
}

void tst_LanguagePack::setCurrentLocaleStoresThePackAtOnce()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, pack);
    Orvane::setCurrentLocale(locale);
    QCOMPARE(QSettings().value(QStringLiteral("Language")), QVariant(pack));
    QCOMPARE(Orvane::getCurrentLocalePackName(), pack);
    QVERIFY(!QSettings().contains(QStringLiteral("Lang")));

    QFile file(QSettings().fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("Language=" + pack.toLatin1()));
}

void tst_LanguagePack::storedPackIsReturnedAsItStands_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a pack") << "Korean" << "Korean";
    QTest::newRow("stale, not a pack") << "Klingon" << "Klingon";
    QTest::newRow("empty follows the system") << "" << systemPack();
}

void tst_LanguagePack::storedPackIsReturnedAsItStands()
{
    QFETCH(QString, stored);
    QFETCH(QString, expected);
    QSettings().setValue(QStringLiteral("Language"), stored);
    QCOMPARE(Orvane::getCurrentLocalePackName(), expected);
    QCOMPARE(QSettings().value(QStringLiteral("Language")).toString(), stored);
}

void tst_LanguagePack::firstEmptyCallDoesNothing()
{
    const QString germanPack = QStringLiteral(":/Orvane/German.qm");
    QVERIFY(!QFile::exists(germanPack));

    QStringList debugLines;
    static QStringList *lines = nullptr;
    lines = &debugLines;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &message) { lines->append(message); });
    fresh(QString());
    fresh(QStringLiteral(""));
    qInstallMessageHandler(previous);

    QVERIFY2(debugLines.isEmpty(), qPrintable(debugLines.join(QLatin1Char('\n'))));
    QVERIFY(!Orvane::installedLanguageTranslator());
    QVERIFY(m_changes.isEmpty());
    QCOMPARE(translatedOk(), QStringLiteral("OK"));
    // Not even the language bundle was registered.
    QVERIFY(!QFile::exists(germanPack));
}

void tst_LanguagePack::germanTwiceInstallsOne()
{
    fresh(QStringLiteral("German"));
    QVERIFY(QFile::exists(QStringLiteral(":/Orvane/German.qm")));
    QTranslator *german = Orvane::installedLanguageTranslator();
    QVERIFY(german);
    QCOMPARE(german->parent(), nullptr);
    QCOMPARE(m_changes, QStringList{QStringLiteral("Okay")});
    QCOMPARE(translatedOk(), QStringLiteral("Okay"));

    fresh(QStringLiteral("German"));
    QCOMPARE(Orvane::installedLanguageTranslator(), german);
    QCOMPARE(m_changes, QStringList{QStringLiteral("Okay")});
    QCOMPARE(installedLibraryTranslators(), 1);
}

void tst_LanguagePack::frenchReplacesGerman()
{
    const QPointer<QTranslator> german = Orvane::installedLanguageTranslator();
    QVERIFY(german);

    fresh(QStringLiteral("French"));
    // German was removed (nothing of ours translated at that moment) before
    // French was installed, and it was deleted.
    QCOMPARE(m_changes, (QStringList{QStringLiteral("OK"), QStringLiteral("D'accord")}));
    QVERIFY(german.isNull());
    QVERIFY(Orvane::installedLanguageTranslator());
    QCOMPARE(translatedOk(), QStringLiteral("D'accord"));
    QCOMPARE(installedLibraryTranslators(), 1);
}

void tst_LanguagePack::emptyAfterGermanLoadsTheSystemPack()
{
    fresh(QStringLiteral("German"));
    QCOMPARE(translatedOk(), QStringLiteral("Okay"));
    const QPointer<QTranslator> german = Orvane::installedLanguageTranslator();

    QTest::ignoreMessage(QtDebugMsg, qPrintable(QLatin1String("fileName: ") + systemPack()));
    fresh(QString());
    QVERIFY(german.isNull());
    QTranslator *system = Orvane::installedLanguageTranslator();
    QVERIFY(system);

    // The system pack's own translation of "OK", or "OK" where it has none.
    QTranslator expected;
    // Every pack but English has a file.
    QCOMPARE(expected.load(Orvane::languageFileNameToPath(systemPack())),
             systemPack() != QStringLiteral("English"));
    const QString ok = expected.translate("Orvane::OMessageBox", "OK");
    QCOMPARE(translatedOk(), ok.isEmpty() ? QStringLiteral("OK") : ok);
    QCOMPARE(installedLibraryTranslators(), 1);
}

void tst_LanguagePack::oneTranslatorAfterGermanFrenchAndEmpty()
{
    fresh(QStringLiteral("German"));
    QCOMPARE(installedLibraryTranslators(), 1);
    fresh(QStringLiteral("French"));
    QCOMPARE(installedLibraryTranslators(), 1);
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QLatin1String("fileName: ") + systemPack()));
    fresh(QString());
    QCOMPARE(installedLibraryTranslators(), 1);
    // Of all the translators made so far only the last one is alive.
    int alive = 0;
    for (const QPointer<QTranslator> &translator : qAsConst(m_seen))
        alive += translator.isNull() ? 0 : 1;
    QCOMPARE(alive, 1);
    QVERIFY(m_seen.size() >= 5);
}

void tst_LanguagePack::lastRequestedIsTheNameAsPassed()
{
    // The last call was with an empty name: another empty (or null) name
    // does nothing, although the system pack is what was loaded.
    QTranslator *system = Orvane::installedLanguageTranslator();
    fresh(QStringLiteral(""));
    fresh(QString());
    QCOMPARE(Orvane::installedLanguageTranslator(), system);

    // The resolved name was not recorded, so naming the same pack
    // explicitly makes a new translator.
    const QPointer<QTranslator> before = system;
    fresh(systemPack());
    QVERIFY(before.isNull());
    QVERIFY(Orvane::installedLanguageTranslator());
    QCOMPARE(installedLibraryTranslators(), 1);
}

void tst_LanguagePack::englishLeavesTextsUntranslated()
{
    fresh(QStringLiteral("German"));
    QCOMPARE(translatedOk(), QStringLiteral("Okay"));
    fresh(QStringLiteral("English"));
    QTranslator *english = Orvane::installedLanguageTranslator();
    QVERIFY(english);
    QVERIFY(english->isEmpty());
    QCOMPARE(translatedOk(), QStringLiteral("OK"));
    QCOMPARE(installedLibraryTranslators(), 1);
}

void tst_LanguagePack::unknownPackInstallsAnEmptyTranslator()
{
    fresh(QStringLiteral("French"));
    fresh(QStringLiteral("Klingon"));
    QVERIFY(Orvane::installedLanguageTranslator());
    QVERIFY(Orvane::installedLanguageTranslator()->isEmpty());
    QCOMPARE(translatedOk(), QStringLiteral("OK"));
    QCOMPARE(installedLibraryTranslators(), 1);
}

void tst_LanguagePack::everyPackLoads_data()
{
    QTest::addColumn<QString>("pack");
    QTest::addColumn<QString>("ok");
    QTest::newRow("Portuguese") << "Portuguese" << "OK";
    QTest::newRow("Russian") << "Russian" << QString::fromUtf8("\u041e\u041a");
    QTest::newRow("Indonesian") << "Indonesian" << "Oke";
    QTest::newRow("Japanese") << "Japanese" << "OK";
    QTest::newRow("Spanish") << "Spanish" << "Aceptar";
    QTest::newRow("French") << "French" << "D'accord";
    QTest::newRow("Dutch") << "Dutch" << QString::fromUtf8("Ok\u00e9");
    QTest::newRow("German") << "German" << "Okay";
    QTest::newRow("zh_TW") << "zh_TW" << QString::fromUtf8("\u78ba\u5b9a");
    QTest::newRow("Korean") << "Korean" << QString::fromUtf8("\ud655\uc778");
    QTest::newRow("Arabic") << "Arabic" << QString::fromUtf8("\u0645\u0648\u0627\u0641\u0642");
    QTest::newRow("Turkish") << "Turkish" << "Tamam";
    QTest::newRow("Italian") << "Italian" << "OK";
    QTest::newRow("zh_CN") << "zh_CN" << QString::fromUtf8("\u786e\u5b9a");
    QTest::newRow("Hindi") << "Hindi" << QString::fromUtf8("\u0920\u0940\u0915 \u0939\u0948");
}

void tst_LanguagePack::everyPackLoads()
{
    QFETCH(QString, pack);
    QFETCH(QString, ok);
    QVERIFY(QFile::exists(Orvane::languageFileNameToPath(pack)));
    fresh(pack);
    QVERIFY(Orvane::installedLanguageTranslator());
    QVERIFY(!Orvane::installedLanguageTranslator()->isEmpty());
    QCOMPARE(translatedOk(), ok);
    QCOMPARE(installedLibraryTranslators(), 1);
}

// In a child whose system locale is French: after German, an empty name
// installs the French pack.
void tst_LanguagePack::emptyAfterGermanWithAFrenchSystem()
{
    const QMap<QString, QString> probe = runLocaleProbe(QStringLiteral("fr_FR.UTF-8"),
                                                        QStringLiteral("emptyAfterGerman"));
    QCOMPARE(probe.value(QStringLiteral("german")), QStringLiteral("Okay"));
#ifdef Q_OS_WIN
    // Windows takes the system locale from the user's settings, never from
    // a process's environment, so the child's system is this process's:
    // an empty name there installs what it installs here.
    fresh(QStringLiteral("German"));
    fresh(QString());
    QCOMPARE(probe.value(QStringLiteral("system")), translatedOk());
#else
    QCOMPARE(probe.value(QStringLiteral("system")), QStringLiteral("D'accord"));
    QCOMPARE(probe.value(QStringLiteral("log")), QStringLiteral("fileName: French"));
#endif
}

QTEST_GUILESS_MAIN(tst_LanguagePack)
#include "tst_languagepack.moc"
