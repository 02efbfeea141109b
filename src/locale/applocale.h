#ifndef ORVANE_APPLOCALE_H
#define ORVANE_APPLOCALE_H

// The application's user-interface locale, kept in the host's settings, and
// the rule that names the language pack of any locale.
//
// The locale lives under the key "Lang" of the host's default QSettings
// (constructed without arguments: the host sets the organisation and
// application names). Until setAppLocale() is first called the locale is
// English with any country. The pack-name rule is stateless and never
// returns an empty name: a language of its table gives that pack, Chinese
// gives "zh_CN" for the simplified Han script and "zh_TW" for any other, and
// every other language gives "English". The country never matters.
//
// Any thread, as far as QSettings allows; nothing is locked or cached.

#include <Orvane/orvane_export.h>

#include <QLocale>
#include <QString>

namespace Orvane {

// The stored locale, or English with any country when none is stored. A
// stored name that is not a locale name gives the C locale.
ORVANE_EXPORT QLocale getAppLocale();

// The stored locale name as it was written (not checked), or "en_US" when
// none is stored.
ORVANE_EXPORT QString getAppLocaleName();

// Stores locale.name() under "Lang" and logs it as the debug line
// "setAppLocale Lang: <name>".
ORVANE_EXPORT void setAppLocale(QLocale locale);

// The system language's name in that language, for example "Deutsch".
ORVANE_EXPORT QString getOSLanguage();

// The language pack of a locale: one of "Russian", "French", "German",
// "Japanese", "Spanish", "Portuguese", "Korean", "Italian", "Arabic",
// "Turkish", "Dutch", "Indonesian", "Hindi", "zh_CN", "zh_TW" or "English".
ORVANE_EXPORT QString localePackName(QLocale locale);

} // namespace Orvane

#endif // ORVANE_APPLOCALE_H
