#ifndef ORVANE_ORVANEWIDGETS_H
#define ORVANE_ORVANEWIDGETS_H

/// @file
/// Buttons, effects and labels: style records, the image button, stock styles, eliding and spinning labels.

#include <Orvane/shadoweffect.h>
#include <Orvane/buttonshadoweffect.h>
#include <Orvane/imagebuttonstyle.h>
#include <Orvane/imagebutton.h>
#include <Orvane/buttonstyles.h>

#include <Orvane/elidedlabel.h>
#include <Orvane/rotationlabel.h>

#endif // ORVANE_ORVANEWIDGETS_H
