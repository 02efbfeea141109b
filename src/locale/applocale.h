#ifndef ORVANE_APPLOCALE_H
#define ORVANE_APPLOCALE_H

/// @file
/// The application's user-interface locale, kept in the host's settings, and
/// the rule that names the language pack of any locale.
///
/// The locale lives under the key "Lang" of the host's default QSettings
/// (constructed without arguments: the host sets the organisation and
/// application names). Until setAppLocale() is first called the locale is
/// English with any country. The pack-name rule is stateless and never
/// returns an empty name: a language of its table gives that pack, Chinese
/// gives "zh_CN" for the simplified Han script and "zh_TW" for any other, and
/// every other language gives "English". The country never matters.
///
/// Any thread, as far as QSettings allows; nothing is locked or cached.
///
/// @code{.cpp}
/// Orvane::setAppLocale(QLocale(QLocale::German, QLocale::Germany));
/// const QString pack = Orvane::localePackName(Orvane::getAppLocale()); // "German"
/// @endcode

#include <Orvane/orvane_export.h>

#include <QLocale>
#include <QString>

namespace Orvane {

/// The stored locale, or English with any country when none is stored.
/// @badinput A stored name that is not a locale name gives the C locale.
/// @anythread As far as QSettings allows; nothing is cached.
ORVANE_EXPORT QLocale getAppLocale();

/// The stored locale name as it was written (not checked), or "en_US" when
/// none is stored.
/// @anythread As far as QSettings allows.
ORVANE_EXPORT QString getAppLocaleName();

/// Stores locale.name() under "Lang" and logs it as the debug line
/// "setAppLocale Lang: " followed by the name. Any locale is accepted (the C
/// locale is stored as "C").
/// @anythread As far as QSettings allows.
ORVANE_EXPORT void setAppLocale(QLocale locale);

/// The system language's name in that language, for example "Deutsch".
/// Empty when the system locale has no native name (the C locale).
/// @anythread
ORVANE_EXPORT QString getOSLanguage();

/// The language pack of a locale: one of "Russian", "French", "German",
/// "Japanese", "Spanish", "Portuguese", "Korean", "Italian", "Arabic",
/// "Turkish", "Dutch", "Indonesian", "Hindi", "zh_CN", "zh_TW" or "English".
/// @badinput Never empty: any language outside the table (the C locale
/// included) gives "English".
/// @anythread
ORVANE_EXPORT QString localePackName(QLocale locale);

} // namespace Orvane

#endif // ORVANE_APPLOCALE_H
