#include <Orvane/orvanecore.h>

#include "core/minilogger_p.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QThread>
#include <QtTest>

#include <cstdio>
#include <vector>

#include <unistd.h>

// The handler is process-wide and the first log file stays for the whole
// process, so the functions below run in declaration order and each starts
// from the state the previous one left. What needs a fresh process (a crash,
// a missing directory) runs this executable again as a child.

namespace {

const char childModeVariable[] = "ORVANE_LOG_CHILD";
const char childDirVariable[] = "ORVANE_LOG_DIR";
constexpr int childLines = 1000;

// A whole log line: date as eight digits, the time with unpadded hours,
// the type in brackets, the text.
const QRegularExpression linePattern(
    QStringLiteral("^(\\d{8}) (?:[0-9]|1[0-9]|2[0-3]):[0-5]\\d:[0-5]\\d\\.\\d{3} \\[(debug|info|warning|critical|fatal)\\] (.*)$"));

QStringList readLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    QStringList lines = text.split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

// The text after "[type] ", or a null string for a line out of pattern.
QString messageOf(const QString &line, const QString &type = QStringLiteral("debug"))
{
    const QRegularExpressionMatch m = linePattern.match(line);
    if (!m.hasMatch() || m.captured(2) != type)
        return QString();
    return m.captured(3);
}

QStringList timestampNames(const QString &prefix, const QDateTime &from, const QDateTime &to)
{
    QStringList names;
    for (QDateTime t = from.addMSecs(-from.time().msec()); t <= to; t = t.addSecs(1))
        names << prefix + t.toString(QStringLiteral("yyyy_MM_dd_hh_mm_ss")) + QStringLiteral(".txt");
    return names;
}

// Captures the standard error stream while alive (the handler writes every
// line there too, which would flood the test output). Whatever is not a log
// line, such as a sanitizer's report, is passed on when it ends; a process
// that ends abruptly leaves it in the file named at the start.
class CapturedStderr
{
public:
    CapturedStderr()
    {
        m_file.open();
        fflush(stderr);
        fprintf(stderr, "standard error captured in %s\n", qPrintable(m_file.fileName()));
        m_saved = dup(STDERR_FILENO);
        dup2(m_file.handle(), STDERR_FILENO);
    }
    ~CapturedStderr() { restore(); }

    // Restores the stream and returns the log lines it received.
    QStringList restore()
    {
        if (m_saved < 0)
            return m_logLines;
        fflush(stderr);
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
        m_saved = -1;
        QFile captured(m_file.fileName());
        if (captured.open(QIODevice::ReadOnly)) {
            const QList<QByteArray> lines = captured.readAll().split('\n');
            for (const QByteArray &line : lines) {
                if (linePattern.match(QString::fromUtf8(line)).hasMatch())
                    m_logLines << QString::fromUtf8(line);
                else if (!line.isEmpty())
                    fprintf(stderr, "%s\n", line.constData());
            }
        }
        return m_logLines;
    }

private:
    QTemporaryFile m_file;
    int m_saved = -1;
    QStringList m_logLines;
};

// A child's environment. Its "dirPath:" line goes to Qt's default handler,
// which on Windows writes to the debugger instead of the standard error
// stream when the process has no console (as a child of ours has not);
// QT_FORCE_STDERR_LOGGING sends it to the stream, as on Linux.
QProcessEnvironment childEnvironment(QProcessEnvironment env)
{
    env.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    return env;
}

// Starts this executable as a child in `mode` (see runChild), logging into
// `dir`.
void startChild(QProcess &child, const QString &mode, const QString &dir)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QString::fromLatin1(childModeVariable), mode);
    env.insert(QString::fromLatin1(childDirVariable), dir);
    child.setProcessEnvironment(childEnvironment(env));
    child.start(QCoreApplication::applicationFilePath(), QStringList());
}

// The lines a finished child wrote to its standard error stream. The stream
// is in text mode on Windows, where each "\n" arrives as "\r\n".
QStringList errorLines(QProcess &child)
{
    return QString::fromUtf8(child.readAllStandardError()).split(QRegularExpression(QStringLiteral("\r?\n")));
}

