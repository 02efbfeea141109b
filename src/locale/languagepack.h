#ifndef ORVANE_LANGUAGEPACK_H
#define ORVANE_LANGUAGEPACK_H

/// @file
/// The user's language pack and the library's own translator.
///
/// The pack name (one of localePackName()'s names) lives under the key
/// "Language" of the host's default QSettings; it is independent of the
/// locale under "Lang". A pack is the compiled translation file
/// ":/Orvane/<pack>.qm" in the library's language bundle; "English" has no
/// file, since English is the language of the library's own texts.
///
/// A host calls freshLanguage(getCurrentLocalePackName()) at start-up and
/// again whenever the user picks another pack; the library never does so by
/// itself. freshLanguage() keeps at most one translator of the library
/// installed in the application; it owns that translator and deletes it when
/// another pack replaces it. It remembers the name it was last given, not the
/// pack it resolved, and that name starts out null, so an empty name as the
/// very first call does nothing. A name without a file still installs an
/// (empty) translator: texts then stay untranslated. GUI thread only.
///
/// setlanguage()/getlanguage() are a plain process-wide string that the host
/// sets for other parts of the library to consult; they touch neither the
/// settings nor the translator.
///
/// @code{.cpp}
/// // At start-up, and again when the user picks another pack:
/// Orvane::freshLanguage(Orvane::getCurrentLocalePackName());
/// @endcode

#include <Orvane/orvane_export.h>

#include <QLocale>
#include <QString>

namespace Orvane {

/// The stored pack name as it was written, or the system locale's pack when
/// none (or an empty one) is stored. The derived name is not stored. Never
/// empty.
/// @anythread As far as QSettings allows.
ORVANE_EXPORT QString getCurrentLocalePackName();

/// Stores localePackName(locale) under "Language" and writes the settings at
/// once. Any locale is accepted: one outside the table stores "English".
/// @anythread As far as QSettings allows.
ORVANE_EXPORT void setCurrentLocale(QLocale locale);

/// ":/Orvane/" + name + ".qm", whether or not that file exists (an empty
/// name gives ":/Orvane/.qm").
/// @anythread
ORVANE_EXPORT QString languageFileNameToPath(const QString &name);

/// Makes the pack fileName the library's installed translation; an empty name
/// means the system locale's pack (logged as "fileName: " and the pack). A
/// name equal to the previous call's does nothing.
/// @badinput A name without a translation file installs an empty translator:
/// the library's texts stay English.
/// @guithread
ORVANE_EXPORT void freshLanguage(const QString &fileName);

/// Sets the process-wide language string (memory only; any text, unchecked).
/// @guithread
ORVANE_EXPORT void setlanguage(QString language);
/// The process-wide language string, null until setlanguage() was called.
/// @guithread
ORVANE_EXPORT QString getlanguage();

} // namespace Orvane

#endif // ORVANE_LANGUAGEPACK_H
