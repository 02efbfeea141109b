#ifndef ORVANE_VERSION_H
#define ORVANE_VERSION_H

/// @file
/// Version information: the running application's version, the library's own
/// version and the source revision it was built from.
///
/// The application version has three numbers, "major.minor.build", read from
/// the four 16-bit fields of a file version: the first two fields and the
/// fourth; the third is skipped on purpose, so 3.1.0.25 reads as 3.1.25.
///
/// On Windows the fields come from the executable's version resource. Other
/// platforms have no such resource, so the fields are taken from
/// QCoreApplication::applicationVersion(), split at "."; a field reads its
/// leading decimal digits (none reads 0) and keeps its low 16 bits, missing
/// fields are 0 and fields after the fourth are ignored. So "3.1.0.25" gives
/// "3.1.25", "2.0.7" gives "2.0.0", "4" gives "4.0.0", and an empty version
/// stays empty.
///
/// @code{.cpp}
/// aboutLabel->setText(tr("Version %1, library %2")
///                         .arg(Orvane::getAppVersion(), Orvane::orvaneLibVersion()));
/// @endcode

#include <Orvane/orvane_export.h>

#include <QString>

namespace Orvane {

/// The running executable's version, or an empty string when unknown. Read
/// anew on every call.
/// @badinput An executable without a version (resource) gives an empty string.
/// @anythread
ORVANE_EXPORT QString getAppVersion();

/// "1.0.0" followed by gitVersion(), for example "1.0.0(961b4f1)". Never empty.
/// @anythread
ORVANE_EXPORT QString orvaneLibVersion();

} // namespace Orvane

/// The short source revision of this build in parentheses, for example
/// "(961b4f1)", exported under its plain name so that it can be looked up by
/// name. Static storage: do not free. The build system takes it from the
/// source tree's git revision, or from the ORVANE_GIT_REVISION cache variable;
/// outside a git checkout it is "(unknown)". Never null.
/// @anythread
extern "C" ORVANE_EXPORT const char *gitVersion();

#endif // ORVANE_VERSION_H
