#ifndef ORVANE_AESNI_P_H
#define ORVANE_AESNI_P_H

// The AES codec's path through the CPU's AES instructions (x86 AES-NI),
// chosen at run time. Nothing here looks a table up by key or data: the
// S-box comes from the instructions themselves.
//
// Round keys are the standard's schedule as bytes, (nr + 1) blocks of 16.
// Block counts are whole 16-byte blocks; `chain` is the 16-byte chaining
// value (the IV on the first call), updated so that a later call continues
// the same stream. Input and output may be the same buffer.

#include <QtGlobal>

#include <cstddef>

namespace Orvane {
namespace AesNi {

// The CPU has the instructions (looked up once).
bool supported();
// supported() and not switched off by setAllowed(false).
bool enabled();
// Tests and benchmarks switch the instructions off to run the portable path
// on the same machine. Process-wide, for every codec.
void setAllowed(bool allowed);

// The key schedule for nk key words and nr rounds into 16 * (nr + 1) bytes.
void expandKey(const quint8 *key, int nk, int nr, quint8 *roundKeys);

// The modes, forward; `mode` takes AESCodec::Mode values.
void encrypt(int mode, const quint8 *roundKeys, int nr, quint8 *chain, const quint8 *in, quint8 *out,
             std::size_t blocks);
// The modes, backward. Ecb and Cbc run the inverse cipher, Cfb and Ofb the
// forward one.
void decrypt(int mode, const quint8 *roundKeys, int nr, quint8 *chain, const quint8 *in, quint8 *out,
             std::size_t blocks);

} // namespace AesNi
} // namespace Orvane

#endif // ORVANE_AESNI_P_H
