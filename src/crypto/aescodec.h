#ifndef ORVANE_AESCODEC_H
#define ORVANE_AESCODEC_H

/// @file
/// The AES codec, Orvane::AESCodec.

/// @class Orvane::AESCodec
/// AES (128, 192 and 256-bit keys) over whole byte arrays in memory, with four
/// modes of operation and three padding schemes, for hosts that need to
/// encrypt small buffers without another cryptography package.
///
/// A host either makes a codec for one key size, mode and padding and calls
/// encode()/decode()/removePadding(), or uses the static shorthands, which
/// build a temporary codec per call:
///
/// @code{.cpp}
/// QByteArray secret = AESCodec::Crypt(AESCodec::Aes256, AESCodec::Cbc, text, key, iv,
///                                     AESCodec::Pkcs7Padding);
/// QByteArray back = AESCodec::RemovePadding(
///     AESCodec::Decrypt(AESCodec::Aes256, AESCodec::Cbc, secret, key, iv,
///                       AESCodec::Pkcs7Padding), AESCodec::Pkcs7Padding);
/// @endcode
///
/// encode() always pads, in every mode, so its result is a whole number of
/// 16-byte blocks; decode() keeps the padding and removePadding() takes it
/// off. Pkcs7Padding adds a whole block to aligned input, IsoPadding adds
/// nothing to aligned input, and PKCS #7 removal does not validate the
/// padding bytes. A wrong key is not detected.
///
/// @par Thread:
/// One object keeps the block being transformed in a member, so it must not be
/// used by two threads at once; the static shorthands are safe from any
/// thread.
///
/// Where the CPU has AES instructions they are used (chosen at run
/// time); otherwise the portable round functions run. The portable path looks
/// the S-box up by data bytes, so its timing is not independent of key and
/// data; the AES-instruction path does no such lookups.
///
/// @par Bad input (decisions where the behaviour is ours to choose):
/// - A key whose length is not the chosen size's (16, 24 or 32 bytes) gives an
///   empty result from encode(), decode() and expandKey().
/// - An IV that is not exactly 16 bytes gives an empty result in Cbc, Cfb and
///   Ofb; Ecb ignores the IV. A mode value outside the enumeration gives an
///   empty result from encode() and decode(); a padding value outside it pads
///   like ZeroPadding and removes nothing.
/// - decode() of input whose length is not a multiple of 16: Ecb and Cbc
///   cannot decrypt a partial block and return an empty array; Cfb and Ofb
///   decrypt the trailing partial block over its length, so the result is as
///   long as the input.
/// - ZeroPadding removal stops at the empty array: an input of zero bytes
///   only becomes empty.
/// - Size limit: encode() takes every text whose padded length fits in a
///   QByteArray, and gives an empty result for a longer one; decode() takes
///   every QByteArray, so each direction takes whatever the other gives. With
///   Qt 5 on a 64-bit system a QByteArray holds at most 2147483622 bytes
///   (INT_MAX less Qt's 24 bytes of bookkeeping and the terminating NUL), so
///   encode() takes up to 2147483616 bytes with ZeroPadding and IsoPadding
///   and up to 2147483615 bytes with Pkcs7Padding (which adds at least one
///   byte). With Qt 6 the limit is the same rule on its 64-bit size type,
///   far beyond any memory. Both directions hold the input and the result in
///   memory at once.
/// - printArray() of a null pointer or a size below 1 gives an empty array.
/// - The expanded-key length of AES192 reads 209 although the schedule makes
///   208 bytes; the schedule always runs by Nb * (Nr + 1) words.
///
/// @par Binary compatibility:
/// The per-object fields (block size, key-size values, mode, padding, state
/// and the standard's tables) are fixed, in this order, through 1.x; no
/// d-pointer. Later state is kept outside the object, and no inline code in
/// this header reads a private member.

#include <Orvane/orvane_export.h>

#include <QByteArray>
#include <QObject>

namespace Orvane {

class ORVANE_EXPORT AESCodec : public QObject
{
    Q_OBJECT

public:
    // The enumerations have int as their underlying type, so any int converts
    // to them safely; values outside the lists are handled as described in
    // the class comment.

    /// Key size.
    enum Aes : int {
        Aes128 = 0, ///< 128-bit key (16 bytes).
        Aes192 = 1, ///< 192-bit key (24 bytes).
        Aes256 = 2  ///< 256-bit key (32 bytes).
    };
    Q_ENUM(Aes)
    /// Mode of operation.
    enum Mode : int {
        Ecb = 0, ///< Electronic code book; no IV.
        Cbc = 1, ///< Cipher block chaining; 16-byte IV.
        Cfb = 2, ///< Cipher feedback with full 16-byte feedback; 16-byte IV.
        Ofb = 3  ///< Output feedback; 16-byte IV.
    };
    Q_ENUM(Mode)
    /// Padding scheme.
    enum Padding : int {
        ZeroPadding = 0,  ///< Zero bytes up to the block boundary.
        Pkcs7Padding = 1, ///< PKCS #7: n bytes of value n; a whole block on aligned input.
        IsoPadding = 2    ///< ISO/IEC 7816-4: 0x80, then zero bytes; nothing on aligned input.
    };
    Q_ENUM(Padding)

