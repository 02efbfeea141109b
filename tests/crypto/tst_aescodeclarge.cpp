// The AES codec on texts of more than a gibibyte, at the edge of what a
// QByteArray holds: the largest text encode() takes goes through and back,
// and one byte more is refused. About 4 GiB of memory at the peak and
// 6 GiB of fresh pages in all; its own test so that the sanitizer and
// valgrind runs leave it out.

#include <Orvane/aescodec.h>

#include "crypto/aessize_p.h"

#include <QtEndian>
#include <QtTest>

#include <cstring>

using Orvane::AESCodec;

namespace {

constexpr qint64 Block = 16;

const QByteArray key = QByteArray::fromHex("2b7e151628aed2a6abf7158809cf4f3c");

const char tail8[] = "orvane\x01\x02";

// Block b of the text: its number, then a fixed tail. Every block differs,
// so a block read or written at the wrong offset shows.
void fillBlock(char *to, qint64 b)
{
    qToLittleEndian(quint64(b), to);
    std::memcpy(to + 8, tail8, 8);
}

QByteArray blockText(qint64 b, qint64 length = Block)
{
    char block[Block];
    fillBlock(block, b);
    return QByteArray(block, int(length));
}

QByteArray text(qint64 size)
{
    QByteArray t(size, Qt::Uninitialized);
    char *p = t.data();
    const qint64 whole = size / Block;
    for (qint64 b = 0; b < whole; ++b)
        fillBlock(p + b * Block, b);
    const QByteArray rest = blockText(whole, size % Block);
    std::memcpy(p + whole * Block, rest.constData(), std::size_t(rest.size()));
    return t;
}

// Checks the first `size` bytes of `plain` against text(size) without a
// second copy in memory; the offset of the first difference, or -1.
qint64 firstDifference(const QByteArray &plain, qint64 size)
{
    if (plain.size() < size)
        return 0;
    const char *p = plain.constData();
    const qint64 whole = size / Block;
    quint64 tail;
    std::memcpy(&tail, tail8, 8);
    for (qint64 b = 0; b < whole; ++b) {
        quint64 words[2];
        std::memcpy(words, p + b * Block, Block);
        if (words[0] != qToLittleEndian(quint64(b)) || words[1] != tail)
            return b * Block;
    }
    if (plain.mid(whole * Block, size % Block) != blockText(whole, size % Block))
        return whole * Block;
    return -1;
}

} // namespace

class tst_AESCodecLarge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void largestText();
};

void tst_AESCodecLarge::largestText()
{
    using Orvane::AesSize::maxByteArraySize;
    const qint64 aligned = maxByteArraySize() - maxByteArraySize() % Block;
    AESCodec codec(AESCodec::Aes128, AESCodec::Ecb, AESCodec::Pkcs7Padding);

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // One byte past the edge is refused (the array is never written, so it
    // takes no memory), for every padding.
    {
        const QByteArray tooLong(int(aligned), Qt::Uninitialized);
        QVERIFY(codec.encode(tooLong, key, QByteArray()).isEmpty());
        QVERIFY(AESCodec::Crypt(AESCodec::Aes128, AESCodec::Cbc, tooLong, key, QByteArray(16, 'i'),
                                AESCodec::Pkcs7Padding).isEmpty());
        const QByteArray tooLongForZeros(int(aligned + 1), Qt::Uninitialized);
        QVERIFY(AESCodec::Crypt(AESCodec::Aes128, AESCodec::Ecb, tooLongForZeros, key, QByteArray(),
                                AESCodec::ZeroPadding).isEmpty());
        QVERIFY(AESCodec::Crypt(AESCodec::Aes128, AESCodec::Ecb, tooLongForZeros, key, QByteArray(),
                                AESCodec::IsoPadding).isEmpty());
    }
    // The largest text PKCS #7 can pad: it becomes the largest aligned array.
    const qint64 size = aligned - 1;
#else
    // Qt 6 has no edge within reach; past the 32-bit sizes is what counts.
    Q_UNUSED(aligned)
    const qint64 size = (qint64(1) << 31) + 5;
#endif
    QVERIFY(size > (qint64(1) << 30));
    QVERIFY(Orvane::AesSize::encodeAccepts(size, AESCodec::Pkcs7Padding));

    QByteArray plain = text(size);
    QByteArray cipher = codec.encode(plain, key, QByteArray());
    plain = QByteArray();
    QCOMPARE(qint64(cipher.size()), size - size % Block + Block);

    // Ecb: every block is the cipher of its own block, wherever it lies.
    const qint64 lastWhole = size / Block - 1;
    for (qint64 b : {qint64(0), qint64(1) << 26, lastWhole}) {
        const QByteArray expected = AESCodec::Crypt(AESCodec::Aes128, AESCodec::Ecb, blockText(b), key,
                                                    QByteArray(), AESCodec::ZeroPadding);
        QCOMPARE(cipher.mid(b * Block, Block), expected);
    }
    // The tail and its padding form the last block.
    {
        const QByteArray expected = AESCodec::Crypt(AESCodec::Aes128, AESCodec::Ecb,
                                                    blockText(size / Block, size % Block), key, QByteArray(),
                                                    AESCodec::Pkcs7Padding);
        QCOMPARE(expected.size(), int(Block));
        QCOMPARE(cipher.right(Block), expected);
    }

    const QByteArray decoded = codec.decode(cipher, key, QByteArray());
    QCOMPARE(qint64(decoded.size()), qint64(cipher.size()));
    cipher = QByteArray();
    // The text comes back, followed by its PKCS #7 padding (removing it
    // would copy the whole array once more).
    QCOMPARE(firstDifference(decoded, size), qint64(-1));
    QCOMPARE(decoded.mid(size), QByteArray(int(Block - size % Block), char(Block - size % Block)));
}

QTEST_GUILESS_MAIN(tst_AESCodecLarge)
#include "tst_aescodeclarge.moc"
