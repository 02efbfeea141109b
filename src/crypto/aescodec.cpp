#include <Orvane/aescodec.h>

#include "aesni_p.h"
#include "aessize_p.h"

#include <QtEndian>

#include <cstring>
#include <utility>
#include <limits>

namespace Orvane {

namespace {

constexpr quint8 xtime(quint8 x)
{
    return quint8((x << 1) ^ ((x >> 7) * 0x1b));
}

constexpr quint8 gmul(quint8 a, quint8 b)
{
    quint8 p = 0;
    while (b) {
        if (b & 1)
            p ^= a;
        a = xtime(a);
        b = quint8(b >> 1);
    }
    return p;
}

constexpr quint8 rotl8(quint8 x, int n)
{
    return quint8((x << n) | (x >> (8 - n)));
}

struct Tables
{
    quint8 sbox[256];
    quint8 rsbox[256];
    quint8 rcon[11];
};

// The S-box as the standard defines it: the multiplicative inverse in
// GF(2^8) (a^254, with 0 mapping to 0) followed by the affine transformation.
constexpr Tables makeTables()
{
    Tables t{};
    for (int a = 0; a < 256; ++a) {
        quint8 inverse = 1;
        quint8 power = quint8(a);
        for (int e = 254; e; e >>= 1) {
            if (e & 1)
                inverse = gmul(inverse, power);
            power = gmul(power, power);
        }
        if (a == 0)
            inverse = 0;
        const quint8 s = quint8(inverse ^ rotl8(inverse, 1) ^ rotl8(inverse, 2) ^ rotl8(inverse, 3)
                                ^ rotl8(inverse, 4) ^ 0x63);
        t.sbox[a] = s;
        t.rsbox[s] = quint8(a);
    }
    // Rcon[i] = x^(i-1); entry 0 is never used.
    t.rcon[1] = 0x01;
    for (int i = 2; i < 11; ++i)
        t.rcon[i] = xtime(t.rcon[i - 1]);
    return t;
}

constexpr Tables tables = makeTables();
static_assert(tables.sbox[0x00] == 0x63 && tables.sbox[0x01] == 0x7c && tables.sbox[0x53] == 0xed,
              "S-box");
static_assert(tables.rsbox[0x63] == 0x00 && tables.rsbox[0xed] == 0x53, "inverse S-box");
static_assert(tables.rcon[10] == 0x36, "round constants");

constexpr int BlockBytes = 16;
// Independent blocks (Ecb both ways, Cbc and Cfb decryption) go through the
// portable cipher this many at a time, a round of each in turn, so that the
// CPU overlaps their work. Three measured fastest: with four the compiler
// runs out of registers.
constexpr int Interleave = 3;

// The portable cipher keeps the state as the standard's 4x4 array row by
// row in two 64-bit words: word 0 holds rows 0 and 1, word 1 rows 2 and 3,
// row r in bits 32 * (r % 2) up, its column c at bit 8 * c of that half.
// ShiftRows then turns each half, MixColumns combines whole rows, and the
// compiler keeps the words in registers from one round function to the next.
// Blocks and round keys are transposed into this order on the way in.
constexpr quint64 Low7 = 0x7f7f7f7f7f7f7f7full;
constexpr quint64 Low6 = 0x3f3f3f3f3f3f3f3full;
constexpr quint64 Bit0 = 0x0101010101010101ull;

// m_state always points at the words of a state, so they may be read and
// written as quint64; such stores cannot change m_state itself, so the
// compiler keeps the pointer and the words in registers.
inline quint64 *stateHalves(quint8 *state)
{
    return reinterpret_cast<quint64 *>(state);
}

// Where byte i of the state lies in memory.
constexpr int stateByte(int i)
{
    return Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? i : (i & 8) | (7 - (i & 7));
}

// The S-box and its inverse once for each byte position of a word, each
// value already shifted to its position, so that SubBytes is one lookup and
// one OR per byte. Built from the same tables as the members.
struct PlacedBoxes
{
    quint64 forward[8][256];
    quint64 inverse[8][256];
};

constexpr PlacedBoxes makePlacedBoxes()
{
    PlacedBoxes p{};
    for (int k = 0; k < 8; ++k) {
        for (int a = 0; a < 256; ++a) {
            p.forward[k][a] = quint64(tables.sbox[a]) << (8 * k);
            p.inverse[k][a] = quint64(tables.rsbox[a]) << (8 * k);
        }
    }
    return p;
}

constexpr PlacedBoxes placedBoxes = makePlacedBoxes();

// Every byte of the state through the placed S-box `box`. The bytes are
// read one by one from the words in memory.
inline void substitute(quint8 *state, const quint64 (&box)[8][256])
{
    quint64 v[2] = {0, 0};
    for (int i = 0; i < 16; ++i)
        v[i / 8] |= box[i % 8][state[stateByte(i)]];
    quint64 *s = stateHalves(state);
    s[0] = v[0];
    s[1] = v[1];
}

// xtime ({02}·) on eight bytes at once.
inline quint64 xtime8(quint64 v)
{
    return ((v & Low7) << 1) ^ (((v >> 7) & Bit0) * 0x1b);
}

// {04}· on eight bytes at once: the two bits shifted out come back as
// x^8 = {1b} and x^9 = {36}.
inline quint64 times4(quint64 v)
{
    return ((v & Low6) << 2) ^ (((v >> 6) & Bit0) * 0x1b) ^ (((v >> 7) & Bit0) * 0x36);
}

inline quint32 rotateRight(quint32 v, int n)
{
    return (v >> n) | (v << (32 - n));
}

inline quint64 joinHalves(quint32 low, quint32 high)
{
    return quint64(low) | (quint64(high) << 32);
}

// MixColumns on whole rows: row r becomes
// 2·(a[r] + a[r+1]) + a[r+1] + (a[r+2] + a[r+3]).
inline void mixRows(quint64 *s)
{
    const quint64 a = s[0];                       // rows 0, 1
    const quint64 b = s[1];                       // rows 2, 3
    const quint64 a1 = (a >> 32) | (b << 32);     // rows 1, 2
    const quint64 b1 = (b >> 32) | (a << 32);     // rows 3, 0
    const quint64 sa = a ^ a1;
    const quint64 sb = b ^ b1;
    s[0] = xtime8(sa) ^ a1 ^ sb;
    s[1] = xtime8(sb) ^ b1 ^ sa;
}

// A block (column by column) into the state's row order and back: the 4x4
// byte transpose, as two swaps of byte groups.
inline void transpose(quint64 &x, quint64 &y)
{
    quint64 t = (x ^ (x >> 24)) & 0x00000000ff00ff00ull;
    x ^= t ^ (t << 24);
    t = (y ^ (y >> 24)) & 0x00000000ff00ff00ull;
    y ^= t ^ (t << 24);
    t = ((x >> 16) ^ y) & 0x0000ffff0000ffffull;
    y ^= t;
    x ^= t << 16;
}

inline void loadState(const quint8 *block, quint64 *words)
{
    quint64 x = qFromLittleEndian<quint64>(block);
    quint64 y = qFromLittleEndian<quint64>(block + 8);
    transpose(x, y);
    words[0] = x;
    words[1] = y;
}

inline void storeState(const quint64 *words, quint8 *block)
{
    quint64 x = words[0];
    quint64 y = words[1];
    transpose(x, y);
    qToLittleEndian(x, block);
    qToLittleEndian(y, block + 8);
}

// The key schedule in the state's order, round key by round key, which is
// what the portable cipher takes as its expanded key. Left unfilled when the
// portable path does not run.
struct StateKeys
{
    StateKeys(const quint8 *expanded, int rounds, bool portable)
    {
        for (int i = 0; portable && i <= rounds; ++i)
            loadState(expanded + BlockBytes * i, words + 2 * i);
    }
    const quint8 *bytes() const { return reinterpret_cast<const quint8 *>(words); }

