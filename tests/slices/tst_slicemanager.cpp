#include <Orvane/slicemanager.h>
#include <Orvane/startup.h>

#include "testcatalogue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QtTest>

// The catalogue as a host sees it: this executable embeds its own
// ":/slices.json" (catalogue.json) with the test sheets, and writes its loose
// images into the folder "images" beside itself.
class tst_SliceManager : public QObject
{
    Q_OBJECT

private:
    static QString appDir() { return QCoreApplication::applicationDirPath(); }
    static QString imagesDir() { return appDir() + QStringLiteral("/images"); }

    static void writeImage(const QString &path, const QImage &image)
    {
        QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
        QVERIFY2(image.save(path, "PNG"), qPrintable(path));
    }
    static QImage filled(const QSize &size, const QColor &colour)
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(colour);
        return image;
    }
    static QColor colourAt(const QPixmap &pixmap, int x = 0, int y = 0)
    {
        return QColor(pixmap.toImage().pixel(x, y));
    }

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void sharedInstanceIsCreatedOnce();
    void readsTheHostFile();
    void readingAgainAppends();
    void missingFileGivesFalse();
    void slice_data();
    void slice();
    void unknownNameLogsAndLeavesTheCacheAlone();
    void knownNameLogsOneLine();
    void successfulCutHappensOnce();
    void nullCutIsRetried();

    void pathNamed_data();
    void pathNamed();
    void dotDotResolvesBesideTheFolder();
    void pixmapAndImageAreUncached();
    void missingFilesAreNull();
    void appIcon();
    void pixmapGroupNamed_data();
    void pixmapGroupNamed();
    void lossFileCoverArrivesLate();
};

void tst_SliceManager::initTestCase()
{
    QVERIFY(QFile::exists(QStringLiteral(":/slices.json")));
    QDir(imagesDir()).removeRecursively();
    QFile::remove(appDir() + QStringLiteral("/beside.png"));
    QVERIFY(QDir().mkpath(imagesDir()));
}

void tst_SliceManager::cleanupTestCase()
{
    QDir(imagesDir()).removeRecursively();
    QFile::remove(appDir() + QStringLiteral("/beside.png"));
}

void tst_SliceManager::sharedInstanceIsCreatedOnce()
{
    const DebugLines lines;
    Orvane::SliceManager &shared = Orvane::SliceManager::sharedInstance();
    // Constructing it read the file: one line per sheet entry.
    QCOMPARE(DebugLines::lines().size(), 4);
    QVERIFY(DebugLines::lines().first().startsWith(QLatin1String("slices:  (")));
    QCOMPARE(&Orvane::SliceManager::sharedInstance(), &shared);
    QCOMPARE(DebugLines::lines().size(), 4);
    QCOMPARE(shared.metaObject()->className(), "Orvane::SliceManager");
    QVERIFY(shared.parent() == nullptr);
    QCOMPARE(colourAt(shared.slice("p_b")), QColor(16, 3, 200));
}

void tst_SliceManager::readsTheHostFile()
{
    const DebugLines lines;
    TestCatalogue catalogue;
    QCOMPARE(catalogue.m_slices.keys(),
             QStringList({"col_a", "col_b", "col_c", "ghost", "nofile", "p_a", "p_b", "p_c", "twice", "whole"}));
    QCOMPARE(int(catalogue.m_images.size()), 4);
    QCOMPARE(catalogue.m_images.at(0).size(), QSize(128, 96));
    QCOMPARE(catalogue.m_images.at(1).size(), QSize(32, 32));
    QVERIFY(catalogue.m_images.at(2).isNull());
    QVERIFY(catalogue.m_images.at(3).isNull());
    QVERIFY(catalogue.m_cache.isEmpty());
    QCOMPARE(catalogue.m_slices.value("p_c").rect, QRect(30, 3, 10, 20));
    QCOMPARE(catalogue.m_slices.value("col_c").rect, QRect(2, 51, 10, 20));
    QCOMPARE(catalogue.sheetIndexOf("twice"), 1);
    QCOMPARE(catalogue.sheetIndexOf("nofile"), 3);
    QCOMPARE(DebugLines::lines().last(),
             QStringLiteral("slices:  (\"col_a\", \"col_b\", \"col_c\", \"ghost\", \"nofile\", \"p_a\", \"p_b\", "
                            "\"p_c\", \"twice\", \"whole\")"));
}

