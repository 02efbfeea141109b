#ifndef ORVANE_STARTUP_H
#define ORVANE_STARTUP_H

// Library start-up: the two embedded resource bundles and their one-time
// registration, plus the small exported entry points kept beside them.
//
// Nothing is registered when the library is loaded. The bar dialog and the
// language refresh call ensureOrvaneResources() themselves; a host that loads
// ":/Orvane/..." paths on its own calls it first. The bundles are never
// unregistered by the library; qCleanupResources_*() exist for hosts that
// want to.

#include <Orvane/orvane_export.h>

#include <QString>

// Register/unregister a bundle's tree, names and data with Qt's resource
// system (format version 3). Each always returns 1.
ORVANE_EXPORT int qInitResources_OrvaneResources();
ORVANE_EXPORT int qCleanupResources_OrvaneResources();
ORVANE_EXPORT int qInitResources_OrvaneLanguages();
ORVANE_EXPORT int qCleanupResources_OrvaneLanguages();

// Registers OrvaneLanguages, then OrvaneResources, on every call; it neither
// reads nor sets the flag that ensureOrvaneResources() keeps.
ORVANE_EXPORT void initInternalResources();

// The directory of the host executable, with no trailing separator.
ORVANE_EXPORT QString getResourcesPath();

namespace Orvane {

// Registers both bundles once per process (languages first). GUI thread only:
// the flag it keeps is a plain bool.
ORVANE_EXPORT void ensureOrvaneResources();

// An empty entry point kept in the exported surface; it does nothing.
ORVANE_EXPORT void testSystemInfo();

} // namespace Orvane

#endif // ORVANE_STARTUP_H
