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

#ifdef Q_OS_WIN
// Where in the log file the next line goes. Each line reserves its own range
// here with one atomic addition and is then written at that offset, so lines
// of different threads never land on the same bytes, without a lock. It
// starts at the file's size when the file is opened, so lines are appended
// after what an existing file already holds.
std::atomic<qint64> nextLogOffset{0};
#endif

// Makes `fd` the log file the handler writes into (-1: none), its lines
// going after its first `size` bytes. The offset is set before the
// descriptor is published, so a handler that sees the descriptor also sees
// the offset that belongs to it.
void publishLogFile(int fd, qint64 size)
{
#ifdef Q_OS_WIN
    nextLogOffset.store(size);
#else
    Q_UNUSED(size); // the descriptor is in append mode
#endif
    logDescriptor.store(fd);
}

// Writes `bytes` to the end of the log file. Only an interrupted or short
// write is continued, which a regular file does not do in practice. A write
// that fails drops the line (the handler has no one to report it to).
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
    // Not an append at the end of the file: not every implementation of that
    // is atomic (wine reads the file's size and then writes there, so two
    // threads could write at the same place and one line would be lost).
    // Instead the line takes the next free range of the file for itself and
    // is written at its offset. If the write fails, the range stays taken:
    // once later lines follow, the file holds zero bytes (after whatever part
    // was written) where the line would have been.
    qint64 offset = nextLogOffset.fetch_add(left);
    while (left > 0) {
        OVERLAPPED at = {};
        at.Offset = DWORD(quint64(offset) & 0xFFFFFFFFu);
        at.OffsetHigh = DWORD(quint64(offset) >> 32);
        DWORD written = 0;
        if (!WriteFile(handle, data, DWORD(left), &written, &at) || written == 0)
            return;
        data += written;
        left -= written;
        offset += written;
    }
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
    // lands at the end of the file in one piece (on Linux; Windows writes
    // each line at an offset of its own, after the file's current size).
    sink.file->open(QIODevice::WriteOnly | QIODevice::Append);
    sink.stream = QSharedPointer<QTextStream>::create();
    sink.stream->setDevice(sink.file.data());
    setUtf8(sink.stream.data());
    if (sink.file->isOpen())
        publishLogFile(sink.file->handle(), sink.file->size());
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
