// The gallery without a display: it must write one picture per page (and
// per skin where the page follows the skin) under gallery-shots/ in its
// working directory, print their paths and exit 0.
#include <QtTest>

#include <QDateTime>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>

class tst_Gallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void writesEveryPicture_data();
    void writesEveryPicture();
    void picturesAreNotBlank_data();
    void picturesAreNotBlank();
    void skinsLookDifferent();
    void logsToItsFolder();
    void helpExitsAtOnce();

private:
    QDateTime m_started;
    QTemporaryDir m_work;
    QStringList m_printed;
    QString m_shots;
};

namespace {

QStringList expectedPictures()
{
    QStringList names = {QStringLiteral("foundation.png"), QStringLiteral("buttons.png"),
                         QStringLiteral("labels.png"),     QStringLiteral("slices.png"),
                         QStringLiteral("language.png"),   QStringLiteral("links.png"),
                         QStringLiteral("aes.png")};
    for (const char *skin : {"dark", "light", "light-blue", "light-violet"})
        names << QStringLiteral("dialogs-%1.png").arg(QLatin1String(skin))
              << QStringLiteral("messages-%1.png").arg(QLatin1String(skin));
    return names;
}

QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    return env;
}

} // namespace

void tst_Gallery::initTestCase()
{
    QVERIFY(m_work.isValid());
    m_started = QDateTime::currentDateTime().addSecs(-1);
    QProcess gallery;
    gallery.setProcessEnvironment(withoutDisplay());
    gallery.setWorkingDirectory(m_work.path());
#ifdef Q_OS_WIN
    // A Windows session always has its desktop, so the gallery opens its
    // window unless asked for the pictures.
    const QStringList arguments = {QStringLiteral("--shots"), QStringLiteral("gallery-shots")};
#else
    const QStringList arguments;
#endif
    gallery.start(QStringLiteral(GALLERY_EXECUTABLE), arguments);
    QVERIFY2(gallery.waitForFinished(180000), "the gallery did not finish within three minutes");
    QCOMPARE(gallery.exitStatus(), QProcess::NormalExit);
    QCOMPARE(gallery.exitCode(), 0);
    const QString out = QString::fromLocal8Bit(gallery.readAllStandardOutput());
    // Windows' text mode ends the printed lines with "\r\n".
    m_printed = QString(out).remove(QLatin1Char('\r')).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    m_shots = QDir(m_work.path()).absoluteFilePath(QStringLiteral("gallery-shots"));
    QVERIFY(!m_printed.isEmpty());
}

void tst_Gallery::writesEveryPicture_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : expectedPictures())
        QTest::newRow(qPrintable(name)) << name;
}

void tst_Gallery::writesEveryPicture()
{
    QFETCH(QString, name);
    const QString path = QDir(m_shots).absoluteFilePath(name);
    QVERIFY2(m_printed.contains(path), qPrintable(path + QStringLiteral(" was not printed")));
    QVERIFY(QFileInfo(path).isFile());
}

void tst_Gallery::picturesAreNotBlank_data()
{
    writesEveryPicture_data();
}

void tst_Gallery::picturesAreNotBlank()
{
    QFETCH(QString, name);
    const QImage image(QDir(m_shots).absoluteFilePath(name));
    QVERIFY(!image.isNull());
    QVERIFY(image.width() >= 600 && image.height() >= 400);

    // A blank or failed render is one colour, or nearly so. A real page has
    // text, pictures and cards: many colours, none covering almost all of it.
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); y += 2)
        for (int x = 0; x < image.width(); x += 2)
            ++counts[image.pixel(x, y)];
    const int samples = ((image.width() + 1) / 2) * ((image.height() + 1) / 2);
    int largest = 0;
    for (int count : qAsConst(counts))
        largest = qMax(largest, count);
    QVERIFY2(counts.size() >= 100, qPrintable(QStringLiteral("only %1 colours").arg(counts.size())));
    QVERIFY2(largest < samples * 9 / 10, "one colour covers nine tenths of the picture");
}

// The bar dialog sits in the middle of the dialogs page: its content area
// is dark in the dark skin and white in the light ones.
void tst_Gallery::skinsLookDifferent()
{
    const auto meanGrey = [this](const QString &name) {
        const QImage image(QDir(m_shots).absoluteFilePath(name));
        const QRect area(image.width() / 2 - 180, image.height() / 2 + 50, 60, 30);
        qint64 sum = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                sum += qGray(image.pixel(x, y));
        return sum / (area.width() * area.height());
    };
    QVERIFY2(meanGrey(QStringLiteral("dialogs-dark.png")) < 80, "the dark skin's dialog is not dark");
    for (const char *skin : {"light", "light-blue", "light-violet"})
        QVERIFY2(meanGrey(QStringLiteral("dialogs-%1.png").arg(QLatin1String(skin))) > 200,
                 qPrintable(QStringLiteral("the %1 skin's dialog is not light").arg(QLatin1String(skin))));
}

// The gallery names its log folder in the status bar; the run must have
// written a log file there with the library's own messages in it.
void tst_Gallery::logsToItsFolder()
{
    // XDG_DATA_HOME or ~/.local/share on Linux, the local application data
    // folder on Windows: where the gallery's own data folder lies.
    const QString dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QDir logs(dataHome + QStringLiteral("/Orvane/Gallery shots/logs"));
    const QFileInfoList files = logs.entryInfoList({QStringLiteral("gallery_*.txt")}, QDir::Files, QDir::Time);
    QVERIFY2(!files.isEmpty(), qPrintable(logs.path()));
    QVERIFY(files.first().lastModified() >= m_started);
    QFile log(files.first().absoluteFilePath());
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QByteArray text = log.readAll();
    QVERIFY(text.contains("[debug] curVersion: 1.0.0"));
    QVERIFY(text.contains("[debug] slices: "));
}

void tst_Gallery::helpExitsAtOnce()
{
    QProcess gallery;
    gallery.setProcessEnvironment(withoutDisplay());
    gallery.setWorkingDirectory(m_work.path());
    gallery.start(QStringLiteral(GALLERY_EXECUTABLE), {QStringLiteral("--help")});
    QVERIFY(gallery.waitForFinished(30000));
    QCOMPARE(gallery.exitCode(), 0);
    QVERIFY(gallery.readAllStandardOutput().contains("--shots"));
}

QTEST_GUILESS_MAIN(tst_Gallery)
#include "tst_gallery.moc"