const char existingLogName[] = "existing.txt";

// The child process: logs into the given directory (in "append" mode into
// the file existingLogName there, opened first), then either crashes with
// qFatal or ends normally.
int runChild(const QByteArray &mode)
{
    const QString dir = qEnvironmentVariable(childDirVariable);
    if (mode == "append")
        Orvane::openGlobalTextStream(QDir(dir).filePath(QString::fromLatin1(existingLogName)));
    Orvane::initMiniLogger(QStringLiteral("child_"), dir);
    for (int i = 0; i < childLines; ++i)
        qDebug("child line %d", i);
    if (mode == "crash")
        qFatal("%s", QString::fromUtf8("fatal end ü").toUtf8().constData());
    return 0;
}

} // namespace

class tst_MiniLogger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void firstInitOpensFileBesideExecutable();
    void everyTypeInPattern_data();
    void everyTypeInPattern();
    void nonAsciiIsUtf8();
    void secondInitKeepsFirstFile();
    void openGlobalTextStreamFirstPathWins();
    void threadsWriteWholeLines();
    void crashKeepsEveryLine();
    void existingFileIsAppendedTo();
    void missingDirectory();

private:
    QStringList newLogLines() const
    {
        QStringList lines = readLines(m_logPath);
        return lines.mid(m_linesSeen);
    }
    void markSeen() { m_linesSeen = readLines(m_logPath).size(); }

    QString m_logPath;
    int m_linesSeen = 0;
};

void tst_MiniLogger::initTestCase()
{
    QVERIFY(!qEnvironmentVariableIsSet("QT_MESSAGE_PATTERN"));
}

void tst_MiniLogger::cleanupTestCase()
{
    if (!m_logPath.isEmpty())
        QFile::remove(m_logPath);
}

void tst_MiniLogger::firstInitOpensFileBesideExecutable()
{
    const QDir appDir(QCoreApplication::applicationDirPath());
    const QStringList filter{QStringLiteral("app_*.txt")};
    for (const QString &stale : appDir.entryList(filter, QDir::Files))
        QVERIFY(QFile::remove(appDir.filePath(stale)));

    const QDateTime before = QDateTime::currentDateTime();
    // Emitted before the handler is installed, so Qt Test's handler sees it.
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QStringLiteral("dirPath: ") + appDir.path()));
    Orvane::initMiniLogger(QStringLiteral("app_"), QString());
    const QDateTime after = QDateTime::currentDateTime();

    QtMessageHandler installed = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(installed);
    QVERIFY(installed == &Orvane::miniLogMessageHandler);

    const QStringList created = appDir.entryList(filter, QDir::Files);
    QCOMPARE(created.size(), 1);
    QVERIFY2(timestampNames(QStringLiteral("app_"), before, after).contains(created.first()),
             qPrintable(created.first()));
    m_logPath = appDir.filePath(created.first());
    QCOMPARE(QFileInfo(m_logPath).size(), 0); // the dirPath line is not in it

    const QString today = QDate::currentDate().toString(QStringLiteral("yyyyMMdd"));
    qDebug("x");
    const QStringList lines = readLines(m_logPath);
    QCOMPARE(lines.size(), 1);
    const QRegularExpressionMatch m = linePattern.match(lines.first());
    QVERIFY2(m.hasMatch(), qPrintable(lines.first()));
    QVERIFY(m.captured(1) == today || m.captured(1) == QDate::currentDate().toString(QStringLiteral("yyyyMMdd")));
    QCOMPARE(m.captured(2), QStringLiteral("debug"));
    QCOMPARE(m.captured(3), QStringLiteral("x"));
    // Exactly the pattern, character for character, at a known time.
    const QString expected = QDateTime::fromString(lines.first().left(8) + lines.first().mid(9, lines.first().indexOf(QLatin1Char(' '), 9) - 9),
                                                   QStringLiteral("yyyyMMddh:mm:ss.zzz"))
                                 .toString(QStringLiteral("yyyyMMdd h:mm:ss.zzz")) + QStringLiteral(" [debug] x");
    QCOMPARE(lines.first(), expected);
    markSeen();
}

