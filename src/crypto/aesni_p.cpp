#include "aesni_p.h"

#include <Orvane/aescodec.h>

#include <atomic>

#if defined(__x86_64__) || defined(_M_X64) || defined(__i386__) || defined(_M_IX86)
#define ORVANE_HAVE_AESNI 1
#include <emmintrin.h>
#include <wmmintrin.h>
#if defined(_MSC_VER) && !defined(__clang__)
#include <intrin.h>
// MSVC allows the intrinsics in any function.
#define ORVANE_AESNI_TARGET
#define ORVANE_UNROLL
#else
#include <cpuid.h>
// Only these functions may use the instructions; the rest of the library
// stays runnable on any x86 CPU.
#define ORVANE_AESNI_TARGET __attribute__((target("aes,sse2")))
#define ORVANE_UNROLL _Pragma("GCC unroll 8")
#endif
#endif

namespace Orvane {
namespace AesNi {

namespace {

std::atomic<bool> allowed{true};

bool detect()
{
#if defined(ORVANE_HAVE_AESNI) && defined(_MSC_VER) && !defined(__clang__)
    int info[4];
    __cpuid(info, 1);
    return (info[2] & (1 << 25)) != 0 && (info[3] & (1 << 26)) != 0;
#elif defined(ORVANE_HAVE_AESNI)
    unsigned a = 0, b = 0, c = 0, d = 0;
    if (!__get_cpuid(1, &a, &b, &c, &d))
        return false;
    return (c & (1u << 25)) != 0 && (d & (1u << 26)) != 0;
#else
    return false;
#endif
}

} // namespace

bool supported()
{
    static const bool cpuHasAes = detect();
    return cpuHasAes;
}

bool enabled()
{
    return supported() && allowed.load(std::memory_order_relaxed);
}

void setAllowed(bool allow)
{
    allowed.store(allow, std::memory_order_relaxed);
}

#if defined(ORVANE_HAVE_AESNI)

namespace {

constexpr int Lanes = 8; // blocks in flight, enough to fill the AES units

struct RoundKeys
{
    __m128i k[15];
    int nr;
};

ORVANE_AESNI_TARGET inline __m128i load(const quint8 *p)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
}

ORVANE_AESNI_TARGET inline void store(quint8 *p, __m128i v)
{
    _mm_storeu_si128(reinterpret_cast<__m128i *>(p), v);
}

ORVANE_AESNI_TARGET inline RoundKeys forwardKeys(const quint8 *roundKeys, int nr)
{
    RoundKeys keys;
    keys.nr = nr;
    for (int r = 0; r <= nr; ++r)
        keys.k[r] = load(roundKeys + 16 * r);
    return keys;
}

// The equivalent inverse cipher's keys: reversed, with the inner ones run
// through InvMixColumns.
ORVANE_AESNI_TARGET inline RoundKeys inverseKeys(const quint8 *roundKeys, int nr)
{
    RoundKeys keys;
    keys.nr = nr;
    keys.k[0] = load(roundKeys + 16 * nr);
    for (int r = 1; r < nr; ++r)
        keys.k[r] = _mm_aesimc_si128(load(roundKeys + 16 * (nr - r)));
    keys.k[nr] = load(roundKeys);
    return keys;
}

// One round of the cipher (Forward) or of the equivalent inverse cipher.
template <bool Forward>
ORVANE_AESNI_TARGET inline __m128i oneRound(__m128i b, __m128i key)
{
    return Forward ? _mm_aesenc_si128(b, key) : _mm_aesdec_si128(b, key);
}

template <bool Forward>
ORVANE_AESNI_TARGET inline __m128i finalRound(__m128i b, __m128i key)
{
    return Forward ? _mm_aesenclast_si128(b, key) : _mm_aesdeclast_si128(b, key);
}

template <bool Forward>
ORVANE_AESNI_TARGET inline __m128i cipherBlock(__m128i b, const RoundKeys &keys)
{
    b = _mm_xor_si128(b, keys.k[0]);
    for (int r = 1; r < keys.nr; ++r)
        b = oneRound<Forward>(b, keys.k[r]);
    return finalRound<Forward>(b, keys.k[keys.nr]);
}

ORVANE_AESNI_TARGET inline __m128i encryptBlock(__m128i b, const RoundKeys &keys)
{
    return cipherBlock<true>(b, keys);
}

ORVANE_AESNI_TARGET inline __m128i decryptBlock(__m128i b, const RoundKeys &keys)
{
    return cipherBlock<false>(b, keys);
}

// Lanes blocks side by side, each round key loaded once for all of them.
template <bool Forward>
ORVANE_AESNI_TARGET inline void cipherLanes(__m128i *b, const RoundKeys &keys)
{
    ORVANE_UNROLL
    for (int j = 0; j < Lanes; ++j)
        b[j] = _mm_xor_si128(b[j], keys.k[0]);
    for (int r = 1; r < keys.nr; ++r) {
        const __m128i k = keys.k[r];
        ORVANE_UNROLL
        for (int j = 0; j < Lanes; ++j)
            b[j] = oneRound<Forward>(b[j], k);
    }
    const __m128i last = keys.k[keys.nr];
    ORVANE_UNROLL
    for (int j = 0; j < Lanes; ++j)
        b[j] = finalRound<Forward>(b[j], last);
}

// Ecb either way: every block on its own, Lanes at a time.
ORVANE_AESNI_TARGET void ecb(const RoundKeys &keys, bool forward, const quint8 *in, quint8 *out,
                             std::size_t blocks)
{
    std::size_t i = 0;
    for (; i + Lanes <= blocks; i += Lanes) {
        __m128i b[Lanes];
        ORVANE_UNROLL
        for (int j = 0; j < Lanes; ++j)
            b[j] = load(in + 16 * (i + std::size_t(j)));
        if (forward)
            cipherLanes<true>(b, keys);
        else
            cipherLanes<false>(b, keys);
        ORVANE_UNROLL
        for (int j = 0; j < Lanes; ++j)
            store(out + 16 * (i + std::size_t(j)), b[j]);
    }
    for (; i < blocks; ++i) {
        const __m128i b = load(in + 16 * i);
        store(out + 16 * i, forward ? encryptBlock(b, keys) : decryptBlock(b, keys));
    }
}

// Cbc and Cfb backward: each output block needs the cipher of one input
// block and the input block before it, so Lanes blocks run side by side.
// Cbc runs the inverse cipher on block i, Cfb the forward one on block i - 1.
ORVANE_AESNI_TARGET void chainedBackward(const RoundKeys &keys, bool cbc, quint8 *chain, const quint8 *in,
                                         quint8 *out, std::size_t blocks)
{
    __m128i previous = load(chain);
    std::size_t i = 0;
    for (; i + Lanes <= blocks; i += Lanes) {
        __m128i c[Lanes];
        __m128i b[Lanes];
        ORVANE_UNROLL
        for (int j = 0; j < Lanes; ++j)
            c[j] = load(in + 16 * (i + std::size_t(j)));
        if (cbc) {
            ORVANE_UNROLL
            for (int j = 0; j < Lanes; ++j)
                b[j] = c[j];
            cipherLanes<false>(b, keys);
        } else {
            b[0] = previous;
            ORVANE_UNROLL
            for (int j = 1; j < Lanes; ++j)
                b[j] = c[j - 1];
            cipherLanes<true>(b, keys);
        }
        // Cbc XORs with the previous ciphertext, Cfb with the current one.
        store(out + 16 * i, _mm_xor_si128(b[0], cbc ? previous : c[0]));
        ORVANE_UNROLL
        for (int j = 1; j < Lanes; ++j)
            store(out + 16 * (i + std::size_t(j)), _mm_xor_si128(b[j], cbc ? c[j - 1] : c[j]));
        previous = c[Lanes - 1];
    }
    for (; i < blocks; ++i) {
        const __m128i c = load(in + 16 * i);
        const __m128i b = cbc ? _mm_xor_si128(decryptBlock(c, keys), previous)
                              : _mm_xor_si128(encryptBlock(previous, keys), c);
        store(out + 16 * i, b);
        previous = c;
    }
    store(chain, previous);
}

// The modes whose every block waits for the one before: Cbc and Cfb forward,
// Ofb both ways.
ORVANE_AESNI_TARGET void chainedForward(const RoundKeys &keys, int mode, quint8 *chain, const quint8 *in,
                                        quint8 *out, std::size_t blocks)
{
    __m128i c = load(chain);
    for (std::size_t i = 0; i < blocks; ++i) {
        const __m128i p = load(in + 16 * i);
        if (mode == AESCodec::Cbc) {
            c = encryptBlock(_mm_xor_si128(p, c), keys);
            store(out + 16 * i, c);
        } else if (mode == AESCodec::Cfb) {
            c = _mm_xor_si128(encryptBlock(c, keys), p);
            store(out + 16 * i, c);
        } else {
            c = encryptBlock(c, keys);
            store(out + 16 * i, _mm_xor_si128(p, c));
        }
    }
    store(chain, c);
}

ORVANE_AESNI_TARGET quint32 subWord(quint32 word)
{
    // With four equal columns ShiftRows changes nothing, so the last round
    // with a zero key is SubBytes alone.
    const __m128i v = _mm_aesenclast_si128(_mm_set1_epi32(int(word)), _mm_setzero_si128());
    return quint32(_mm_cvtsi128_si32(v));
}

} // namespace

void expandKey(const quint8 *key, int nk, int nr, quint8 *roundKeys)
{
    Q_ASSERT(nk == 4 || nk == 6 || nk == 8);
    Q_ASSERT(nr == nk + 6);
    // Words hold their four bytes little-endian, so RotWord is a right
    // rotation and the round constant goes into the low byte.
    quint32 w[60];
    const int total = 4 * (nr + 1);
    for (int i = 0; i < nk; ++i) {
        const quint8 *p = key + 4 * i;
        w[i] = quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
    }
    quint32 rcon = 1;
    for (int i = nk; i < total; ++i) {
        quint32 t = w[i - 1];
        if (i % nk == 0) {
            t = subWord((t >> 8) | (t << 24)) ^ rcon;
            rcon = ((rcon << 1) ^ ((rcon >> 7) * 0x11b)) & 0xff;
        } else if (nk > 6 && i % nk == 4) {
            t = subWord(t);
        }
        w[i] = w[i - nk] ^ t;
    }
    for (int i = 0; i < total; ++i) {
        quint8 *p = roundKeys + 4 * i;
        p[0] = quint8(w[i]);
        p[1] = quint8(w[i] >> 8);
        p[2] = quint8(w[i] >> 16);
        p[3] = quint8(w[i] >> 24);
    }
}

// The entry points below carry no target attribute of their own, so that
// their declarations match; the work happens in these.
namespace {

ORVANE_AESNI_TARGET void encryptModes(int mode, const quint8 *roundKeys, int nr, quint8 *chain,
                                      const quint8 *in, quint8 *out, std::size_t blocks)
{
    const RoundKeys keys = forwardKeys(roundKeys, nr);
    if (mode == AESCodec::Ecb)
        ecb(keys, true, in, out, blocks);
    else
        chainedForward(keys, mode, chain, in, out, blocks);
}

ORVANE_AESNI_TARGET void decryptModes(int mode, const quint8 *roundKeys, int nr, quint8 *chain,
                                      const quint8 *in, quint8 *out, std::size_t blocks)
{
    switch (mode) {
    case AESCodec::Ecb:
        ecb(inverseKeys(roundKeys, nr), false, in, out, blocks);
        break;
    case AESCodec::Cbc:
        chainedBackward(inverseKeys(roundKeys, nr), true, chain, in, out, blocks);
        break;
    case AESCodec::Cfb:
        chainedBackward(forwardKeys(roundKeys, nr), false, chain, in, out, blocks);
        break;
    default:
        chainedForward(forwardKeys(roundKeys, nr), mode, chain, in, out, blocks);
        break;
    }
}

} // namespace

void encrypt(int mode, const quint8 *roundKeys, int nr, quint8 *chain, const quint8 *in, quint8 *out,
             std::size_t blocks)
{
    encryptModes(mode, roundKeys, nr, chain, in, out, blocks);
}

void decrypt(int mode, const quint8 *roundKeys, int nr, quint8 *chain, const quint8 *in, quint8 *out,
             std::size_t blocks)
{
    decryptModes(mode, roundKeys, nr, chain, in, out, blocks);
}

#else // no AES instructions on this architecture: supported() is false

void expandKey(const quint8 *, int, int, quint8 *) {}
void encrypt(int, const quint8 *, int, quint8 *, const quint8 *, quint8 *, std::size_t) {}
void decrypt(int, const quint8 *, int, quint8 *, const quint8 *, quint8 *, std::size_t) {}

#endif

} // namespace AesNi
} // namespace Orvane
