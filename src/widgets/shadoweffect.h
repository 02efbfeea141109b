#ifndef ORVANE_SHADOWEFFECT_H
#define ORVANE_SHADOWEFFECT_H

// One drop shadow of an image button state: offset, blur and colour. A plain
// value; style records hold it through QSharedPointer so that one shadow can
// fill several state slots.
//
// An invalid colour means "keep the drop-shadow effect's own colour".
// Decision: a default constructor is added beside the two required ones; it
// gives offset (0, 0), blur 5 and an invalid colour, like the field defaults.

#include <Orvane/orvane_export.h>

#include <QColor>

namespace Orvane {

struct ORVANE_EXPORT ShadowEffect
{
    ShadowEffect() = default;

    ShadowEffect(int offsetX_, int offsetY_, int blurRadius_)
        : offsetX(offsetX_), offsetY(offsetY_), blurRadius(blurRadius_)
    {
    }

    // `color_` is a colour name such as "#4C69FF"; null leaves the colour
    // invalid and ignores `alpha`.
    ShadowEffect(int offsetX_, int offsetY_, int blurRadius_, const char *color_, float alpha)
        : offsetX(offsetX_), offsetY(offsetY_), blurRadius(blurRadius_)
    {
        if (color_) {
            color = QColor(QLatin1String(color_));
            color.setAlphaF(alpha);
        }
    }

    qint32 offsetX = 0;
    qint32 offsetY = 0;
    qint32 blurRadius = 5;
    QColor color;
};

} // namespace Orvane

#endif // ORVANE_SHADOWEFFECT_H