void tst_MiniLogger::everyTypeInPattern_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("word");

    QTest::newRow("debug") << int(QtDebugMsg) << "debug";
    QTest::newRow("info") << int(QtInfoMsg) << "info";
    QTest::newRow("warning") << int(QtWarningMsg) << "warning";
    QTest::newRow("critical") << int(QtCriticalMsg) << "critical";
}

void tst_MiniLogger::everyTypeInPattern()
{
    QFETCH(int, type);
    QFETCH(QString, word);

    CapturedStderr captured;
    const QString text = QStringLiteral("message of type ") + word;
    switch (QtMsgType(type)) {
    case QtDebugMsg: qDebug().noquote() << text; break;
    case QtInfoMsg: qInfo().noquote() << text; break;
    case QtWarningMsg: qWarning().noquote() << text; break;
    case QtCriticalMsg: qCritical().noquote() << text; break;
    default: QFAIL("unexpected type");
    }
    const QStringList lines = newLogLines();
    QCOMPARE(lines.size(), 1);
    QCOMPARE(messageOf(lines.first(), word), text);
    QCOMPARE(captured.restore(), lines);
    markSeen();
}

void tst_MiniLogger::nonAsciiIsUtf8()
{
    const QString text = QString::fromUtf8("Grüße, 日本語, русский, ✓");
    qDebug().noquote() << text;

    QFile file(m_logPath);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.endsWith(QByteArray("[debug] ") + text.toUtf8() + '\n'));
    const QStringList lines = newLogLines();
    QCOMPARE(lines.size(), 1);
    QCOMPARE(messageOf(lines.first()), text);
    markSeen();
}

void tst_MiniLogger::secondInitKeepsFirstFile()
{
    QTemporaryDir other;
    QVERIFY(other.isValid());
    Orvane::initMiniLogger(QStringLiteral("second_"), other.path());
    QVERIFY(QDir(other.path()).isEmpty());

    qDebug("after the second set-up");
    const QStringList lines = newLogLines();
    // The handler of the first set-up was current, so the second "dirPath:"
    // line lands in the first file too.
    QCOMPARE(lines.size(), 2);
    QCOMPARE(messageOf(lines.at(0)), QStringLiteral("dirPath: ") + other.path());
    QCOMPARE(messageOf(lines.at(1)), QStringLiteral("after the second set-up"));
    QVERIFY(QDir(other.path()).isEmpty());
    markSeen();
}

void tst_MiniLogger::openGlobalTextStreamFirstPathWins()
{
    QTemporaryDir other;
    QVERIFY(other.isValid());
    const QString path = other.filePath(QStringLiteral("elsewhere.txt"));
    Orvane::openGlobalTextStream(path);
    QVERIFY(!QFile::exists(path));
    qDebug("still the first file");
    const QStringList lines = newLogLines();
    QCOMPARE(lines.size(), 1);
    QCOMPARE(messageOf(lines.first()), QStringLiteral("still the first file"));
    markSeen();
}