    quint64 words[2 * 15];
};

// Up to Interleave consecutive blocks in state order, transformed by
// `together` (all Interleave states at once) or `single` (one state) and
// written back.
template <typename Together, typename Single>
inline void onStates(quint8 *blocks, int count, Together together, Single single)
{
    quint64 words[2 * Interleave];
    quint8 *states[Interleave];
    for (int i = 0; i < count; ++i) {
        loadState(blocks + BlockBytes * i, words + 2 * i);
        states[i] = reinterpret_cast<quint8 *>(words + 2 * i);
    }
    if (count == Interleave) {
        together(states);
    } else {
        for (int i = 0; i < count; ++i)
            single(states[i]);
    }
    for (int i = 0; i < count; ++i)
        storeState(words + 2 * i, blocks + BlockBytes * i);
}

// Runs `round` for each of Count states in turn, with `current` (the codec's
// working-state pointer) pointing at it.
template <int Count, typename Round>
inline void forEachState(quint8 *const *states, quint8 *&current, Round round)
{
    for (int i = 0; i < Count; ++i) {
        current = states[i];
        round();
    }
}

inline void xorBlocks(quint8 *out, const quint8 *a, const quint8 *b, int length)
{
    for (int j = 0; j < length; ++j)
        out[j] = quint8(a[j] ^ b[j]);
}

inline void xorBlock(quint8 *out, const quint8 *a, const quint8 *b)
{
    xorBlocks(out, a, b, BlockBytes);
}

inline int groupOf(std::size_t blocks)
{
    return int(qMin<std::size_t>(blocks, Interleave));
}

// The modes on whole blocks with the portable cipher; `encrypt` and
// `decrypt` transform `count` (at most Interleave) consecutive blocks in
// place. `chain` carries the IV from call to call.
template <typename Encrypt>
void forwardBlocks(int mode, Encrypt encrypt, quint8 *chain, const quint8 *in, quint8 *out,
                   std::size_t blocks)
{
    if (mode == AESCodec::Ecb) {
        while (blocks) {
            const int n = groupOf(blocks);
            std::memmove(out, in, std::size_t(n * BlockBytes));
            encrypt(out, n);
            in += n * BlockBytes;
            out += n * BlockBytes;
            blocks -= std::size_t(n);
        }
        return;
    }
    for (std::size_t i = 0; i < blocks; ++i, in += BlockBytes, out += BlockBytes) {
        switch (mode) {
        case AESCodec::Cbc:
            xorBlock(out, in, chain);
            encrypt(out, 1);
            std::memcpy(chain, out, BlockBytes);
            break;
        case AESCodec::Cfb:
            encrypt(chain, 1);
            xorBlock(chain, chain, in);
            std::memmove(out, chain, BlockBytes);
            break;
        default: // Ofb: the chain is the key stream
            encrypt(chain, 1);
            xorBlock(out, in, chain);
            break;
        }
    }
}

// Backward, every block but Ofb's depends only on ciphertext, so they go in
// groups.
template <typename Encrypt, typename Decrypt>
void backwardBlocks(int mode, Encrypt encrypt, Decrypt decrypt, quint8 *chain, const quint8 *in,
                    quint8 *out, std::size_t blocks)
{
    if (mode == AESCodec::Ofb) {
        forwardBlocks(mode, encrypt, chain, in, out, blocks);
        return;
    }
    quint8 cipherText[Interleave * BlockBytes];
    quint8 work[Interleave * BlockBytes];
    while (blocks) {
        const int n = groupOf(blocks);
        const int length = n * BlockBytes;
        std::memcpy(cipherText, in, std::size_t(length));
        if (mode == AESCodec::Cfb) {
            // The key stream is the cipher of the previous ciphertext blocks.
            std::memcpy(work, chain, BlockBytes);
            std::memcpy(work + BlockBytes, cipherText, std::size_t(length - BlockBytes));
            encrypt(work, n);
            xorBlocks(out, work, cipherText, length);
        } else {
            std::memcpy(out, cipherText, std::size_t(length));
            decrypt(out, n);
            if (mode == AESCodec::Cbc) {
                xorBlock(out, out, chain);
                xorBlocks(out + BlockBytes, out + BlockBytes, cipherText, length - BlockBytes);
            }
        }
        std::memcpy(chain, cipherText + length - BlockBytes, BlockBytes);
        in += length;
        out += length;
        blocks -= std::size_t(n);
    }
}

bool knownMode(int mode)
{
    return mode >= AESCodec::Ecb && mode <= AESCodec::Ofb;
}

const quint8 *bytes(const QByteArray &a)
{
    return reinterpret_cast<const quint8 *>(a.constData());
}

quint8 *bytes(QByteArray &a)
{
    return reinterpret_cast<quint8 *>(a.data());
}

// Lowercase hexadecimal digit by arithmetic, not by a table indexed by data.
char hexDigit(int n)
{
    return char('0' + n + ((n + 6) >> 4) * ('a' - '0' - 10));
}

} // namespace

qint64 AesSize::maxByteArraySize()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    return QByteArray::max_size();
#else
    // Qt's own reckoning: the allocation limit less the array's bookkeeping
    // and the terminating NUL.
    return qint64(std::numeric_limits<decltype(QByteArray().size())>::max()) - qint64(sizeof(QByteArrayData)) - 1;
#endif
}

