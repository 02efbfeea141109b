#ifndef ORVANE_SHADOWEFFECT_H
#define ORVANE_SHADOWEFFECT_H

/// @file
/// One drop shadow of an image-button state, Orvane::ShadowEffect.

/// @class Orvane::ShadowEffect
/// One drop shadow of an image button state: offset, blur and colour. A plain
/// value; style records hold it through QSharedPointer so that one shadow can
/// fill several state slots.
///
/// An invalid colour means "keep the drop-shadow effect's own colour".
/// Decision: a default constructor is added beside the two required ones; it
/// gives offset (0, 0), blur 5 and an invalid colour, like the field defaults.
///
/// @code{.cpp}
/// auto shadow = QSharedPointer<Orvane::ShadowEffect>::create(0, 3, 30, "#4C69FF", 0.3f);
/// style->shadows = {shadow, shadow, shadow, nullptr}; // none when disabled
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

namespace Orvane {

struct ORVANE_EXPORT ShadowEffect
{
    /// Offset (0, 0), blur 5 and an invalid colour.
    ShadowEffect() = default;

    /// The three numbers as given (any values, unchecked); the colour stays
    /// invalid.
    ShadowEffect(int offsetX_, int offsetY_, int blurRadius_)
        : offsetX(offsetX_), offsetY(offsetY_), blurRadius(blurRadius_)
    {
    }

    /// The three numbers and a colour: `color_` is a colour name such as
    /// "#4C69FF", whose alpha is then set to `alpha` (0 to 1).
    /// @badinput A null `color_` leaves the colour invalid and ignores
    /// `alpha`; a name QColor cannot parse gives an invalid colour too.
    ShadowEffect(int offsetX_, int offsetY_, int blurRadius_, const char *color_, float alpha)
        : offsetX(offsetX_), offsetY(offsetY_), blurRadius(blurRadius_)
    {
        if (color_) {
            color = QColor(QLatin1String(color_));
            color.setAlphaF(alpha);
        }
    }

    qint32 offsetX = 0;    ///< Horizontal offset of the shadow, pixels.
    qint32 offsetY = 0;    ///< Vertical offset of the shadow, pixels.
    qint32 blurRadius = 5; ///< Blur radius, pixels.
    QColor color;          ///< Shadow colour with its alpha; invalid: keep the effect's own colour.
};

} // namespace Orvane

#endif // ORVANE_SHADOWEFFECT_H
