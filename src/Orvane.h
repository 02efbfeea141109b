#ifndef ORVANE_ORVANE_H
#define ORVANE_ORVANE_H

/// @file
/// The whole Orvane API: include this one header, or the header of the
/// subsystem you use.

/// @namespace Orvane
/// Every class, enumeration and function of the library, apart from the few
/// global-scope functions of startup.h and version.h.
#include <Orvane/orvanecore.h>
#include <Orvane/orvanedialogs.h>
#include <Orvane/orvanewidgets.h>
#include <Orvane/orvaneslices.h>
#include <Orvane/orvanelocale.h>
#include <Orvane/orvanelinks.h>
#include <Orvane/orvanecrypto.h>

#endif // ORVANE_ORVANE_H
