#ifndef ORVANE_BUTTONSHADOWEFFECT_H
#define ORVANE_BUTTONSHADOWEFFECT_H

/// @file
/// A button's drop shadow with its opacity apart, Orvane::ButtonShadowEffect.

/// @class Orvane::ButtonShadowEffect
/// A button's drop shadow described with its opacity kept apart from its
/// colour: `color` is stored opaque and `alpha` beside it. The defaults are the
/// shadow of the stock button styles. A plain value: copy and move copy every
/// field.
///
/// @code{.cpp}
/// Orvane::ButtonShadowEffect shadow;  // the stock styles' shadow
/// shadow.alpha = 0.5;
/// @endcode
///
/// @anythread A plain value.
///
/// @par Binary compatibility:
/// A plain value with public fields and no d-pointer: hosts create it
/// themselves, so its fields stay, in this order and with these types,
/// through 1.x. A later need gets a new record type, never a new field here.

#include <Orvane/orvane_export.h>

#include <QColor>
#include <QPoint>

namespace Orvane {

struct ORVANE_EXPORT ButtonShadowEffect
{
    bool enabled = true;                     ///< Whether the shadow is drawn.
    QPoint offset = QPoint(0, 3);            ///< Offset of the shadow, pixels.
    double blurRadius = 30.0;                ///< Blur radius, pixels.
    QColor color = QColor(0x4C, 0x69, 0xFF); ///< The shadow's colour, opaque.
    double alpha = 0.3;                      ///< The shadow's opacity, 0 to 1.
};

} // namespace Orvane

#endif // ORVANE_BUTTONSHADOWEFFECT_H
