#ifndef ORVANE_SLICE_H
#define ORVANE_SLICE_H

/// @file
/// One named slice of a sheet, Orvane::Slice.

/// @class Orvane::Slice
/// One named slice: a rectangle on a sheet pixmap that the slice catalogue
/// (SliceManager) owns. A Slice is a plain value, copied freely; it holds
/// only a pointer to the sheet and the rectangle, never pixel data. The
/// sheet outlives every Slice that points at it.
///
/// @code{.cpp}
/// QPixmap sheet(":/sheets/toolbar.png");
/// Orvane::Slice s;
/// s.image = &sheet;
/// s.rect = QRect(32, 0, 16, 16);
/// const QPixmap icon = s.slice(); // the 16 x 16 piece
/// @endcode
///
/// @anythread As far as QPixmap allows (the GUI thread, in practice).
///
/// @par Binary compatibility:
/// A plain value with public fields and no d-pointer: hosts create it
/// themselves, so its fields stay, in this order and with these types,
/// through 1.x. A later need gets a new record type, never a new field here.

#include <Orvane/orvane_export.h>

#include <QPixmap>
#include <QRect>

namespace Orvane {

struct ORVANE_EXPORT Slice
{
    /// The sheet the slice lies on; not owned. Null in a default Slice.
    QPixmap *image = nullptr;
    /// The slice's rectangle on the sheet; the null rectangle means the
    /// whole sheet.
    QRect rect;

    /// A null pixmap when there is no sheet, else the sheet's copy of rect
    /// (QPixmap::copy rules: an empty rectangle copies the whole sheet, any
    /// other is clipped to it). The rectangle counts the 1x sheet's pixels:
    /// on a sheet with a device pixel ratio (a "\@2x" sheet) it is scaled by
    /// that ratio and the cut carries the same ratio.
    QPixmap slice() const;
};

} // namespace Orvane

#endif // ORVANE_SLICE_H