int AesSize::paddingLength(qint64 size, int padding)
{
    const int missing = int((BlockBytes - size % BlockBytes) % BlockBytes);
    switch (padding) {
    case AESCodec::Pkcs7Padding:
        return missing == 0 ? BlockBytes : missing;
    default: // ZeroPadding, IsoPadding and unknown values fill up to the block
        return missing;
    }
}

bool AesSize::encodeAccepts(qint64 size, int padding)
{
    return size >= 0 && size <= maxByteArraySize() - paddingLength(size, padding);
}

AESCodec::AESCodec(Aes level, Mode mode, Padding padding)
    : m_level(level)
    , m_mode(mode)
    , m_padding(padding)
{
    const auto take = [this](auto record) {
        m_nk = record.nk;
        m_keyLen = record.keyLen;
        m_nr = record.nr;
        m_expandedKey = record.expandedKey;
    };
    switch (m_level) {
    case Aes192:
        take(AES192());
        break;
    case Aes256:
        take(AES256());
        break;
    default:
        take(AES128());
        break;
    }
    std::memcpy(m_sbox, tables.sbox, sizeof m_sbox);
    std::memcpy(m_rsbox, tables.rsbox, sizeof m_rsbox);
    std::memcpy(m_rcon, tables.rcon, sizeof m_rcon);
}

