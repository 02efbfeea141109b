// The codec against OpenSSL's EVP ciphers on random keys, IVs and texts, for
// every key size, mode and padding, through both cipher paths.
#include <Orvane/orvanecrypto.h>

#include "aestestdata.h"

#include <QRandomGenerator>
#include <QtTest>

#include <openssl/evp.h>

#include <memory>

using Orvane::AESCodec;

namespace {

constexpr int casesPerRow = 1000;

const EVP_CIPHER *referenceCipher(AESCodec::Aes level, AESCodec::Mode mode)
{
    switch (level) {
    case AESCodec::Aes128:
        return mode == AESCodec::Ecb ? EVP_aes_128_ecb() : mode == AESCodec::Cbc ? EVP_aes_128_cbc()
            : mode == AESCodec::Cfb  ? EVP_aes_128_cfb128() : EVP_aes_128_ofb();
    case AESCodec::Aes192:
        return mode == AESCodec::Ecb ? EVP_aes_192_ecb() : mode == AESCodec::Cbc ? EVP_aes_192_cbc()
            : mode == AESCodec::Cfb  ? EVP_aes_192_cfb128() : EVP_aes_192_ofb();
    default:
        return mode == AESCodec::Ecb ? EVP_aes_256_ecb() : mode == AESCodec::Cbc ? EVP_aes_256_cbc()
            : mode == AESCodec::Cfb  ? EVP_aes_256_cfb128() : EVP_aes_256_ofb();
    }
}

// One EVP run; OpenSSL's own padding only where asked for.
QByteArray reference(bool encrypt, const EVP_CIPHER *cipher, const QByteArray &key, const QByteArray &iv,
                     const QByteArray &data, bool openSslPadding)
{
    std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> ctx(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    const auto *k = reinterpret_cast<const unsigned char *>(key.constData());
    const auto *v = iv.isEmpty() ? nullptr : reinterpret_cast<const unsigned char *>(iv.constData());
    if (!ctx || EVP_CipherInit_ex(ctx.get(), cipher, nullptr, k, v, encrypt ? 1 : 0) != 1)
        return "openssl init failed";
    EVP_CIPHER_CTX_set_padding(ctx.get(), openSslPadding ? 1 : 0);
    QByteArray out(data.size() + 32, '\0');
    int n = 0;
    int tail = 0;
    auto *o = reinterpret_cast<unsigned char *>(out.data());
    if (EVP_CipherUpdate(ctx.get(), o, &n, reinterpret_cast<const unsigned char *>(data.constData()), data.size()) != 1
        || EVP_CipherFinal_ex(ctx.get(), o + n, &tail) != 1)
        return "openssl run failed";
    out.resize(n + tail);
    return out;
}

// The padding rules, written out independently of the codec.
QByteArray paddingFor(AESCodec::Padding padding, int size)
{
    const int n = (16 - size % 16) % 16;
    switch (padding) {
    case AESCodec::Pkcs7Padding:
        return n == 0 ? QByteArray(16, 16) : QByteArray(n, char(n));
    case AESCodec::IsoPadding:
        return n == 0 ? QByteArray() : QByteArray(1, char(0x80)) + QByteArray(n - 1, '\0');
    default:
        return QByteArray(n, '\0');
    }
}

// What removePadding gives back: the text, except that zero padding also
// takes the text's own trailing zeros, and ISO padding cuts an aligned text
// that itself ends in 0x80 and zeros.
QByteArray expectedBack(AESCodec::Padding padding, const QByteArray &text)
{
    if (padding == AESCodec::ZeroPadding) {
        int n = text.size();
        while (n > 0 && text.at(n - 1) == '\0')
            --n;
        return text.left(n);
    }
    if (padding == AESCodec::IsoPadding && text.size() % 16 == 0) {
        int last = text.size() - 1;
        while (last >= 0 && text.at(last) == '\0')
            --last;
        if (last >= 0 && quint8(text.at(last)) == 0x80)
            return text.left(last);
    }
    return text;
}

QByteArray randomBytes(QRandomGenerator &random, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &b : bytes)
        b = char(random.bounded(256));
    return bytes;
}

int randomLength(QRandomGenerator &random)
{
    switch (random.bounded(8)) {
    case 0:
        return random.bounded(17) * 16; // aligned
    case 1:
        return random.bounded(4096) + 1; // longer runs through the lanes
    default:
        return random.bounded(300);
    }
}

} // namespace

