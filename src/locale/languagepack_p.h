#ifndef ORVANE_LANGUAGEPACK_P_H
#define ORVANE_LANGUAGEPACK_P_H

class QTranslator;

namespace Orvane {

// The translator freshLanguage() installed last, or null. For tests.
QTranslator *installedLanguageTranslator();

} // namespace Orvane

#endif // ORVANE_LANGUAGEPACK_P_H
