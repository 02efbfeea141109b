#ifndef ORVANE_AESSIZE_P_H
#define ORVANE_AESSIZE_P_H

// How long a text the AES codec takes. encode() refuses a text whose padded
// length would not fit in a QByteArray; decode() takes any QByteArray. The
// sums are done here, apart from the codec, so that tests can reach the
// edge without allocating gigabytes.

#include <QtGlobal>

namespace Orvane {
namespace AesSize {

// The largest number of bytes a QByteArray holds on the Qt in use: Qt 5
// allocates its bookkeeping, the bytes and a terminating NUL in one block of
// at most INT_MAX bytes (2147483622 bytes on 64-bit systems); Qt 6's limit is
// its size type's.
qint64 maxByteArraySize();

// How many bytes `padding` (an AESCodec::Padding value; others pad like
// ZeroPadding) adds to a text of `size` bytes.
int paddingLength(qint64 size, int padding);

// Whether encode() takes a text of `size` bytes with `padding`: true when
// the padded length fits in a QByteArray.
bool encodeAccepts(qint64 size, int padding);

} // namespace AesSize
} // namespace Orvane

#endif // ORVANE_AESSIZE_P_H
