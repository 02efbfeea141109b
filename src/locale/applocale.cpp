#include <Orvane/applocale.h>

#include "core/qtcompat_p.h"

#include <QDebug>
#include <QMap>
#include <QSettings>
#include <QVariant>

namespace Orvane {

namespace {

const char langKey[] = "Lang";

QLocale defaultAppLocale()
{
    return anyTerritoryLocale(QLocale::English);
}

// Chinese and English are not rows: the fallback in localePackName() names
// them. Built on every call, so nothing is created before it is needed.
QMap<QLocale::Language, QString> languagePackTable()
{
    return {
        {QLocale::Russian, QStringLiteral("Russian")},
        {QLocale::French, QStringLiteral("French")},
        {QLocale::German, QStringLiteral("German")},
        {QLocale::Japanese, QStringLiteral("Japanese")},
        {QLocale::Spanish, QStringLiteral("Spanish")},
        {QLocale::Portuguese, QStringLiteral("Portuguese")},
        {QLocale::Korean, QStringLiteral("Korean")},
        {QLocale::Italian, QStringLiteral("Italian")},
        {QLocale::Arabic, QStringLiteral("Arabic")},
        {QLocale::Turkish, QStringLiteral("Turkish")},
        {QLocale::Dutch, QStringLiteral("Dutch")},
        {QLocale::Indonesian, QStringLiteral("Indonesian")},
        {QLocale::Hindi, QStringLiteral("Hindi")},
    };
}

} // namespace

QLocale getAppLocale()
{
    const QVariant value = QSettings().value(QLatin1String(langKey), QVariant());
    if (value.isNull())
        return defaultAppLocale();
    return QLocale(value.toString());
}

QString getAppLocaleName()
{
    const QString defaultName = defaultAppLocale().name();
    const QVariant value = QSettings().value(QLatin1String(langKey), QVariant());
    if (value.isNull())
        return defaultName;
    return value.toString();
}

void setAppLocale(QLocale locale)
{
    QSettings().setValue(QLatin1String(langKey), locale.name());
    qDebug().noquote().nospace() << "setAppLocale Lang: " << locale.name();
}

QString getOSLanguage()
{
    return QLocale::system().nativeLanguageName();
}

QString localePackName(QLocale locale)
{
    QString result = languagePackTable().value(locale.language());
    if (result.isEmpty()) {
        if (locale.language() == QLocale::Chinese)
            result = locale.script() == QLocale::SimplifiedHanScript ? QStringLiteral("zh_CN")
                                                                     : QStringLiteral("zh_TW");
        else
            result = QStringLiteral("English");
    }
    return result;
}

} // namespace Orvane
