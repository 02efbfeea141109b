#ifndef ORVANE_ORVANE_H
#define ORVANE_ORVANE_H

// The whole Orvane API: include this one header, or the header of the
// subsystem you use.
#include <Orvane/orvanecore.h>
#include <Orvane/orvanedialogs.h>
#include <Orvane/orvanewidgets.h>
#include <Orvane/orvaneslices.h>
#include <Orvane/orvanelocale.h>
#include <Orvane/orvanelinks.h>
#include <Orvane/orvanecrypto.h>

#endif // ORVANE_ORVANE_H
