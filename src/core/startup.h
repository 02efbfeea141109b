#ifndef ORVANE_STARTUP_H
#define ORVANE_STARTUP_H

/// @file
/// Library start-up: the two embedded resource bundles and their one-time
/// registration, plus the small exported entry points kept beside them.
///
/// Nothing is registered when the library is loaded. The bar dialog and the
/// language refresh call ensureOrvaneResources() themselves; a host that loads
/// ":/Orvane/..." paths on its own calls it first. The bundles are never
/// unregistered by the library; qCleanupResources_*() exist for hosts that
/// want to.
///
/// @code{.cpp}
/// Orvane::ensureOrvaneResources();
/// const QPixmap spinner(":/Orvane/kv_Loading.png");
/// @endcode

#include <Orvane/orvane_export.h>

#include <QString>

/// Registers the image bundle (":/Orvane/...") with Qt's resource system
/// (format version 3). Always returns 1; registering twice is harmless.
/// @guithread
ORVANE_EXPORT int qInitResources_OrvaneResources();
/// Unregisters the image bundle. Always returns 1, also when it was not
/// registered.
/// @guithread
ORVANE_EXPORT int qCleanupResources_OrvaneResources();
/// Registers the translation bundle (":/Orvane/<pack>.qm"). Always returns 1.
/// @guithread
ORVANE_EXPORT int qInitResources_OrvaneLanguages();
/// Unregisters the translation bundle. Always returns 1.
/// @guithread
ORVANE_EXPORT int qCleanupResources_OrvaneLanguages();

/// Registers OrvaneLanguages, then OrvaneResources, on every call; it neither
/// reads nor sets the flag that ensureOrvaneResources() keeps.
/// @guithread
ORVANE_EXPORT void initInternalResources();

/// The directory of the host executable, with no trailing separator.
/// @badinput Before the application object exists the result is empty
/// (Qt warns).
/// @anythread
ORVANE_EXPORT QString getResourcesPath();

namespace Orvane {

/// Registers both bundles once per process (languages first).
/// @guithread The flag it keeps is a plain bool.
ORVANE_EXPORT void ensureOrvaneResources();

/// An empty entry point kept in the exported surface; it does nothing.
/// @anythread
ORVANE_EXPORT void testSystemInfo();

} // namespace Orvane

#endif // ORVANE_STARTUP_H