void tst_SliceManager::readingAgainAppends()
{
    const DebugLines quiet;
    TestCatalogue catalogue;
    const QPixmap before = catalogue.slice("p_a");
    QVERIFY(catalogue.loadConfig());
    QCOMPARE(int(catalogue.m_images.size()), 8);
    QCOMPARE(catalogue.m_slices.size(), 10);
    QCOMPARE(catalogue.sheetIndexOf("p_a"), 4);
    QCOMPARE(catalogue.sheetIndexOf("twice"), 5);
    QVERIFY(catalogue.slicesPointIntoSheets());
    QCOMPARE(catalogue.slice("p_a").cacheKey(), before.cacheKey());
}

void tst_SliceManager::missingFileGivesFalse()
{
    Q_CLEANUP_RESOURCE(catalogue);
    QVERIFY(!QFile::exists(QStringLiteral(":/slices.json")));
    {
        const DebugLines lines;
        TestCatalogue catalogue;
        QVERIFY(catalogue.m_slices.isEmpty());
        QVERIFY(catalogue.m_images.empty());
        QVERIFY(!catalogue.loadConfig());
        QVERIFY(catalogue.slice("p_a").isNull());
        QVERIFY(catalogue.m_cache.isEmpty());
        // A missing file is not logged.
        QCOMPARE(DebugLines::lines(), QStringList({"slice:  \"p_a\"", "slice not found: \"p_a\""}));

        Q_INIT_RESOURCE(catalogue);
        QVERIFY(catalogue.loadConfig());
        QCOMPARE(catalogue.m_slices.size(), 10);
    }
    QVERIFY(QFile::exists(QStringLiteral(":/slices.json")));
}

void tst_SliceManager::slice_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QColor>("colour");

    QTest::newRow("first of a row") << "p_a" << QSize(10, 20) << QColor(2, 3, 200);
    QTest::newRow("second of a row") << "p_b" << QSize(10, 20) << QColor(16, 3, 200);
    QTest::newRow("third of a row") << "p_c" << QSize(10, 20) << QColor(30, 3, 200);
    QTest::newRow("second of a column") << "col_b" << QSize(10, 20) << QColor(2, 27, 200);
    QTest::newRow("third of a column") << "col_c" << QSize(10, 20) << QColor(2, 51, 200);
    QTest::newRow("no method: whole sheet") << "whole" << QSize(128, 96) << QColor(0, 0, 200);
    QTest::newRow("later sheet wins") << "twice" << QSize(32, 32) << QColor(20, 40, 240);
    QTest::newRow("sheet not in the resources") << "ghost" << QSize() << QColor();
    QTest::newRow("entry without a filename") << "nofile" << QSize() << QColor();
    QTest::newRow("unknown") << "x" << QSize() << QColor();
    QTest::newRow("empty name") << "" << QSize() << QColor();
    QTest::newRow("other letter case") << "P_a" << QSize() << QColor();
}

void tst_SliceManager::slice()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QFETCH(QColor, colour);

    const DebugLines quiet;
    TestCatalogue catalogue;
    for (int call = 0; call < 2; ++call) {
        const QPixmap pixmap = catalogue.slice(name);
        if (!colour.isValid()) {
            QVERIFY(pixmap.isNull());
            continue;
        }
        QCOMPARE(pixmap.size(), size);
        QCOMPARE(colourAt(pixmap), colour);
    }
}

