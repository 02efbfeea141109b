#include <Orvane/version.h>

#include "revision_p.h"
#include "winplatform_p.h"

#include <QCoreApplication>
#include <QDebug>
#include <QStringList>

namespace Orvane {

namespace {

#ifdef Q_OS_WIN

QString getFileVersion(const QString &path)
{
    // The 8-bit calls get the path's UTF-8 bytes: a path with non-ASCII
    // characters may then not be found, which gives an empty version.
    const char *failureMessage = nullptr;
    const std::string version = fileVersionString(path.toUtf8().constData(), &failureMessage);
    if (failureMessage)
        qDebug() << failureMessage;
    return QString::fromStdString(version);
}

#else

std::uint16_t versionField(const QString &field)
{
    std::uint16_t value = 0;
    for (const QChar c : field) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            break;
        value = std::uint16_t(value * 10 + (c.unicode() - '0'));
    }
    return value;
}

QString getFileVersion(const QString &)
{
    const QString version = QCoreApplication::applicationVersion();
    if (version.isEmpty())
        return QString();
    const QStringList fields = version.split(QLatin1Char('.'));
    FileVersionFields f = {};
    for (int i = 0; i < 4 && i < fields.size(); ++i)
        f.field[i] = versionField(fields.at(i));
    return QString::fromStdString(formatFileVersion(f));
}

#endif

} // namespace

QString getAppVersion()
{
    return getFileVersion(QCoreApplication::applicationFilePath());
}

QString orvaneLibVersion()
{
    return QStringLiteral(ORVANE_VERSION_STRING) + QLatin1String(gitVersion());
}

} // namespace Orvane

const char *gitVersion()
{
    return ORVANE_REVISION;
}