AESCodec::~AESCodec() = default;

QByteArray AESCodec::encode(const QByteArray &rawText, const QByteArray &key, const QByteArray &iv)
{
    if (!knownMode(m_mode) || (m_mode != Ecb && iv.size() != m_blockLen))
        return QByteArray();
    if (!AesSize::encodeAccepts(rawText.size(), m_padding))
        return QByteArray();
    const QByteArray expanded = expandKey(key);
    if (expanded.isEmpty())
        return QByteArray();

    // The whole blocks are read straight from the input; only the last,
    // padded block is assembled in the output first and encrypted in place.
    const auto rest = int(rawText.size() % m_blockLen);
    const auto whole = rawText.size() - rest;
    const QByteArray padding = getPadding(rest, m_blockLen);
    QByteArray result(rawText.size() + padding.size(), Qt::Uninitialized);
    quint8 *out = bytes(result);
    std::memcpy(out + whole, rawText.constData() + whole, std::size_t(rest));
    std::memcpy(out + rawText.size(), padding.constData(), std::size_t(padding.size()));

    quint8 chain[BlockBytes] = {};
    if (m_mode != Ecb)
        std::memcpy(chain, iv.constData(), BlockBytes);
    const quint8 *w = bytes(expanded);
    const bool hardware = AesNi::enabled();
    const StateKeys keys(w, m_nr, !hardware);
    const auto encrypt = [this, &keys](quint8 *blocks, int count) {
        onStates(blocks, count, [&](quint8 *const *states) { cipherStates<Interleave>(states, keys.bytes()); },
                 [&](quint8 *state) { m_state = state; cipher(keys.bytes()); });
    };
    const auto run = [&](const quint8 *in, quint8 *to, qsizetype length) {
        const auto blocks = std::size_t(length / m_blockLen);
        if (hardware)
            AesNi::encrypt(m_mode, w, m_nr, chain, in, to, blocks);
        else
            forwardBlocks(m_mode, encrypt, chain, in, to, blocks);
    };
    run(bytes(rawText), out, whole);
    run(out + whole, out + whole, result.size() - whole);
    m_state = nullptr;
    return result;
}