void tst_SliceManager::unknownNameLogsAndLeavesTheCacheAlone()
{
    TestCatalogue catalogue;
    const DebugLines lines;
    QVERIFY(catalogue.slice("x").isNull());
    QCOMPARE(DebugLines::lines(), QStringList({"slice:  \"x\"", "slice not found: \"x\""}));
    QVERIFY(catalogue.m_cache.isEmpty());
    QCOMPARE(catalogue.m_slices.size(), 10);
}

void tst_SliceManager::knownNameLogsOneLine()
{
    TestCatalogue catalogue;
    const DebugLines lines;
    QVERIFY(!catalogue.slice("p_a").isNull());
    QVERIFY(catalogue.slice("ghost").isNull());
    QCOMPARE(DebugLines::lines(), QStringList({"slice:  \"p_a\"", "slice:  \"ghost\""}));
}

void tst_SliceManager::successfulCutHappensOnce()
{
    const DebugLines quiet;
    TestCatalogue catalogue;
    const QPixmap first = catalogue.slice("p_a");
    QCOMPARE(catalogue.m_cache.keys(), QStringList({"p_a"}));
    QCOMPARE(catalogue.m_cache.value("p_a").cacheKey(), first.cacheKey());

    // Paint over the sheet: a cut made now would show black.
    catalogue.m_images[0].fill(Qt::black);
    const QPixmap second = catalogue.slice("p_a");
    QCOMPARE(second.cacheKey(), first.cacheKey());
    QCOMPARE(colourAt(second), QColor(2, 3, 200));
    // A slice not cut before is cut from the sheet as it is now.
    QCOMPARE(colourAt(catalogue.slice("p_b")), QColor(Qt::black));
    QCOMPARE(catalogue.m_cache.size(), 2);
}

void tst_SliceManager::nullCutIsRetried()
{
    const DebugLines quiet;
    TestCatalogue catalogue;
    QVERIFY(catalogue.slice("ghost").isNull());
    QVERIFY(catalogue.m_cache.contains("ghost"));
    QVERIFY(catalogue.m_cache.value("ghost").isNull());
    QVERIFY(catalogue.slice("ghost").isNull());
    QCOMPARE(catalogue.m_cache.size(), 1);

    // The sheet turns up (in place, so the slice still points at it): the
    // next lookup cuts again and keeps the result.
    catalogue.m_images[2] = QPixmap::fromImage(filled(QSize(6, 7), Qt::green));
    const QPixmap found = catalogue.slice("ghost");
    QCOMPARE(found.size(), QSize(6, 7));
    QCOMPARE(colourAt(found), QColor(Qt::green));
    catalogue.m_images[2].fill(Qt::red);
    QCOMPARE(catalogue.slice("ghost").cacheKey(), found.cacheKey());
}

void tst_SliceManager::pathNamed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");

    const QString app = QCoreApplication::applicationDirPath();
    QTest::newRow("plain name") << "AppIcon.png" << app + "/images/AppIcon.png";
    QTest::newRow("subfolder") << "covers/a.png" << app + "/images/covers/a.png";
    QTest::newRow("dot dot") << "../beside.png" << app + "/beside.png";
    QTest::newRow("dot dot twice") << "../../up.png" << QDir::cleanPath(app + "/../up.png");
    QTest::newRow("dot and doubled separators") << "./a//b/./c.png" << app + "/images/a/b/c.png";
    QTest::newRow("trailing separator") << "sub/" << app + "/images/sub";
    QTest::newRow("absolute name stays inside") << "/etc/x.png" << app + "/images/etc/x.png";
    QTest::newRow("empty name") << "" << app + "/images";
#ifdef Q_OS_WIN
    QTest::newRow("backslash is a separator on Windows") << "a\\b.png" << app + "/images/a/b.png";
#else
    QTest::newRow("backslash is part of the name on this system") << "a\\b.png" << app + "/images/a\\b.png";
#endif
}

