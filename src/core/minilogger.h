#ifndef ORVANE_MINILOGGER_H
#define ORVANE_MINILOGGER_H

/// @file
/// The log file: one call at start-up sends every Qt message of the process
/// (qDebug, qInfo, qWarning, qCritical, qFatal; the library's and the host's)
/// to a new time-stamped UTF-8 text file and to the standard error stream,
/// one line per message in the pattern
///     "%{time yyyyMMdd h:mm:ss.zzz} [%{type}] %{message}"
/// for example "20240301 9:05:07.123 [debug] x". The library never calls this
/// by itself; until the host does, Qt's default handling applies.
///
/// The file is named prefix + "yyyy_MM_dd_hh_mm_ss" + ".txt" and opened for
/// appending in the given directory, which is not created: if it cannot be
/// opened, the file output is silently dropped and the other outputs go on.
/// The first file opened stays the process's log until exit; later calls
/// re-set the pattern and re-install the handler but keep writing into it.
///
/// Each message reaches the file whole and at once: the formatted line and
/// its line end are encoded to UTF-8 and written with a single write, which
/// survives a crash (nothing is left in a buffer of ours). No lock is taken,
/// on any platform: lines from several threads may come in any order, but
/// none is torn or lost. On Linux the write is an append on the file's
/// descriptor, which the system keeps in one piece. On Windows each line
/// first takes its own range of the file from a process-wide atomic offset
/// (set to the file's size when it is opened, so an existing file is
/// appended to) and is written at that offset, since not every Windows
/// implementation makes an append at the end of the file atomic; those
/// offsets are this process's own, so another process writing into the same
/// file at the same time would overwrite lines. A line whose write fails is
/// dropped; on Windows its range then reads as zero bytes once later lines
/// follow it. The file and its UTF-8 text stream are kept in process-wide
/// shared pointers and released at exit.
///
/// Debugger output: on Windows every line also goes to OutputDebugStringA,
/// followed by "\r\n" in a second call. Other platforms have no such facility
/// and leave that output out.
///
/// A QT_MESSAGE_PATTERN set in the environment takes precedence over the
/// pattern, as Qt decides.
///
/// @code{.cpp}
/// int main(int argc, char *argv[])
/// {
///     QApplication app(argc, argv);
///     Orvane::initMiniLogger("myapp_", QString()); // beside the executable
///     qInfo() << "started";                         // now also in the file
///     ...
/// }
/// @endcode

#include <Orvane/orvane_export.h>

#include <QString>

namespace Orvane {

/// Sets the pattern, opens the log file dirPath + separator + filePrefix +
/// date-time + ".txt" (an empty dirPath means the executable's directory)
/// and installs the handler, replacing the previous one without chaining.
/// @badinput A directory that does not exist or cannot be written drops the
/// file output silently; standard error (and the debugger on Windows) still
/// get every line.
/// @par Thread:
/// Call it on the GUI thread at start-up, after the application object
/// exists and before other threads log; the handler it installs may then be
/// reached from any thread.
ORVANE_EXPORT void initMiniLogger(const QString &filePrefix, const QString &dirPath);

/// Opens the log file and its text stream on `filePath`, once per process:
/// the first path wins and later calls do nothing.
/// @badinput A path that cannot be opened leaves the process without a log
/// file (later calls still do nothing).
/// @par Thread:
/// Call it on the GUI thread, before other threads log.
ORVANE_EXPORT void openGlobalTextStream(const QString &filePath);

} // namespace Orvane

#endif // ORVANE_MINILOGGER_H
