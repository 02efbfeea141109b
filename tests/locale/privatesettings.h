#ifndef ORVANE_TESTS_PRIVATESETTINGS_H
#define ORVANE_TESTS_PRIVATESETTINGS_H

// Points the default QSettings of this process at a folder of its own, so
// that tests of the settings keys never read or write a user's. Call it
// before the first QSettings is made. Returns false when the settings would
// land elsewhere.

#include <QCoreApplication>
#include <QSettings>
#include <QString>

inline bool usePrivateSettings(const QString &applicationName, const QString &folder)
{
    QCoreApplication::setOrganizationName(QStringLiteral("OrvaneTests"));
    QCoreApplication::setApplicationName(applicationName);
#ifdef Q_OS_WIN
    // Windows' native settings live in the registry, which has no folder:
    // the default settings become an INI file there instead.
    QSettings::setDefaultFormat(QSettings::IniFormat);
#endif
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
    return QSettings().fileName().startsWith(folder);
}

#endif // ORVANE_TESTS_PRIVATESETTINGS_H