QByteArray AESCodec::decode(const QByteArray &rawText, const QByteArray &key, const QByteArray &iv)
{
    if (!knownMode(m_mode) || (m_mode != Ecb && iv.size() != m_blockLen))
        return QByteArray();
    const QByteArray expanded = expandKey(key);
    if (expanded.isEmpty())
        return QByteArray();
    const auto rest = int(rawText.size() % m_blockLen);
    const auto whole = rawText.size() - rest;
    // A partial block cannot go through the inverse cipher.
    if (rest && (m_mode == Ecb || m_mode == Cbc))
        return QByteArray();

    QByteArray result(rawText.size(), Qt::Uninitialized);
    quint8 *out = bytes(result);
    quint8 chain[BlockBytes] = {};
    if (m_mode != Ecb)
        std::memcpy(chain, iv.constData(), BlockBytes);
    const quint8 *w = bytes(expanded);
    const bool hardware = AesNi::enabled();
    const StateKeys keys(w, m_nr, !hardware);
    const auto encrypt = [this, &keys](quint8 *blocks, int count) {
        onStates(blocks, count, [&](quint8 *const *states) { cipherStates<Interleave>(states, keys.bytes()); },
                 [&](quint8 *state) { m_state = state; cipher(keys.bytes()); });
    };
    const auto decrypt = [this, &keys](quint8 *blocks, int count) {
        onStates(blocks, count, [&](quint8 *const *states) { invCipherStates<Interleave>(states, keys.bytes()); },
                 [&](quint8 *state) { m_state = state; invCipher(keys.bytes()); });
    };
    const auto blocks = std::size_t(whole / m_blockLen);
    if (hardware)
        AesNi::decrypt(m_mode, w, m_nr, chain, bytes(rawText), out, blocks);
    else
        backwardBlocks(m_mode, encrypt, decrypt, chain, bytes(rawText), out, blocks);

    if (rest) {
        // Cfb and Ofb: the key stream block for the tail is the cipher of the
        // chain (the last ciphertext block, or the last key stream block).
        if (hardware)
            AesNi::encrypt(Ecb, w, m_nr, nullptr, chain, chain, 1);
        else
            encrypt(chain, 1);
        const QByteArray tail = byteXor(rawText.mid(whole),
                                        QByteArray::fromRawData(reinterpret_cast<const char *>(chain), BlockBytes));
        std::memcpy(out + whole, tail.constData(), std::size_t(rest));
    }
    m_state = nullptr;
    return result;
}

