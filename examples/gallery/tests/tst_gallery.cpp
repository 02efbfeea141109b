// The gallery without a display: it must write one picture per page (and
// per skin where the page follows the skin) under gallery-shots/ in its
// working directory, print their paths and exit 0.
#include <QtTest>

#include <QImage>
#include <QProcess>
#include <QSet>
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
    void helpExitsAtOnce();

private:
    QTemporaryDir m_work;
    QStringList m_printed;
    QString m_shots;
};

namespace {

QStringList expectedPictures()
{
    return {QStringLiteral("foundation.png"), QStringLiteral("buttons.png"),
            QStringLiteral("labels.png"),     QStringLiteral("slices.png"),
            QStringLiteral("language.png"),   QStringLiteral("links.png")};
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
    QProcess gallery;
    gallery.setProcessEnvironment(withoutDisplay());
    gallery.setWorkingDirectory(m_work.path());
    gallery.start(QStringLiteral(GALLERY_EXECUTABLE), QStringList());
    QVERIFY2(gallery.waitForFinished(180000), "the gallery did not finish within three minutes");
    QCOMPARE(gallery.exitStatus(), QProcess::NormalExit);
    QCOMPARE(gallery.exitCode(), 0);
    const QString out = QString::fromLocal8Bit(gallery.readAllStandardOutput());
    m_printed = out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
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
