#ifndef ORVANE_ORVANESLICES_H
#define ORVANE_ORVANESLICES_H

/// @file
/// Image slices: the slice records and the slice catalogue.

#include <Orvane/slice.h>
#include <Orvane/slicemethod.h>
#include <Orvane/slicemanager.h>

#endif // ORVANE_ORVANESLICES_H