QByteArray AESCodec::removePadding(const QByteArray &rawText)
{
    const auto size = rawText.size();
    if (size == 0)
        return rawText;
    switch (m_padding) {
    case ZeroPadding: {
        auto n = size;
        while (n > 0 && rawText.at(n - 1) == '\0')
            --n;
        return rawText.left(n);
    }
    case Pkcs7Padding: {
        const int n = static_cast<qint8>(rawText.at(size - 1));
        if (n < 1 || n > size)
            return rawText;
        return rawText.left(size - n);
    }
    case IsoPadding: {
        auto last = size - 1;
        while (last >= 0 && rawText.at(last) == '\0')
            --last;
        if (last >= 0 && quint8(rawText.at(last)) == 0x80)
            return rawText.left(last);
        return rawText;
    }
    }
    return rawText;
}

QByteArray AESCodec::expandKey(const QByteArray &key)
{
    if (key.size() != m_keyLen)
        return QByteArray();
    const int words = m_nb * (m_nr + 1);
    QByteArray expanded(4 * words, Qt::Uninitialized);
    quint8 *w = bytes(expanded);
    if (AesNi::enabled()) {
        AesNi::expandKey(bytes(key), m_nk, m_nr, w);
        return expanded;
    }
    std::memcpy(w, key.constData(), std::size_t(m_keyLen));
    for (int i = m_nk; i < words; ++i) {
        quint8 t[4];
        std::memcpy(t, w + 4 * (i - 1), 4);
        if (i % m_nk == 0) {
            // RotWord, SubWord, then the round constant on the first byte.
            const quint8 first = t[0];
            t[0] = quint8(getSBoxValue(t[1]) ^ m_rcon[i / m_nk]);
            t[1] = getSBoxValue(t[2]);
            t[2] = getSBoxValue(t[3]);
            t[3] = getSBoxValue(first);
        } else if (m_nk > 6 && i % m_nk == 4) {
            for (quint8 &b : t)
                b = getSBoxValue(b);
        }
        for (int j = 0; j < 4; ++j)
            w[4 * i + j] = quint8(w[4 * (i - m_nk) + j] ^ t[j]);
    }
    return expanded;
}

QByteArray AESCodec::printArray(unsigned char *data, int size)
{
    if (!data || size < 1 || size > std::numeric_limits<int>::max() / 2)
        return QByteArray();
    QByteArray text(2 * size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i) {
        text[2 * i] = hexDigit(data[i] >> 4);
        text[2 * i + 1] = hexDigit(data[i] & 0x0f);
    }
    return text;
}

QByteArray AESCodec::Crypt(Aes level, Mode mode, const QByteArray &rawText, const QByteArray &key,
                           const QByteArray &iv, Padding padding)
{
    AESCodec codec(level, mode, padding);
    return codec.encode(rawText, key, iv);
}

QByteArray AESCodec::Decrypt(Aes level, Mode mode, const QByteArray &rawText, const QByteArray &key,
                             const QByteArray &iv, Padding padding)
{
    AESCodec codec(level, mode, padding);
    return codec.decode(rawText, key, iv);
}

QByteArray AESCodec::ExpandKey(Aes level, Mode mode, const QByteArray &key)
{
    AESCodec codec(level, mode, ZeroPadding);
    return codec.expandKey(key);
}

QByteArray AESCodec::RemovePadding(const QByteArray &rawText, Padding padding)
{
    AESCodec codec(Aes128, Ecb, padding);
    return codec.removePadding(rawText);
}

// The portable path: the state in m_state (see the layout above), the
// standard's round sequence.

inline void AESCodec::addRoundKey(int round, const quint8 *expandedKey)
{
    quint64 *s = stateHalves(m_state);
    const auto *k = reinterpret_cast<const quint64 *>(expandedKey + round * m_nb * 4);
    s[0] ^= k[0];
    s[1] ^= k[1];
}

inline quint8 AESCodec::getSBoxValue(quint8 num) const
{
    return m_sbox[num];
}

inline quint8 AESCodec::getSBoxInvert(quint8 num) const
{
    return m_rsbox[num];
}

inline void AESCodec::subBytes()
{
    substitute(m_state, placedBoxes.forward);
}

inline void AESCodec::invSubBytes()
{
    substitute(m_state, placedBoxes.inverse);
}