void tst_MiniLogger::threadsWriteWholeLines()
{
    constexpr int threadCount = 8;
    constexpr int perThread = 5000;
    // Long enough that a line written in pieces would show.
    const QString padding(200, QLatin1Char('.'));

    std::vector<QThread *> threads;
    for (int t = 0; t < threadCount; ++t) {
        threads.push_back(QThread::create([t, padding] {
            for (int i = 0; i < perThread; ++i)
                qDebug().noquote().nospace() << "thread " << t << " message " << i << ' ' << padding << " end";
        }));
    }
    CapturedStderr captured;
    for (QThread *thread : threads)
        thread->start();
    for (QThread *thread : threads)
        QVERIFY(thread->wait(120000));
    qDeleteAll(threads);
    // The standard error stream got every line too.
    QCOMPARE(captured.restore().size(), threadCount * perThread);

    const QStringList lines = newLogLines();
    QCOMPARE(lines.size(), threadCount * perThread);
    const QRegularExpression text(QStringLiteral("^thread (\\d) message (\\d+) \\.{200} end$"));
    QSet<int> seen;
    std::vector<int> lastOfThread(threadCount, -1);
    for (const QString &line : lines) {
        const QRegularExpressionMatch m = text.match(messageOf(line));
        QVERIFY2(m.hasMatch(), qPrintable(line));
        const int t = m.captured(1).toInt();
        const int i = m.captured(2).toInt();
        QVERIFY(t < threadCount && i < perThread);
        seen.insert(t * perThread + i);
        // Each thread's own messages stay in order.
        QVERIFY(i > lastOfThread[size_t(t)]);
        lastOfThread[size_t(t)] = i;
    }
    QCOMPARE(seen.size(), threadCount * perThread);
    markSeen();
}

void tst_MiniLogger::crashKeepsEveryLine()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QProcess child;
    startChild(child, QStringLiteral("crash"), dir.path());
    QVERIFY(child.waitForFinished(60000));
    QCOMPARE(child.exitStatus(), QProcess::CrashExit);

    const QStringList files = QDir(dir.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY(files.first().startsWith(QStringLiteral("child_")));
    const QStringList lines = readLines(dir.filePath(files.first()));
    QCOMPARE(lines.size(), childLines + 1);
    for (int i = 0; i < childLines; ++i)
        QCOMPARE(messageOf(lines.at(i)), QStringLiteral("child line %1").arg(i));
    QCOMPARE(messageOf(lines.last(), QStringLiteral("fatal")), QString::fromUtf8("fatal end ü"));

    // The standard error stream received the same lines, after the
    // "dirPath:" line that went to Qt's default handler.
    QStringList errLines = errorLines(child);
    errLines.removeAll(QString());
    QVERIFY(errLines.size() >= childLines + 2);
    QCOMPARE(messageOf(errLines.first()), QStringLiteral("dirPath: ") + dir.path());
    QCOMPARE(errLines.mid(1, childLines + 1), lines);
}

void tst_MiniLogger::existingFileIsAppendedTo()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QString::fromLatin1(existingLogName));
    const QByteArray earlier("earlier text, longer than one line of the child's log will be ......\n"
                             "and a second line\n");
    {
        QFile existing(path);
        QVERIFY(existing.open(QIODevice::WriteOnly));
        QCOMPARE(existing.write(earlier), qint64(earlier.size()));
    }
    QProcess child;
    startChild(child, QStringLiteral("append"), dir.path());
    QVERIFY(child.waitForFinished(60000));
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);

    // No other file was made, the earlier text is intact and every line of
    // the child follows it.
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QString::fromLatin1(existingLogName)});
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith(earlier));
    const QStringList lines = readLines(path);
    QCOMPARE(lines.size(), 2 + childLines);
    for (int i = 0; i < childLines; ++i)
        QCOMPARE(messageOf(lines.at(2 + i)), QStringLiteral("child line %1").arg(i));
}

void tst_MiniLogger::missingDirectory()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString missing = dir.filePath(QStringLiteral("not/there"));
    QProcess child;
    startChild(child, QStringLiteral("end"), missing);
    QVERIFY(child.waitForFinished(60000));
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);

    QVERIFY(!QFileInfo::exists(dir.filePath(QStringLiteral("not"))));
    QVERIFY(QDir(dir.path()).isEmpty());
    // The standard error output still works.
    QStringList errLines = errorLines(child);
    errLines.removeAll(QString());
    QCOMPARE(errLines.size(), childLines + 1);
    QCOMPARE(messageOf(errLines.last()), QStringLiteral("child line %1").arg(childLines - 1));
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QByteArray mode = qgetenv(childModeVariable);
    if (!mode.isEmpty())
        return runChild(mode);
    tst_MiniLogger test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_minilogger.moc"
