#ifndef ORVANE_BUTTONSTYLES_H
#define ORVANE_BUTTONSTYLES_H

/// @file
/// Ready-made looks for ImageButton: pills 110 x 30 at least, radius 15, white
/// text and a soft blue drop shadow.
///
/// Each call returns a new record, so buttons built from separate calls never
/// share later changes; buttons given the same returned pointer do. The
/// records are stored as listed; an ImageButton pads them when it applies
/// them.
///
/// @code{.cpp}
/// auto ok = new Orvane::ImageButton(Orvane::makeBtnStyle_Default(), this);
/// ok->setText(tr("Continue"));
/// @endcode

#include <Orvane/imagebuttonstyle.h>
#include <Orvane/orvane_export.h>

#include <QSharedPointer>

namespace Orvane {

/// Blue-to-violet gradient pill, flat grey when disabled. A new record on
/// every call, never null.
/// @anythread (the record is a QObject of the calling thread; use it there)
ORVANE_EXPORT QSharedPointer<ImageButtonStyle> makeBtnStyle_Default();

/// Orange gradient pill, flat grey when disabled. A new record on every
/// call, never null.
/// @anythread (the record is a QObject of the calling thread; use it there)
ORVANE_EXPORT QSharedPointer<ImageButtonStyle> makeBtnStyle_Orange();

/// Outlined pill that fills on hover; no shadow until hovered. A new record
/// on every call, never null.
/// @anythread (the record is a QObject of the calling thread; use it there)
ORVANE_EXPORT QSharedPointer<ImageButtonStyle> makeBtnStyle_Ring();

} // namespace Orvane

#endif // ORVANE_BUTTONSTYLES_H
