#ifndef ORVANE_ROTATIONLABEL_P_H
#define ORVANE_ROTATIONLABEL_P_H

#include <QPixmap>

namespace Orvane {

// One frame of the spinning label: `source` turned by `degrees` (clockwise on
// screen) about its centre, cut to the source's size. Null for a null source.
QPixmap rotatedFrame(const QPixmap &source, qreal degrees);

} // namespace Orvane

#endif // ORVANE_ROTATIONLABEL_P_H
