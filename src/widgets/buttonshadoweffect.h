#ifndef ORVANE_BUTTONSHADOWEFFECT_H
#define ORVANE_BUTTONSHADOWEFFECT_H

// A button's drop shadow described with its opacity kept apart from its
// colour: `color` is stored opaque and `alpha` beside it. The defaults are the
// shadow of the stock button styles. A plain value: copy and move copy every
// field.

#include <Orvane/orvane_export.h>

#include <QColor>
#include <QPoint>

namespace Orvane {

struct ORVANE_EXPORT ButtonShadowEffect
{
    bool enabled = true;
    QPoint offset = QPoint(0, 3);
    double blurRadius = 30.0;
    QColor color = QColor(0x4C, 0x69, 0xFF);
    double alpha = 0.3;
};

} // namespace Orvane

#endif // ORVANE_BUTTONSHADOWEFFECT_H
