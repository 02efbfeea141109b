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
    void exactlyTheseImagesEachWithItsTwin();
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

// The picture for scaled screens: "@2x" before the extension, or at the end
// of a name without one, where Qt looks for it.
static QString twinOf(const QString &path)
{
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? path + QLatin1String("@2x") : QString(path).insert(dot, QLatin1String("@2x"));
}

void tst_Startup::everyListedImageIsInTheBundle_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("ratio");
    const struct {
        const char *row;
        const char *path;
        int side;
    } images[] = {
        {"dark close", ":/Orvane/kv_DlgCloseBtn.png", 24},
        {"dark close hover", ":/Orvane/kv_DlgCloseBtn_hover.png", 24},
        {"light close", ":/Orvane/qm_DlgCloseBtn.png", 24},
        {"dark attention", ":/Orvane/kv_TipsAttention.png", 48},
        {"dark success", ":/Orvane/kv_TipsSuccess.png", 48},
        {"light attention", ":/Orvane/qm_TipsAttention.png", 48},
        {"light success", ":/Orvane/qm_TipsSuccess.png", 48},
        {"check box off", ":/Orvane/checkbox_0", 16},
        {"check box on", ":/Orvane/checkbox_1", 16},
        {"dark spinner", ":/Orvane/kv_Loading.png", 32},
        {"light spinner", ":/Orvane/qm_Loading.png", 32},
    };
    for (const auto &image : images) {
        const QString path = QLatin1String(image.path);
        QTest::newRow(image.row) << path << QSize(image.side, image.side) << qreal(1);
        QTest::newRow(qPrintable(QLatin1String(image.row) + QLatin1String(" @2x")))
            << twinOf(path) << QSize(2 * image.side, 2 * image.side) << qreal(2);
    }
}

void tst_Startup::everyListedImageIsInTheBundle()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QFETCH(qreal, ratio);
    const QImage image(path);
    QVERIFY2(!image.isNull(), qPrintable(path));
    QCOMPARE(image.size(), size);
    QVERIFY(image.hasAlphaChannel());
    // Qt reads the ratio from the "@2x" in the name.
    QCOMPARE(image.devicePixelRatio(), ratio);
}

void tst_Startup::exactlyTheseImagesEachWithItsTwin()
{
    QStringList images;
    for (const QString &entry : QDir(QStringLiteral(":/Orvane")).entryList(QDir::Files))
        if (!entry.endsWith(QLatin1String(".qm")))
            images << entry;
    QCOMPARE(images.size(), 22);
    for (const QString &entry : qAsConst(images)) {
        if (entry.contains(QLatin1String("@2x")))
            continue;
        QVERIFY2(images.contains(twinOf(entry)), qPrintable(entry));
    }
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
