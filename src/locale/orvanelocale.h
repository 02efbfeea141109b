#ifndef ORVANE_ORVANELOCALE_H
#define ORVANE_ORVANELOCALE_H

/// @file
/// Localisation: the application locale, language packs and the library's translator.

#include <Orvane/applocale.h>
#include <Orvane/languagepack.h>

#endif // ORVANE_ORVANELOCALE_H
