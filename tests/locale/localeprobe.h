#ifndef ORVANE_TESTS_LOCALEPROBE_H
#define ORVANE_TESTS_LOCALEPROBE_H

// Runs the locale probe (localeprobe.cpp) with the system locale set to
// lcAll and returns its "key=value" lines; the "log" lines are joined
// with '\n'.

#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QtTest>

inline QMap<QString, QString> runLocaleProbe(const QString &lcAll, const QString &command)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    // On Unix, QLocale::system() reads LC_ALL, then LC_MESSAGES/LANG, and
    // LANGUAGE can override them: leave only LC_ALL.
    const QStringList keys = env.keys();
    for (const QString &key : keys) {
        if (key.startsWith(QLatin1String("LC_")) || key == QLatin1String("LANG")
            || key == QLatin1String("LANGUAGE"))
            env.remove(key);
    }
    env.insert(QStringLiteral("LC_ALL"), lcAll);

    QProcess probe;
    probe.setProcessEnvironment(env);
    probe.start(QStringLiteral(ORVANE_LOCALE_PROBE), {command});
    QMap<QString, QString> result;
    if (!probe.waitForFinished(60000) || probe.exitStatus() != QProcess::NormalExit
        || probe.exitCode() != 0) {
        qWarning() << "locale probe failed:" << probe.exitCode() << probe.readAllStandardError();
        return result;
    }
    // Windows' text mode ends the probe's lines with "\r\n".
    const QStringList lines = QString::fromUtf8(probe.readAllStandardOutput()).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const int eq = line.indexOf(QLatin1Char('='));
        if (eq < 0)
            continue;
        const QString key = line.left(eq);
        const QString value = line.mid(eq + 1);
        if (key == QLatin1String("log") && result.contains(key))
            result[key] += QLatin1Char('\n') + value;
        else
            result[key] = value;
    }
    return result;
}

#endif // ORVANE_TESTS_LOCALEPROBE_H
