#include <Orvane/aescodec.h>

#include "aesni_p.h"

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

// The portable cipher keeps the state as two 64-bit halves (columns 0-1 and
// 2-3, byte r + 4c of the block at bit 8 * (r + 4c) of its half), so that the
// compiler can keep it in registers from one round function to the next.
// Byte masks of the rows in a half, and of the bytes' low seven bits.
constexpr quint64 Row0 = 0x000000ff000000ffull;
constexpr quint64 Row1 = 0x0000ff000000ff00ull;
constexpr quint64 Row2 = 0x00ff000000ff0000ull;
constexpr quint64 Row3 = 0xff000000ff000000ull;
constexpr quint64 Low7 = 0x7f7f7f7f7f7f7f7full;
constexpr quint64 Bit0 = 0x0101010101010101ull;

// m_state always points at the halves of a PortableBlock, so they may be
// read and written as quint64; such stores cannot change m_state itself, so
// the compiler keeps the pointer and the halves in registers.
inline quint64 *stateHalves(quint8 *state)
{
    return reinterpret_cast<quint64 *>(state);
}

// Where byte i of the state lies in memory.
constexpr int stateByte(int i)
{
    return Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? i : (i & 8) | (7 - (i & 7));
}

// Every byte of the state through `box`. The bytes are read one by one
// straight from the halves in memory, which costs fewer instructions than
// shifting them out.
template <typename Box>
inline void substitute(quint8 *state, Box box)
{
    quint64 v[2] = {0, 0};
    for (int i = 0; i < 16; ++i)
        v[i / 8] |= quint64(box(state[stateByte(i)])) << (8 * (i % 8));
    quint64 *s = stateHalves(state);
    s[0] = v[0];
    s[1] = v[1];
}

// xtime on eight bytes at once.
inline quint64 xtime8(quint64 v)
{
    return ((v & Low7) << 1) ^ (((v >> 7) & Bit0) * 0x1b);
}

// Each column turned down by one and two rows: byte r of the result is
// byte r + 1 (r + 2) of the same column.
inline quint64 rotateColumns8(quint64 v)
{
    return ((v >> 8) & ~Row3) | ((v << 24) & Row3);
}

inline quint64 rotateColumns16(quint64 v)
{
    return ((v >> 16) & (Row0 | Row1)) | ((v << 16) & (Row2 | Row3));
}

// MixColumns on two columns: byte r becomes
// 2·(a[r] + a[r+1]) + a[r+1] + (a[r+2] + a[r+3]).
inline quint64 mixHalf(quint64 a)
{
    const quint64 a1 = rotateColumns8(a);
    const quint64 t = a ^ a1;
    return xtime8(t) ^ a1 ^ rotateColumns16(t);
}

inline void xorBlock(quint8 *out, const quint8 *a, const quint8 *b)
{
    for (int j = 0; j < BlockBytes; ++j)
        out[j] = quint8(a[j] ^ b[j]);
}

// The modes on whole blocks with the portable cipher; `encrypt` and `decrypt`
// transform one block in place. `chain` carries the IV from call to call.
template <typename Encrypt>
void forwardBlocks(int mode, Encrypt encrypt, quint8 *chain, const quint8 *in, quint8 *out,
                   std::size_t blocks)
{
    for (std::size_t i = 0; i < blocks; ++i, in += BlockBytes, out += BlockBytes) {
        switch (mode) {
        case AESCodec::Ecb:
            std::memmove(out, in, BlockBytes);
            encrypt(out);
            break;
        case AESCodec::Cbc:
            xorBlock(out, in, chain);
            encrypt(out);
            std::memcpy(chain, out, BlockBytes);
            break;
        case AESCodec::Cfb:
            encrypt(chain);
            xorBlock(chain, chain, in);
            std::memmove(out, chain, BlockBytes);
            break;
        default: // Ofb: the chain is the key stream
            encrypt(chain);
            xorBlock(out, in, chain);
            break;
        }
    }
}