void tst_SliceManager::pathNamed()
{
    QFETCH(QString, name);
    QFETCH(QString, path);
    QCOMPARE(Orvane::SliceManager::pathNamed(name), path);
    QVERIFY(path.startsWith(QDir::cleanPath(getResourcesPath() + "/..")));
}

void tst_SliceManager::dotDotResolvesBesideTheFolder()
{
    writeImage(appDir() + "/beside.png", filled(QSize(3, 3), Qt::blue));
    writeImage(imagesDir() + "/beside.png", filled(QSize(5, 5), Qt::red));
    const QPixmap beside = Orvane::SliceManager::pixmapNamed("../beside.png");
    QCOMPARE(beside.size(), QSize(3, 3));
    QCOMPARE(colourAt(beside), QColor(Qt::blue));
    QCOMPARE(Orvane::SliceManager::imageNamed("sub/../../beside.png").size(), QSize(3, 3));
    QCOMPARE(Orvane::SliceManager::pixmapNamed("beside.png").size(), QSize(5, 5));
}

void tst_SliceManager::pixmapAndImageAreUncached()
{
    const QString path = imagesDir() + "/sub/changing.png";
    writeImage(path, filled(QSize(4, 4), Qt::red));
    QCOMPARE(colourAt(Orvane::SliceManager::pixmapNamed("sub/changing.png")), QColor(Qt::red));
    QCOMPARE(QColor(Orvane::SliceManager::imageNamed("sub/changing.png").pixel(0, 0)), QColor(Qt::red));

    // Same size, new contents: each call reads the file again.
    QTest::qWait(1100); // a newer modification time, whatever the file system's resolution
    writeImage(path, filled(QSize(4, 4), Qt::green));
    QCOMPARE(colourAt(Orvane::SliceManager::pixmapNamed("sub/changing.png")), QColor(Qt::green));
    QCOMPARE(QColor(Orvane::SliceManager::imageNamed("sub/changing.png").pixel(0, 0)), QColor(Qt::green));

    QVERIFY(QFile::remove(path));
    QVERIFY(Orvane::SliceManager::pixmapNamed("sub/changing.png").isNull());
    QVERIFY(Orvane::SliceManager::imageNamed("sub/changing.png").isNull());
}

void tst_SliceManager::missingFilesAreNull()
{
    QVERIFY(Orvane::SliceManager::pixmapNamed("absent.png").isNull());
    QVERIFY(Orvane::SliceManager::imageNamed("absent.png").isNull());
    QVERIFY(Orvane::SliceManager::pixmapNamed("").isNull());
    QVERIFY(Orvane::SliceManager::imageNamed("").isNull());

    QFile notAnImage(imagesDir() + "/text.png");
    QVERIFY(notAnImage.open(QIODevice::WriteOnly));
    notAnImage.write("not an image");
    notAnImage.close();
    QVERIFY(Orvane::SliceManager::pixmapNamed("text.png").isNull());
    QVERIFY(Orvane::SliceManager::imageNamed("text.png").isNull());
}

void tst_SliceManager::appIcon()
{
    QVERIFY(Orvane::SliceManager::appIcon().isNull());
    writeImage(imagesDir() + "/AppIcon.png", filled(QSize(16, 16), QColor(10, 20, 30)));
    const QPixmap icon = Orvane::SliceManager::appIcon();
    QCOMPARE(icon.size(), QSize(16, 16));
    QCOMPARE(colourAt(icon), QColor(10, 20, 30));
    QVERIFY(QFile::remove(imagesDir() + "/AppIcon.png"));
    QVERIFY(Orvane::SliceManager::appIcon().isNull());
}

