#ifndef ORVANE_ORVANELINKS_H
#define ORVANE_ORVANELINKS_H

/// @file
/// Product web links: page categories, product ids and the redirect URL.

#include <Orvane/rdxurl.h>

#endif // ORVANE_ORVANELINKS_H
