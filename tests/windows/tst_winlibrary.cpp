// The whole library on Windows (under wine in CI): getAppVersion() reads the
// host executable's version resource, Orvane.dll carries its own, and every
// log line reaches an attached debugger, followed by "\r\n" in a second call.
//
// The executable carries file version 3.1.0.25 and product version 9.8.7.6.
// Started with --debuggee <folder> it logs a few lines through the library's
// logger and ends; the test starts it as a debugged child and compares.

#include <Orvane/minilogger.h>
#include <Orvane/version.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtTest>

#include <qt_windows.h>

#include "debuggerloop.h"

#include <string>
#include <vector>

namespace {

const char *const debugLines[] = {"plain line", "gr\xC3\xBC\xC3\x9F" "e \xE6\xBC\xA2"};

int runDebuggee(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    Orvane::initMiniLogger(QStringLiteral("debuggee_"), QString::fromLocal8Bit(argv[2]));
    for (const char *line : debugLines)
        qWarning().noquote() << QString::fromUtf8(line);
    return 0;
}

// The fixed file version of the file at `path`, as "a.b.c.d", and one of
// its string values.
QString fileVersionOf(const QString &path, const QString &key, QString *text)
{
    const std::wstring file = path.toStdWString();
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeW(file.c_str(), &handle);
    if (size == 0)
        return QString();
    std::vector<char> data(size);
    if (!GetFileVersionInfoW(file.c_str(), 0, size, data.data()))
        return QString();
    VS_FIXEDFILEINFO *info = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(data.data(), L"\\", reinterpret_cast<void **>(&info), &length) || !info)
        return QString();
    const std::wstring sub = (QStringLiteral("\\StringFileInfo\\040904B0\\") + key).toStdWString();
    wchar_t *value = nullptr;
    if (VerQueryValueW(data.data(), sub.c_str(), reinterpret_cast<void **>(&value), &length) && value)
        *text = QString::fromWCharArray(value);
    return QStringLiteral("%1.%2.%3.%4")
        .arg(HIWORD(info->dwFileVersionMS))
        .arg(LOWORD(info->dwFileVersionMS))
        .arg(HIWORD(info->dwFileVersionLS))
        .arg(LOWORD(info->dwFileVersionLS));
}

} // namespace

class tst_WinLibrary : public QObject
{
    Q_OBJECT

private slots:
    void appVersionFromHostResource();
    void libraryCarriesItsVersion();
    void logLinesReachTheDebugger();
};

void tst_WinLibrary::appVersionFromHostResource()
{
    // File version 3.1.0.25: major, minor and the fourth field.
    QCOMPARE(Orvane::getAppVersion(), QStringLiteral("3.1.25"));
}

void tst_WinLibrary::libraryCarriesItsVersion()
{
    const HMODULE module = GetModuleHandleW(L"Orvane.dll");
    QVERIFY2(module, "Orvane.dll is loaded by name: the test links its import library");
    wchar_t path[MAX_PATH] = {};
    QVERIFY(GetModuleFileNameW(module, path, MAX_PATH) > 0);
    QString text;
    QCOMPARE(fileVersionOf(QString::fromWCharArray(path), QStringLiteral("FileVersion"), &text),
             QStringLiteral("1.0.0.0"));
    QCOMPARE(text, QStringLiteral("1.0.0"));
    QVERIFY(Orvane::orvaneLibVersion().startsWith(QStringLiteral("1.0.0")));
}

void tst_WinLibrary::logLinesReachTheDebugger()
{
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const std::wstring command = L"\"" + QCoreApplication::applicationFilePath().toStdWString() + L"\" --debuggee \""
        + QDir::toNativeSeparators(folder.path()).toStdWString() + L"\"";
    const DebugRun run = runUnderDebugger(command);
    QVERIFY2(run.started, qPrintable(QStringLiteral("CreateProcessW error %1").arg(run.startError)));
    QVERIFY(run.exited);
    QCOMPARE(run.exitCode, DWORD(0));
    QList<QByteArray> seen;
    for (const std::string &text : run.strings)
        seen.append(QByteArray::fromStdString(text));

    // Each logged line arrives whole, in the logger's format, and the very
    // next call carries "\r\n" alone.
    for (const char *line : debugLines) {
        const QByteArray tail = QByteArrayLiteral("[warning] ") + line;
        int at = -1;
        for (int i = 0; i < seen.size(); ++i) {
            if (seen.at(i).endsWith(tail)) {
                at = i;
                break;
            }
        }
        QVERIFY2(at >= 0, tail.constData());
        QVERIFY(at + 1 < seen.size());
        QCOMPARE(seen.at(at + 1), QByteArrayLiteral("\r\n"));
    }
    QCOMPARE(seen.count(QByteArrayLiteral("\r\n")), int(sizeof debugLines / sizeof *debugLines));
}

int main(int argc, char **argv)
{
    if (argc > 2 && qstrcmp(argv[1], "--debuggee") == 0)
        return runDebuggee(argc, argv);
    QTEST_MAIN_IMPL(tst_WinLibrary)
}

#include "tst_winlibrary.moc"