void tst_SliceManager::pixmapGroupNamed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("count");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QList<int>>("starts");
    QTest::addColumn<QSize>("frameSize");

    QTest::newRow("three frames of 100 pixels") << "strip.png" << 3 << QRect() << QList<int>({0, 33, 66}) << QSize(33, 10);
    QTest::newRow("one frame") << "strip.png" << 1 << QRect() << QList<int>({0}) << QSize(100, 10);
    QTest::newRow("even split") << "strip.png" << 4 << QRect() << QList<int>({0, 25, 50, 75}) << QSize(25, 10);
    QTest::newRow("count -1") << "strip.png" << -1 << QRect() << QList<int>() << QSize();
    QTest::newRow("count 0") << "strip.png" << 0 << QRect() << QList<int>() << QSize();
    QTest::newRow("missing file") << "absent.png" << 3 << QRect() << QList<int>() << QSize();
    QTest::newRow("cropped first") << "strip.png" << 2 << QRect(10, 2, 60, 5) << QList<int>({10, 40}) << QSize(30, 5);
    QTest::newRow("crop clipped to the image") << "strip.png" << 2 << QRect(80, 0, 50, 50) << QList<int>({80, 90}) << QSize(10, 10);
    QTest::newRow("crop outside the image") << "strip.png" << 2 << QRect(200, 0, 10, 10) << QList<int>() << QSize();
    QTest::newRow("crop touching the image") << "strip.png" << 1 << QRect(-10, -10, 11, 11) << QList<int>({0}) << QSize(1, 1);
    QTest::newRow("more frames than pixels") << "strip.png" << 101 << QRect() << QList<int>() << QSize();
    QList<int> everyColumn;
    for (int x = 0; x < 100; ++x)
        everyColumn << x;
    QTest::newRow("as many frames as pixels") << "strip.png" << 100 << QRect() << everyColumn << QSize(1, 10);
    QTest::newRow("empty rect means no crop") << "strip.png" << 2 << QRect(10, 0, 0, 10) << QList<int>({0, 50}) << QSize(50, 10);
}

void tst_SliceManager::pixmapGroupNamed()
{
    QFETCH(QString, name);
    QFETCH(int, count);
    QFETCH(QRect, rect);
    QFETCH(QList<int>, starts);
    QFETCH(QSize, frameSize);

    // Column x has red x, row y green y.
    QImage strip(100, 10, QImage::Format_RGB32);
    for (int y = 0; y < strip.height(); ++y)
        for (int x = 0; x < strip.width(); ++x)
            strip.setPixel(x, y, qRgb(x, y, 50));
    writeImage(imagesDir() + "/strip.png", strip);

    const QVector<QPixmap> frames = Orvane::SliceManager::pixmapGroupNamed(name, count, rect);
    QCOMPARE(frames.size(), starts.size());
    const int top = rect.isEmpty() ? 0 : qMax(0, rect.y());
    for (int i = 0; i < frames.size(); ++i) {
        QCOMPARE(frames.at(i).size(), frameSize);
        QCOMPARE(colourAt(frames.at(i)), QColor(starts.at(i), top, 50));
        const int right = frameSize.width() - 1;
        QCOMPARE(colourAt(frames.at(i), right, 0), QColor(starts.at(i) + right, top, 50));
    }
}

void tst_SliceManager::lossFileCoverArrivesLate()
{
    const QString path = imagesDir() + "/cover_default.png";
    QVERIFY(!QFile::exists(path));
    QVERIFY(Orvane::SliceManager::lossFileCover().isNull());
    QVERIFY(Orvane::SliceManager::lossFileCover().isNull());

    writeImage(path, filled(QSize(8, 6), QColor(1, 2, 3)));
    const QPixmap cover = Orvane::SliceManager::lossFileCover();
    QCOMPARE(cover.size(), QSize(8, 6));
    QCOMPARE(colourAt(cover), QColor(1, 2, 3));

    // Once loaded it is kept: the file is never read again.
    writeImage(path, filled(QSize(4, 4), QColor(9, 9, 9)));
    QCOMPARE(Orvane::SliceManager::lossFileCover().size(), QSize(8, 6));
    QVERIFY(QFile::remove(path));
    QCOMPARE(Orvane::SliceManager::lossFileCover().cacheKey(), cover.cacheKey());
}

QTEST_MAIN(tst_SliceManager)
#include "tst_slicemanager.moc"