    /// Parameters of 128-bit keys.
    struct AES128
    {
        qint32 nk = 4;            ///< Key length in 32-bit words.
        qint32 keyLen = 16;       ///< Key length in bytes.
        qint32 nr = 10;           ///< Number of rounds.
        qint32 expandedKey = 176; ///< Expanded-key length in bytes.
    };
    /// Parameters of 192-bit keys.
    struct AES192
    {
        qint32 nk = 6;            ///< Key length in 32-bit words.
        qint32 keyLen = 24;       ///< Key length in bytes.
        qint32 nr = 12;           ///< Number of rounds.
        qint32 expandedKey = 209; ///< Expanded-key length in bytes, as kept (the schedule makes 208).
    };
    /// Parameters of 256-bit keys.
    struct AES256
    {
        qint32 nk = 8;            ///< Key length in 32-bit words.
        qint32 keyLen = 32;       ///< Key length in bytes.
        qint32 nr = 14;           ///< Number of rounds.
        qint32 expandedKey = 240; ///< Expanded-key length in bytes.
    };

    /// A codec for one key size, mode and padding. A level other than Aes192
    /// or Aes256 gets the 128-bit values.
    AESCodec(Aes level, Mode mode, Padding padding);
    /// Nothing beyond QObject's destructor.
    ~AESCodec() override;

    /// Pads rawText and encrypts it; the result is the padded length. Empty
    /// on a wrong key or IV length, an unknown mode, or input too large (see
    /// above).
    QByteArray encode(const QByteArray &rawText, const QByteArray &key, const QByteArray &iv);
    /// Decrypts; the padding stays (see removePadding()). Empty on a wrong
    /// key or IV length, an unknown mode, or a partial block in Ecb and Cbc.
    QByteArray decode(const QByteArray &rawText, const QByteArray &key, const QByteArray &iv);
    /// Takes this codec's padding off decrypted data; an empty input comes
    /// back unchanged, PKCS #7 padding is not validated.
    QByteArray removePadding(const QByteArray &rawText);
    /// The key schedule for this codec's key size, key bytes first; empty for
    /// a key of the wrong length.
    QByteArray expandKey(const QByteArray &key);
    /// Lowercase hexadecimal text of the first size bytes of data; empty for
    /// a null pointer or a size below 1.
    QByteArray printArray(unsigned char *data, int size);

    /// encode() of a temporary codec.
    static QByteArray Crypt(Aes level, Mode mode, const QByteArray &rawText, const QByteArray &key,
                            const QByteArray &iv, Padding padding);
    /// decode() of a temporary codec.
    static QByteArray Decrypt(Aes level, Mode mode, const QByteArray &rawText, const QByteArray &key,
                              const QByteArray &iv, Padding padding);
    /// expandKey() of a temporary codec.
    static QByteArray ExpandKey(Aes level, Mode mode, const QByteArray &key);
    /// removePadding() for the given scheme.
    static QByteArray RemovePadding(const QByteArray &rawText, Padding padding);

private:
    void cipher(const quint8 *expandedKey);
    void invCipher(const quint8 *expandedKey);
    // The same over Count independent states side by side, a round of each
    // in turn; cipher() and invCipher() are the one-state case. Internal to
    // the library, so not exported.
    template <int Count>
    Q_DECL_HIDDEN void cipherStates(quint8 *const *states, const quint8 *expandedKey);
    template <int Count>
    Q_DECL_HIDDEN void invCipherStates(quint8 *const *states, const quint8 *expandedKey);
    void addRoundKey(int round, const quint8 *expandedKey);
    void subBytes();
    void shiftRows();
    void mixColumns();
    void invSubBytes();
    void invShiftRows();
    void invMixColumns();
    quint8 getSBoxValue(quint8 num) const;
    quint8 getSBoxInvert(quint8 num) const;
    QByteArray byteXor(const QByteArray &a, const QByteArray &b) const;
    QByteArray getPadding(int currentSize, int alignment) const;

    const qint32 m_nb = 4;
    const qint32 m_blockLen = 16;
    Aes m_level;
    Mode m_mode;
    qint32 m_nk;
    qint32 m_keyLen;
    qint32 m_nr;
    qint32 m_expandedKey;
    Padding m_padding;
    quint8 *m_state = nullptr;
    quint8 m_sbox[256];
    quint8 m_rsbox[256];
    quint8 m_rcon[11];
};

} // namespace Orvane

#endif // ORVANE_AESCODEC_H
