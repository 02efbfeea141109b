#include <Orvane/version.h>

#include "revision_p.h"

#include <QCoreApplication>
#include <QDebug>
#include <QStringList>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#include <QByteArray>
#include <vector>
#endif

namespace Orvane {

namespace {

QString formatVersion(quint32 mostSignificant, quint32 leastSignificant)
{
    return QString::number(mostSignificant >> 16) + QLatin1Char('.')
         + QString::number(mostSignificant & 0xFFFF) + QLatin1Char('.')
         + QString::number(leastSignificant & 0xFFFF);
}

#ifdef Q_OS_WIN

QString getFileVersion(const QString &path)
{
    // The 8-bit calls get the path's UTF-8 bytes: a path with non-ASCII
    // characters may then not be found, which gives an empty version.
    const QByteArray localPath = path.toUtf8();
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeA(localPath.constData(), &handle);
    std::vector<char> buffer(size);
    if (!GetFileVersionInfoA(localPath.constData(), handle, size, buffer.data())) {
        qDebug() << "error in GetFileVersionInfo";
        return QString();
    }
    VS_FIXEDFILEINFO *info = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(buffer.data(), "\\", reinterpret_cast<LPVOID *>(&info), &length) || !info)
        return QString();
    return formatVersion(info->dwFileVersionMS, info->dwFileVersionLS);
}

#else

quint32 versionField(const QString &field)
{
    quint32 value = 0;
    for (const QChar c : field) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            break;
        value = (value * 10 + quint32(c.unicode() - '0')) & 0xFFFF;
    }
    return value;
}

QString getFileVersion(const QString &)
{
    const QString version = QCoreApplication::applicationVersion();
    if (version.isEmpty())
        return QString();
    const QStringList fields = version.split(QLatin1Char('.'));
    quint32 f[4] = {0, 0, 0, 0};
    for (int i = 0; i < 4 && i < fields.size(); ++i)
        f[i] = versionField(fields.at(i));
    return formatVersion((f[0] << 16) | f[1], (f[2] << 16) | f[3]);
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
