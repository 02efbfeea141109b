#ifndef ORVANE_SLICEMETHOD_H
#define ORVANE_SLICEMETHOD_H

// How one group of slices lies on its sheet, as the slice configuration
// file describes it: a row ("hor-line") or a column ("ver-line") of equal
// rectangles, starting at `begin`, `spacing` pixels apart. A plain value;
// the default has every field zero (no layout, a 0 x 0 size).

#include <Orvane/orvane_export.h>

#include <QPoint>
#include <QSize>
#include <QtGlobal>

namespace Orvane {

struct ORVANE_EXPORT SliceMethod
{
    SliceMethod()
        : type(0), begin(0, 0), spacing(0), size(0, 0)
    {
    }

    // 0 no layout, 1 horizontal line, 2 vertical line.
    qint32 type;
    // Top-left of the first slice, in sheet pixels.
    QPoint begin;
    // Gap between neighbouring slices along the line; may be negative.
    qint32 spacing;
    // Width and height of every slice of the group.
    QSize size;
};

} // namespace Orvane

#endif // ORVANE_SLICEMETHOD_H
