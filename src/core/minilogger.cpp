#include <Orvane/minilogger.h>

#include "minilogger_p.h"
#include "qtcompat_p.h"
#include "winplatform_p.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QSharedPointer>
#include <QTextStream>

#include <atomic>
#include <cerrno>
#include <cstdio>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace Orvane {

namespace {

const char messagePattern[] = "%{time yyyyMMdd h:mm:ss.zzz} [%{type}] %{message}";

// The descriptor of the open log file, or -1. The handler reads only this,
// never the sink itself, so that it needs no lock and keeps working (into
// nothing) while the sink is torn down at exit.
std::atomic<int> logDescriptor{-1};

struct LogSink
{
    ~LogSink() { logDescriptor.store(-1); }

    QSharedPointer<QFile> file;
    QSharedPointer<QTextStream> stream;
};

LogSink &logSink()
{
    static LogSink sink;
    return sink;
}

// Appends `bytes` to the log file in one write. Only an interrupted or short
// write is continued, which a regular file does not do in practice.
void appendToLog(const QByteArray &bytes)
{
    const int fd = logDescriptor.load();
    if (fd < 0)
        return;
    const char *data = bytes.constData();
    qint64 left = bytes.size();
#ifdef Q_OS_WIN
    const HANDLE handle = reinterpret_cast<HANDLE>(_get_osfhandle(fd));
    if (handle == INVALID_HANDLE_VALUE)
        return;
    // The append below is one system call, but not every implementation of
    // it is atomic: wine reads the file's size and then writes there, so two
    // threads can write at the same place and one line is lost. Writes from
    // this process's threads therefore take turns. A slim lock needs no
    // construction or destruction, so it also works while the process ends.
    static SRWLOCK appendLock = SRWLOCK_INIT;
    AcquireSRWLockExclusive(&appendLock);
    while (left > 0) {
        // Both offsets all ones: the system appends at the end of the file,
        // atomically, whatever the handle's position.
        OVERLAPPED at = {};
        at.Offset = 0xFFFFFFFF;
        at.OffsetHigh = 0xFFFFFFFF;
        DWORD written = 0;
        if (!WriteFile(handle, data, DWORD(left), &written, &at) || written == 0)
            break;
        data += written;
        left -= written;
    }
    ReleaseSRWLockExclusive(&appendLock);
#else
    while (left > 0) {
        const ssize_t written = ::write(fd, data, size_t(left));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        data += written;
        left -= written;
    }
#endif
}

} // namespace

void miniLogMessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QByteArray line = qFormatLogMessage(type, context, message).toUtf8();
    appendToLog(line + '\n');
#ifdef Q_OS_WIN
    sendDebuggerLine(line.constData());
#endif
    fprintf(stderr, "%s\n", line.constData());
}

void openGlobalTextStream(const QString &filePath)
{
    LogSink &sink = logSink();
    if (sink.file)
        return;
    sink.file = QSharedPointer<QFile>::create(filePath);
    // Append mode opens the descriptor for appending, so that every write
    // lands at the end of the file in one piece.
    sink.file->open(QIODevice::WriteOnly | QIODevice::Append);
    sink.stream = QSharedPointer<QTextStream>::create();
    sink.stream->setDevice(sink.file.data());
    setUtf8(sink.stream.data());
    if (sink.file->isOpen())
        logDescriptor.store(sink.file->handle());
}

void initMiniLogger(const QString &filePrefix, const QString &dirPath)
{
    qSetMessagePattern(QString::fromLatin1(messagePattern));
    const QString dir = dirPath.isEmpty() ? QCoreApplication::applicationDirPath() : dirPath;
    const QString name = filePrefix + QDateTime::currentDateTime().toString(QStringLiteral("yyyy_MM_dd_hh_mm_ss"))
                         + QStringLiteral(".txt");
    // Still goes to the previous handler.
    qDebug().nospace().noquote() << "dirPath: " << dir;
    openGlobalTextStream(dir + QDir::separator() + name);
    qInstallMessageHandler(miniLogMessageHandler);
}

} // namespace Orvane