template <typename Encrypt, typename Decrypt>
void backwardBlocks(int mode, Encrypt encrypt, Decrypt decrypt, quint8 *chain, const quint8 *in,
                    quint8 *out, std::size_t blocks)
{
    if (mode == AESCodec::Ofb) {
        forwardBlocks(mode, encrypt, chain, in, out, blocks);
        return;
    }
    quint8 cipherText[BlockBytes];
    for (std::size_t i = 0; i < blocks; ++i, in += BlockBytes, out += BlockBytes) {
        std::memcpy(cipherText, in, BlockBytes);
        switch (mode) {
        case AESCodec::Ecb:
        case AESCodec::Cbc:
            std::memmove(out, in, BlockBytes);
            decrypt(out);
            if (mode == AESCodec::Cbc)
                xorBlock(out, out, chain);
            break;
        default: // Cfb
            encrypt(chain);
            xorBlock(out, chain, cipherText);
            break;
        }
        std::memcpy(chain, cipherText, BlockBytes);
    }
}

// The working block of the portable cipher: 16 bytes held as two 64-bit
// halves, which the round functions read and write as such.
class PortableBlock
{
public:
    explicit PortableBlock(const quint8 *block)
        : m_half{qFromLittleEndian<quint64>(block), qFromLittleEndian<quint64>(block + 8)}
    {
    }
    quint8 *bytes() { return reinterpret_cast<quint8 *>(m_half); }
    void store(quint8 *block) const
    {
        qToLittleEndian(m_half[0], block);
        qToLittleEndian(m_half[1], block + 8);
    }

private:
    quint64 m_half[2];
};

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
    if (rawText.size() > std::numeric_limits<int>::max() / 2)
        return QByteArray();
    const QByteArray expanded = expandKey(key);
    if (expanded.isEmpty())
        return QByteArray();

    // The whole blocks are read straight from the input; only the last,
    // padded block is assembled in the output first and encrypted in place.
    const QByteArray padding = getPadding(rawText.size(), m_blockLen);
    const int whole = rawText.size() - rawText.size() % m_blockLen;
    const int rest = rawText.size() - whole;
    QByteArray result(rawText.size() + padding.size(), Qt::Uninitialized);
    quint8 *out = bytes(result);
    std::memcpy(out + whole, rawText.constData() + whole, std::size_t(rest));
    std::memcpy(out + rawText.size(), padding.constData(), std::size_t(padding.size()));

    quint8 chain[BlockBytes] = {};
    if (m_mode != Ecb)
        std::memcpy(chain, iv.constData(), BlockBytes);
    const quint8 *w = bytes(expanded);
    const auto run = [&](const quint8 *in, quint8 *to, int length) {
        const auto blocks = std::size_t(length / m_blockLen);
        if (AesNi::enabled()) {
            AesNi::encrypt(m_mode, w, m_nr, chain, in, to, blocks);
        } else {
            const auto encrypt = [this, w](quint8 *block) {
                PortableBlock state(block);
                m_state = state.bytes();
                cipher(w);
                state.store(block);
            };
            forwardBlocks(m_mode, encrypt, chain, in, to, blocks);
        }
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
    const int whole = rawText.size() - rawText.size() % m_blockLen;
    const int rest = rawText.size() - whole;
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
    const auto encrypt = [this, w](quint8 *block) {
        PortableBlock state(block);
        m_state = state.bytes();
        cipher(w);
        state.store(block);
    };
    const auto decrypt = [this, w](quint8 *block) {
        PortableBlock state(block);
        m_state = state.bytes();
        invCipher(w);
        state.store(block);
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
            encrypt(chain);
        const QByteArray tail = byteXor(rawText.mid(whole),
                                        QByteArray::fromRawData(reinterpret_cast<const char *>(chain), BlockBytes));
        std::memcpy(out + whole, tail.constData(), std::size_t(rest));
    }
    m_state = nullptr;
    return result;
}

