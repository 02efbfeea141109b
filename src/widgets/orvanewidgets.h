#ifndef ORVANE_ORVANEWIDGETS_H
#define ORVANE_ORVANEWIDGETS_H

// Buttons, effects and labels: style records, the image button, stock styles, eliding and spinning labels.

#include <Orvane/elidedlabel.h>
#include <Orvane/rotationlabel.h>

#endif // ORVANE_ORVANEWIDGETS_H
