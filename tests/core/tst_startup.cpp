#include <Orvane/orvanecore.h>

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QFile>
#include <QTranslator>
#include <QtTest>

// The resource flag is process-wide and can only go from false to true, so
// the functions below run in declaration order and each starts from the
// state the previous one left.
class tst_Startup : public QObject
{
    Q_OBJECT

private:
    static bool imagesPresent() { return QFile::exists(QStringLiteral(":/Orvane/kv_TipsSuccess.png")); }
    static bool languagesPresent() { return QFile::exists(QStringLiteral(":/Orvane/zh_CN.qm")); }
    static void unregisterBoth()
    {
        QCOMPARE(qCleanupResources_OrvaneResources(), 1);
        QCOMPARE(qCleanupResources_OrvaneLanguages(), 1);
    }

private Q_SLOTS:
    void nothingRegisteredAtLoad();
    void initInternalResourcesIgnoresTheFlag();
    void ensureRegistersOnce();
    void everyListedImageIsInTheBundle_data();
    void everyListedImageIsInTheBundle();
    void exactlyFifteenLanguagePacks();
    void languagePackLoadsIntoTranslator();
    void slicesFileIsNotInEitherBundle();
    void resourcesPathIsApplicationDir();
    void testSystemInfoDoesNothing();
};

void tst_Startup::nothingRegisteredAtLoad()
{
    QVERIFY(!imagesPresent());
    QVERIFY(!languagesPresent());
}

void tst_Startup::initInternalResourcesIgnoresTheFlag()
{
    initInternalResources();
    QVERIFY(imagesPresent());
    QVERIFY(languagesPresent());
    initInternalResources(); // a second registration is harmless
    QVERIFY(imagesPresent());

    unregisterBoth();
    QVERIFY(!imagesPresent());
    QVERIFY(!languagesPresent());

    // The flag was left false, so ensureOrvaneResources() registers again.
    Orvane::ensureOrvaneResources();
    QVERIFY(imagesPresent());
    QVERIFY(languagesPresent());
}

void tst_Startup::ensureRegistersOnce()
{
    // The flag is now set: after an unregistration, a further call must not
    // register the bundles again.
    unregisterBoth();
    QVERIFY(!imagesPresent());
    Orvane::ensureOrvaneResources();
    Orvane::ensureOrvaneResources();
    QVERIFY(!imagesPresent());
    QVERIFY(!languagesPresent());

    // The raw entry point brings them back for the rest of the tests.
    initInternalResources();
    QVERIFY(imagesPresent());
    QVERIFY(languagesPresent());
}

void tst_Startup::everyListedImageIsInTheBundle_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::newRow("dark close") << ":/Orvane/kv_DlgCloseBtn.png" << QSize(24, 24);
    QTest::newRow("dark close hover") << ":/Orvane/kv_DlgCloseBtn_hover.png" << QSize(24, 24);
    QTest::newRow("light close") << ":/Orvane/qm_DlgCloseBtn.png" << QSize(24, 24);
    QTest::newRow("dark attention") << ":/Orvane/kv_TipsAttention.png" << QSize(48, 48);
    QTest::newRow("dark success") << ":/Orvane/kv_TipsSuccess.png" << QSize(48, 48);
    QTest::newRow("light attention") << ":/Orvane/qm_TipsAttention.png" << QSize(48, 48);
    QTest::newRow("light success") << ":/Orvane/qm_TipsSuccess.png" << QSize(48, 48);
    QTest::newRow("check box off") << ":/Orvane/checkbox_0" << QSize(16, 16);
    QTest::newRow("check box on") << ":/Orvane/checkbox_1" << QSize(16, 16);
    QTest::newRow("dark spinner") << ":/Orvane/kv_Loading.png" << QSize(32, 32);
    QTest::newRow("light spinner") << ":/Orvane/qm_Loading.png" << QSize(32, 32);
}

void tst_Startup::everyListedImageIsInTheBundle()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    const QImage image(path);
    QVERIFY2(!image.isNull(), qPrintable(path));
    QCOMPARE(image.size(), size);
    QVERIFY(image.hasAlphaChannel());
}

void tst_Startup::exactlyFifteenLanguagePacks()
{
    const QStringList expected = {
        QStringLiteral("Arabic.qm"),  QStringLiteral("Dutch.qm"),      QStringLiteral("French.qm"),
        QStringLiteral("German.qm"),  QStringLiteral("Hindi.qm"),      QStringLiteral("Indonesian.qm"),
        QStringLiteral("Italian.qm"), QStringLiteral("Japanese.qm"),   QStringLiteral("Korean.qm"),
        QStringLiteral("Portuguese.qm"), QStringLiteral("Russian.qm"), QStringLiteral("Spanish.qm"),
        QStringLiteral("Turkish.qm"), QStringLiteral("zh_CN.qm"),      QStringLiteral("zh_TW.qm"),
    };
    QStringList packs;
    for (const QString &entry : QDir(QStringLiteral(":/Orvane")).entryList(QDir::Files))
        if (entry.endsWith(QLatin1String(".qm")))
            packs << entry;
    packs.sort();
    QCOMPARE(packs, expected);
    QVERIFY(!QFile::exists(QStringLiteral(":/Orvane/English.qm")));
}

void tst_Startup::languagePackLoadsIntoTranslator()
{
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/Orvane/zh_CN.qm")));
    QCOMPARE(translator.translate("Orvane::OMessageBox", "OK"), QString::fromUtf8("确定"));
}

void tst_Startup::slicesFileIsNotInEitherBundle()
{
    QVERIFY(!QFile::exists(QStringLiteral(":/slices.json")));
}

void tst_Startup::resourcesPathIsApplicationDir()
{
    const QString path = getResourcesPath();
    QCOMPARE(path, QCoreApplication::applicationDirPath());
    QVERIFY(!path.endsWith(QLatin1Char('/')));
    QVERIFY(!path.isEmpty());
}

void tst_Startup::testSystemInfoDoesNothing()
{
    const bool before = imagesPresent();
    Orvane::testSystemInfo();
    QCOMPARE(imagesPresent(), before);
}

QTEST_GUILESS_MAIN(tst_Startup)
#include "tst_startup.moc"
