#ifndef ORVANE_SLICEMETHOD_H
#define ORVANE_SLICEMETHOD_H

/// @file
/// How a group of slices lies on its sheet, Orvane::SliceMethod.

/// @class Orvane::SliceMethod
/// How one group of slices lies on its sheet, as the slice configuration
/// file describes it: a row ("hor-line") or a column ("ver-line") of equal
/// rectangles, starting at `begin`, `spacing` pixels apart. A plain value;
/// the default has every field zero (no layout, a 0 x 0 size).
///
/// @code{.cpp}
/// Orvane::SliceMethod row;
/// row.type = 1;                 // a horizontal line
/// row.begin = QPoint(0, 40);
/// row.spacing = 2;
/// row.size = QSize(24, 24);
/// @endcode
///
/// @anythread A plain value.
///
/// @par Binary compatibility:
/// A plain value with public fields and no d-pointer: hosts create it
/// themselves, so its fields stay, in this order and with these types,
/// through 1.x. A later need gets a new record type, never a new field here.

#include <Orvane/orvane_export.h>

#include <QPoint>
#include <QSize>
#include <QtGlobal>

namespace Orvane {

struct ORVANE_EXPORT SliceMethod
{
    /// Every field zero: no layout, a 0 x 0 size.
    SliceMethod()
        : type(0), begin(0, 0), spacing(0), size(0, 0)
    {
    }

    /// 0 no layout, 1 horizontal line, 2 vertical line; other values: no
    /// layout.
    qint32 type;
    /// Top-left of the first slice, in sheet pixels.
    QPoint begin;
    /// Gap between neighbouring slices along the line; may be negative.
    qint32 spacing;
    /// Width and height of every slice of the group.
    QSize size;
};

} // namespace Orvane

#endif // ORVANE_SLICEMETHOD_H
