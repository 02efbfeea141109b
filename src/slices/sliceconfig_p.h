#ifndef ORVANE_SLICECONFIG_P_H
#define ORVANE_SLICECONFIG_P_H

// The reader of the slice configuration file, below the catalogue's
// loadConfig(): it takes the file's bytes, so that tests and the fuzz target
// can feed it anything. Not installed, not exported.

#include <Orvane/slicemanager.h>
#include <Orvane/slicemethod.h>

#include <QByteArray>
#include <QRect>
#include <QVariantMap>

namespace Orvane {

// Reads a slice configuration document into the catalogue: appends one sheet
// per entry (null ones included) and enters every slice; writes the debug
// line "slices: " with all names after each entry. False, with nothing
// changed, when the bytes are not a JSON document.
bool readSliceConfig(SliceManager &manager, const QByteArray &json);

// The layout of one group from its "method" object; missing or ill-typed
// fields keep their zero defaults.
SliceMethod parseSliceMethod(const QVariantMap &method);

// A JSON array or object of the file as a list or map; any other value gives
// an empty one, under both Qts (Qt 6 would turn a text into the list of its
// characters).
QVariantList jsonList(const QVariant &value);
QVariantMap jsonMap(const QVariant &value);

// The rectangle of slice `index` of a group laid out by `method`: the null
// rectangle when there is no layout. Coordinates and sizes are clamped to
// +/- maxSliceCoordinate so that no rectangle arithmetic overflows.
QRect sliceRect(const SliceMethod &method, int index);

constexpr int maxSliceCoordinate = 1 << 29;

} // namespace Orvane

#endif // ORVANE_SLICECONFIG_P_H
