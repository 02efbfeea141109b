// A helper the locale tests run as a child process, so that the system
// locale can be chosen through LC_ALL before Qt first reads it. It prints
// "key=value" lines in UTF-8; debug lines of the library are captured and
// printed as "log=..." lines. Settings go to a private temporary folder.

#include <Orvane/orvanelocale.h>

#include "privatesettings.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

namespace {

QStringList *capturedLog = nullptr;

void captureMessage(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (capturedLog)
        capturedLog->append(message);
}

QString translatedOk()
{
    return QCoreApplication::translate("Orvane::OMessageBox", "OK");
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir settingsDir;
    if (!settingsDir.isValid() || !usePrivateSettings(QStringLiteral("localeprobe"), settingsDir.path()))
        return 2;

    QStringList log;
    capturedLog = &log;
    qInstallMessageHandler(captureMessage);

    QMap<QString, QString> result;
    const QString command = QCoreApplication::arguments().value(1);
    if (command == QLatin1String("system")) {
        result[QStringLiteral("pack")] = Orvane::localePackName(QLocale::system());
        result[QStringLiteral("native")] = Orvane::getOSLanguage();
        result[QStringLiteral("current")] = Orvane::getCurrentLocalePackName();
        Orvane::setCurrentLocale(QLocale(QLocale::Japanese, QLocale::Japan));
        result[QStringLiteral("afterJapanese")] = Orvane::getCurrentLocalePackName();
    } else if (command == QLatin1String("emptyAfterGerman")) {
        Orvane::freshLanguage(QStringLiteral("German"));
        result[QStringLiteral("german")] = translatedOk();
        Orvane::freshLanguage(QString());
        result[QStringLiteral("system")] = translatedOk();
    } else {
        return 3;
    }

    qInstallMessageHandler(nullptr);
    QTextStream out(stdout);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Qt 6 streams write UTF-8 already.
    out.setCodec("UTF-8");
#endif
    for (auto it = result.cbegin(); it != result.cend(); ++it)
        out << it.key() << '=' << it.value() << '\n';
    for (const QString &line : log)
        out << "log=" << line << '\n';
    return 0;
}