QByteArray AESCodec::removePadding(const QByteArray &rawText)
{
    const int size = rawText.size();
    if (size == 0)
        return rawText;
    switch (m_padding) {
    case ZeroPadding: {
        int n = size;
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
        int last = size - 1;
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

// The portable path: one block in m_state, the standard's round sequence.

inline void AESCodec::addRoundKey(int round, const quint8 *expandedKey)
{
    quint64 *s = stateHalves(m_state);
    const quint8 *k = expandedKey + round * m_nb * 4;
    s[0] ^= qFromLittleEndian<quint64>(k);
    s[1] ^= qFromLittleEndian<quint64>(k + 8);
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
    substitute(m_state, [this](quint8 b) { return getSBoxValue(b); });
}

inline void AESCodec::invSubBytes()
{
    substitute(m_state, [this](quint8 b) { return getSBoxInvert(b); });
}

// Row r turns left by r columns: row 1 and row 3 take the neighbouring
// column across the halves, row 2 swaps the halves.
inline void AESCodec::shiftRows()
{
    quint64 *s = stateHalves(m_state);
    const quint64 lo = s[0];
    const quint64 hi = s[1];
    const quint64 next = (lo >> 32) | (hi << 32);     // columns 1, 2
    const quint64 previous = (hi >> 32) | (lo << 32); // columns 3, 0
    s[0] = (lo & Row0) | (next & Row1) | (hi & Row2) | (previous & Row3);
    s[1] = (hi & Row0) | (previous & Row1) | (lo & Row2) | (next & Row3);
}

inline void AESCodec::invShiftRows()
{
    quint64 *s = stateHalves(m_state);
    const quint64 lo = s[0];
    const quint64 hi = s[1];
    const quint64 next = (lo >> 32) | (hi << 32);
    const quint64 previous = (hi >> 32) | (lo << 32);
    s[0] = (lo & Row0) | (previous & Row1) | (hi & Row2) | (next & Row3);
    s[1] = (hi & Row0) | (next & Row1) | (lo & Row2) | (previous & Row3);
}

inline void AESCodec::mixColumns()
{
    quint64 *s = stateHalves(m_state);
    s[0] = mixHalf(s[0]);
    s[1] = mixHalf(s[1]);
}

// The inverse matrix is the forward one times {04}x^2 + {05}: first
// a[r] += 4·(a[r] + a[r+2]), then the forward mixing.
inline void AESCodec::invMixColumns()
{
    quint64 *s = stateHalves(m_state);
    for (int h = 0; h < 2; ++h) {
        const quint64 a = s[h];
        s[h] = mixHalf(a ^ xtime8(xtime8(a ^ rotateColumns16(a))));
    }
}

void AESCodec::cipher(const quint8 *expandedKey)
{
    addRoundKey(0, expandedKey);
    for (int round = 1; round < m_nr; ++round) {
        subBytes();
        shiftRows();
        mixColumns();
        addRoundKey(round, expandedKey);
    }
    subBytes();
    shiftRows();
    addRoundKey(m_nr, expandedKey);
}

void AESCodec::invCipher(const quint8 *expandedKey)
{
    addRoundKey(m_nr, expandedKey);
    for (int round = m_nr - 1; round > 0; --round) {
        invShiftRows();
        invSubBytes();
        addRoundKey(round, expandedKey);
        invMixColumns();
    }
    invShiftRows();
    invSubBytes();
    addRoundKey(0, expandedKey);
}

QByteArray AESCodec::byteXor(const QByteArray &a, const QByteArray &b) const
{
    const int n = qMin(a.size(), b.size());
    QByteArray result(n, Qt::Uninitialized);
    for (int i = 0; i < n; ++i)
        result[i] = char(a.at(i) ^ b.at(i));
    return result;
}

QByteArray AESCodec::getPadding(int currentSize, int alignment) const
{
    const int size = (alignment - currentSize % alignment) % alignment;
    switch (m_padding) {
    case Pkcs7Padding:
        return size == 0 ? QByteArray(alignment, char(alignment)) : QByteArray(size, char(size));
    case IsoPadding:
        if (size == 0)
            return QByteArray();
        return QByteArray(1, char(0x80)) + QByteArray(size - 1, '\0');
    default:
        return QByteArray(size, '\0');
    }
}

} // namespace Orvane