// Row r turns left by r columns, which in its half is a right rotation by
// r bytes.
inline void AESCodec::shiftRows()
{
    quint64 *s = stateHalves(m_state);
    const quint64 a = s[0];
    const quint64 b = s[1];
    s[0] = joinHalves(quint32(a), rotateRight(quint32(a >> 32), 8));
    s[1] = joinHalves(rotateRight(quint32(b), 16), rotateRight(quint32(b >> 32), 24));
}

inline void AESCodec::invShiftRows()
{
    quint64 *s = stateHalves(m_state);
    const quint64 a = s[0];
    const quint64 b = s[1];
    s[0] = joinHalves(quint32(a), rotateRight(quint32(a >> 32), 24));
    s[1] = joinHalves(rotateRight(quint32(b), 16), rotateRight(quint32(b >> 32), 8));
}

inline void AESCodec::mixColumns()
{
    mixRows(stateHalves(m_state));
}

// The inverse matrix is the forward one times {04}x^2 + {05}: first
// a[r] += 4·(a[r] + a[r+2]), the same term for rows r and r + 2, then the
// forward mixing.
inline void AESCodec::invMixColumns()
{
    quint64 *s = stateHalves(m_state);
    const quint64 u = times4(s[0] ^ s[1]);
    s[0] ^= u;
    s[1] ^= u;
    mixRows(s);
}

// The round sequence over Count independent states, each round run on one
// state after the other, so that their work overlaps.
template <int Count>
inline void AESCodec::cipherStates(quint8 *const *states, const quint8 *expandedKey)
{
    const auto each = [&](auto round) { forEachState<Count>(states, m_state, round); };
    each([&] { addRoundKey(0, expandedKey); });
    for (int round = 1; round < m_nr; ++round) {
        each([&] {
            subBytes();
            shiftRows();
            mixColumns();
            addRoundKey(round, expandedKey);
        });
    }
    each([&] {
        subBytes();
        shiftRows();
        addRoundKey(m_nr, expandedKey);
    });
}

template <int Count>
inline void AESCodec::invCipherStates(quint8 *const *states, const quint8 *expandedKey)
{
    const auto each = [&](auto round) { forEachState<Count>(states, m_state, round); };
    each([&] { addRoundKey(m_nr, expandedKey); });
    for (int round = m_nr - 1; round > 0; --round) {
        each([&] {
            invShiftRows();
            invSubBytes();
            addRoundKey(round, expandedKey);
            invMixColumns();
        });
    }
    each([&] {
        invShiftRows();
        invSubBytes();
        addRoundKey(0, expandedKey);
    });
}

void AESCodec::cipher(const quint8 *expandedKey)
{
    quint8 *const state[1] = {m_state};
    cipherStates<1>(state, expandedKey);
}

void AESCodec::invCipher(const quint8 *expandedKey)
{
    quint8 *const state[1] = {m_state};
    invCipherStates<1>(state, expandedKey);
}

QByteArray AESCodec::byteXor(const QByteArray &a, const QByteArray &b) const
{
    const int n = qMin(a.size(), b.size());
    QByteArray result(n, Qt::Uninitialized);
    for (int i = 0; i < n; ++i)
        result[i] = char(a.at(i) ^ b.at(i));
    return result;
}

// The alignment is always the block length, the one paddingLength() uses.
QByteArray AESCodec::getPadding(int currentSize, int alignment) const
{
    Q_ASSERT(alignment == BlockBytes);
    Q_UNUSED(alignment)
    const int size = AesSize::paddingLength(currentSize, m_padding);
    switch (m_padding) {
    case Pkcs7Padding:
        return QByteArray(size, char(size));
    case IsoPadding:
        if (size == 0)
            return QByteArray();
        return QByteArray(1, char(0x80)) + QByteArray(size - 1, '\0');
    default:
        return QByteArray(size, '\0');
    }
}

} // namespace Orvane
