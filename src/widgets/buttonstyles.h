#ifndef ORVANE_BUTTONSTYLES_H
#define ORVANE_BUTTONSTYLES_H

// Ready-made looks for ImageButton: pills 110 x 30 at least, radius 15, white
// text and a soft blue drop shadow.
//
// Each call returns a new record, so buttons built from separate calls never
// share later changes; buttons given the same returned pointer do. The
// records are stored as listed; an ImageButton pads them when it applies
// them.

#include <Orvane/imagebuttonstyle.h>
#include <Orvane/orvane_export.h>

#include <QSharedPointer>

namespace Orvane {

// Blue-to-violet gradient pill, flat grey when disabled.
ORVANE_EXPORT QSharedPointer<ImageButtonStyle> makeBtnStyle_Default();

// Orange gradient pill, flat grey when disabled.
ORVANE_EXPORT QSharedPointer<ImageButtonStyle> makeBtnStyle_Orange();

// Outlined pill that fills on hover; no shadow until hovered.
ORVANE_EXPORT QSharedPointer<ImageButtonStyle> makeBtnStyle_Ring();

} // namespace Orvane

#endif // ORVANE_BUTTONSTYLES_H
