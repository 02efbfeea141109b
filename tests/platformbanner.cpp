// Linked into every test: prints which Qt platform plugin the test runs on
// ("offscreen" on Linux, "windows" under wine), so that each log shows it.
// Under wine it goes to the file ORVANE_PLATFORM_LOG names, since the
// program's own output does not reach a pipe there.

#include <QCoreApplication>
#include <QGuiApplication>

#include <cstdio>

namespace {

void printPlatformPlugin()
{
    // A startup function runs once the application object exists, after
    // the platform plugin of a QGuiApplication has loaded.
    const QCoreApplication *app = QCoreApplication::instance();
    const QByteArray name = app && app->inherits("QGuiApplication")
        ? QGuiApplication::platformName().toUtf8()
        : QByteArrayLiteral("none (no GUI application)");
    const QByteArray file = qgetenv("ORVANE_PLATFORM_LOG");
    FILE *out = file.isEmpty() ? stdout : std::fopen(file.constData(), "a");
    if (!out)
        return;
    std::fprintf(out, "Platform plugin: %s\n", name.constData());
    if (out == stdout)
        std::fflush(out);
    else
        std::fclose(out);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(printPlatformPlugin)