class tst_AESOpenSsl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void cleanupTestCase();

    void crossCheck_data();
    void crossCheck();
    void foreignCipherText_data();
    void foreignCipherText();
};

void tst_AESOpenSsl::initTestCase_data()
{
    AesTestData::addPathRows();
}

void tst_AESOpenSsl::init()
{
    AesTestData::selectPath();
}

void tst_AESOpenSsl::cleanupTestCase()
{
    Orvane::AesNi::setAllowed(true);
}

void tst_AESOpenSsl::crossCheck_data()
{
    AesTestData::addEveryCombination();
}

void tst_AESOpenSsl::crossCheck()
{
    QFETCH(AESCodec::Aes, level);
    QFETCH(AESCodec::Mode, mode);
    QFETCH(AESCodec::Padding, padding);

    const quint32 seed = 0x5eed0000u + quint32(level) * 100 + quint32(mode) * 10 + quint32(padding);
    QRandomGenerator random(seed);
    const EVP_CIPHER *cipher = referenceCipher(level, mode);
    const int keySize = EVP_CIPHER_key_length(cipher);
    AESCodec codec(level, mode, padding);
    const bool chained = mode != AESCodec::Ecb;

    for (int i = 0; i < casesPerRow; ++i) {
        const QByteArray key = randomBytes(random, keySize);
        const QByteArray iv = randomBytes(random, 16);
        QByteArray text = randomBytes(random, randomLength(random));
        // Now and then a text that ends like a padding.
        if (random.bounded(10) == 0 && !text.isEmpty())
            text.back() = random.bounded(2) ? char(0x80) : '\0';
        const QByteArray padded = text + paddingFor(padding, text.size());
        const QByteArray refIv = chained ? iv : QByteArray();
        const QByteArray context = "seed " + QByteArray::number(seed) + ", case " + QByteArray::number(i)
            + ", length " + QByteArray::number(text.size());

        const QByteArray ours = codec.encode(text, key, iv);
        QVERIFY2(ours == reference(true, cipher, key, refIv, padded, false), context);
        if (padding == AESCodec::Pkcs7Padding && (mode == AESCodec::Ecb || mode == AESCodec::Cbc))
            QVERIFY2(ours == reference(true, cipher, key, refIv, text, true), context);

        const QByteArray decoded = codec.decode(ours, key, iv);
        QVERIFY2(decoded == padded, context);
        QVERIFY2(decoded == reference(false, cipher, key, refIv, ours, false), context);
        QVERIFY2(codec.removePadding(decoded) == expectedBack(padding, text), context);

        // The stream-like modes also decrypt a cut-off tail.
        if ((mode == AESCodec::Cfb || mode == AESCodec::Ofb) && !ours.isEmpty()) {
            const QByteArray cut = ours.left(random.bounded(ours.size()) + 1);
            const QByteArray part = codec.decode(cut, key, iv);
            QVERIFY2(part == padded.left(cut.size()), context);
            QVERIFY2(part == reference(false, cipher, key, refIv, cut, false), context);
        }
    }
}

void tst_AESOpenSsl::foreignCipherText_data()
{
    crossCheck_data();
}

// Random bytes as ciphertext, not made by the codec: decode agrees with
// OpenSSL's decryption without padding.
void tst_AESOpenSsl::foreignCipherText()
{
    QFETCH(AESCodec::Aes, level);
    QFETCH(AESCodec::Mode, mode);
    QFETCH(AESCodec::Padding, padding);

    QRandomGenerator random(0xf0e1u + quint32(level) * 16 + quint32(mode) * 4 + quint32(padding));
    const EVP_CIPHER *cipher = referenceCipher(level, mode);
    AESCodec codec(level, mode, padding);
    for (int i = 0; i < casesPerRow / 2; ++i) {
        const QByteArray key = randomBytes(random, EVP_CIPHER_key_length(cipher));
        const QByteArray iv = randomBytes(random, 16);
        const QByteArray data = randomBytes(random, 16 * random.bounded(40));
        const QByteArray expected = reference(false, cipher, key, mode == AESCodec::Ecb ? QByteArray() : iv, data, false);
        QCOMPARE(codec.decode(data, key, iv).toHex(), expected.toHex());
    }
}

QTEST_GUILESS_MAIN(tst_AESOpenSsl)
#include "tst_aesopenssl.moc"
