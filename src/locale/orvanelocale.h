#ifndef ORVANE_ORVANELOCALE_H
#define ORVANE_ORVANELOCALE_H

// Localisation: the application locale, language packs and the library's translator.

#endif // ORVANE_ORVANELOCALE_H
