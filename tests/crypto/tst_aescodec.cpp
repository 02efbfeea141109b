#include <Orvane/orvanecrypto.h>

#include "aestestdata.h"
#include "crypto/aessize_p.h"

#include <QThread>
#include <QtTest>

#include <limits>
#include <vector>

using Orvane::AESCodec;

namespace {

QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

// The plaintext of the mode examples: four blocks.
const char *const modePlain = "6bc1bee22e409f96e93d7e117393172a"
                              "ae2d8a571e03ac9c9eb76fac45af8e51"
                              "30c81c46a35ce411e5fbc1191a0a52ef"
                              "f69f2445df4f9b17ad2b417be66c3710";
const char *const modeKey128 = "2b7e151628aed2a6abf7158809cf4f3c";
const char *const modeKey192 = "8e73b0f7da0e6452c810f32b809079e562f8ead2522c6b7b";
const char *const modeKey256 = "603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4";
const char *const modeIv = "000102030405060708090a0b0c0d0e0f";

using Words = QMap<int, QByteArray>;

const QByteArray key16 = hex("000102030405060708090a0b0c0d0e0f");
const QByteArray iv16 = hex("f0e1d2c3b4a5968778695a4b3c2d1e0f");

QByteArray keyFor(AESCodec::Aes level)
{
    const int size = level == AESCodec::Aes256 ? 32 : level == AESCodec::Aes192 ? 24 : 16;
    QByteArray key(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        key[i] = char(0x11 * i + 3);
    return key;
}

// Text of the given length whose bytes are never 0 or 0x80 at the end, so
// that every padding scheme gives it back whole.
QByteArray sampleText(int size)
{
    QByteArray text(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        text[i] = char('A' + (i * 7) % 26);
    return text;
}

} // namespace

class tst_AESCodec : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void cleanupTestCase();

    void records();
    void className();
    void standardExample_data();
    void standardExample();
    void keyExpansion_data();
    void keyExpansion();
    void modeExamples_data();
    void modeExamples();
    void padding_data();
    void padding();
    void ivCheck_data();
    void ivCheck();
    void wrongKeyLength_data();
    void wrongKeyLength();
    void levelFallback();
    void unknownModeAndPadding();
    void roundTrip_data();
    void roundTrip();
    void roundTripExceptions_data();
    void roundTripExceptions();
    void removePadding_data();
    void removePadding();
    void partialBlock_data();
    void partialBlock();
    void sizeLimit_data();
    void sizeLimit();
    void paddedLengths();
    void printArray_data();
    void printArray();
    void staticShorthands();
    void staticShorthandsFromThreads();
};

// Every test runs twice: through the AES instructions (where the CPU has
// them) and through the portable round functions.
void tst_AESCodec::initTestCase_data()
{
    AesTestData::addPathRows();
}

void tst_AESCodec::init()
{
    AesTestData::selectPath();
    QFETCH_GLOBAL(bool, instructions);
    QCOMPARE(Orvane::AesNi::enabled(), instructions && Orvane::AesNi::supported());
}

void tst_AESCodec::cleanupTestCase()
{
    Orvane::AesNi::setAllowed(true);
}

void tst_AESCodec::records()
{
    QCOMPARE(int(AESCodec::Aes128), 0);
    QCOMPARE(int(AESCodec::Aes192), 1);
    QCOMPARE(int(AESCodec::Aes256), 2);
    QCOMPARE(int(AESCodec::Ecb), 0);
    QCOMPARE(int(AESCodec::Cbc), 1);
    QCOMPARE(int(AESCodec::Cfb), 2);
    QCOMPARE(int(AESCodec::Ofb), 3);
    QCOMPARE(int(AESCodec::ZeroPadding), 0);
    QCOMPARE(int(AESCodec::Pkcs7Padding), 1);
    QCOMPARE(int(AESCodec::IsoPadding), 2);

    const AESCodec::AES128 a;
    QCOMPARE(std::vector<qint32>({a.nk, a.keyLen, a.nr, a.expandedKey}), std::vector<qint32>({4, 16, 10, 176}));
    const AESCodec::AES192 b;
    QCOMPARE(std::vector<qint32>({b.nk, b.keyLen, b.nr, b.expandedKey}), std::vector<qint32>({6, 24, 12, 209}));
    const AESCodec::AES256 c;
    QCOMPARE(std::vector<qint32>({c.nk, c.keyLen, c.nr, c.expandedKey}), std::vector<qint32>({8, 32, 14, 240}));
    QCOMPARE(sizeof(AESCodec::AES192), 4 * sizeof(qint32));
}

void tst_AESCodec::className()
{
    AESCodec codec(AESCodec::Aes128, AESCodec::Ecb, AESCodec::ZeroPadding);
    QCOMPARE(codec.metaObject()->className(), "Orvane::AESCodec");
    QCOMPARE(codec.metaObject()->superClass(), &QObject::staticMetaObject);
}

void tst_AESCodec::standardExample_data()
{
    QTest::addColumn<AESCodec::Aes>("level");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("cipher");
    QTest::newRow("128") << AESCodec::Aes128 << hex("000102030405060708090a0b0c0d0e0f")
                         << hex("69c4e0d86a7b0430d8cdb78070b4c55a");
    QTest::newRow("192") << AESCodec::Aes192 << hex("000102030405060708090a0b0c0d0e0f1011121314151617")
                         << hex("dda97ca4864cdfe06eaf70a0ec0d7191");
    QTest::newRow("256") << AESCodec::Aes256
                         << hex("000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f")
                         << hex("8ea2b7ca516745bfeafc49904b496089");
}

void tst_AESCodec::standardExample()
{
    QFETCH(AESCodec::Aes, level);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, cipher);
    const QByteArray plain = hex("00112233445566778899aabbccddeeff");

    for (AESCodec::Padding padding : {AESCodec::ZeroPadding, AESCodec::IsoPadding}) {
        AESCodec codec(level, AESCodec::Ecb, padding);
        QCOMPARE(codec.encode(plain, key, QByteArray()), cipher);
        QCOMPARE(codec.decode(cipher, key, QByteArray()), plain);
    }
    // PKCS #7 adds a whole block after the aligned text.
    AESCodec pkcs(level, AESCodec::Ecb, AESCodec::Pkcs7Padding);
    const QByteArray padded = pkcs.encode(plain, key, QByteArray());
    QCOMPARE(padded.size(), 32);
    QCOMPARE(padded.left(16), cipher);
}

void tst_AESCodec::keyExpansion_data()
{
    QTest::addColumn<AESCodec::Aes>("level");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("size");
    // Words of the schedule at the given word index.
    QTest::addColumn<Words>("words");

    QTest::newRow("128") << AESCodec::Aes128 << hex("2b7e151628aed2a6abf7158809cf4f3c") << 176
                         << Words{{4, hex("a0fafe17")}, {5, hex("88542cb1")},
                                                  {6, hex("23a33939")}, {7, hex("2a6c7605")},
                                                  {40, hex("d014f9a8")}, {41, hex("c9ee2589")},
                                                  {42, hex("e13f0cc8")}, {43, hex("b6630ca6")}};
    QTest::newRow("192") << AESCodec::Aes192 << hex("8e73b0f7da0e6452c810f32b809079e562f8ead2522c6b7b")
                         << 208
                         << Words{{6, hex("fe0c91f7")}, {7, hex("2402f5a5")},
                                                  {48, hex("e98ba06f")}, {49, hex("448c773c")},
                                                  {50, hex("8ecc7204")}, {51, hex("01002202")}};
    QTest::newRow("256") << AESCodec::Aes256
                         << hex("603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4") << 240
                         << Words{{8, hex("9ba35411")}, {9, hex("8e6925af")},
                                                  {12, hex("a8b09c1a")}, {56, hex("fe4890d1")},
                                                  {57, hex("e6188d0b")}, {58, hex("046df344")},
                                                  {59, hex("706c631e")}};
}

void tst_AESCodec::keyExpansion()
{
    QFETCH(AESCodec::Aes, level);
    QFETCH(QByteArray, key);
    QFETCH(int, size);
    QFETCH(Words, words);

    AESCodec codec(level, AESCodec::Cbc, AESCodec::IsoPadding);
    const QByteArray expanded = codec.expandKey(key);
    QCOMPARE(expanded.size(), size);
    QCOMPARE(expanded.left(key.size()), key);
    for (auto it = words.cbegin(); it != words.cend(); ++it)
        QCOMPARE(expanded.mid(4 * it.key(), 4).toHex(), it.value().toHex());
    QCOMPARE(AESCodec::ExpandKey(level, AESCodec::Ecb, key), expanded);
}

void tst_AESCodec::modeExamples_data()
{
    QTest::addColumn<AESCodec::Aes>("level");
    QTest::addColumn<AESCodec::Mode>("mode");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("cipher");

    const struct
    {
        const char *name;
        AESCodec::Aes level;
        AESCodec::Mode mode;
        const char *key;
        const char *cipher;
    } examples[] = {
        {"ECB-AES128", AESCodec::Aes128, AESCodec::Ecb, modeKey128,
         "3ad77bb40d7a3660a89ecaf32466ef97f5d3d58503b9699de785895a96fdbaaf"
         "43b1cd7f598ece23881b00e3ed0306887b0c785e27e8ad3f8223207104725dd4"},
        {"ECB-AES192", AESCodec::Aes192, AESCodec::Ecb, modeKey192,
         "bd334f1d6e45f25ff712a214571fa5cc974104846d0ad3ad7734ecb3ecee4eef"
         "ef7afd2270e2e60adce0ba2face6444e9a4b41ba738d6c72fb16691603c18e0e"},
        {"ECB-AES256", AESCodec::Aes256, AESCodec::Ecb, modeKey256,
         "f3eed1bdb5d2a03c064b5a7e3db181f8591ccb10d410ed26dc5ba74a31362870"
         "b6ed21b99ca6f4f9f153e7b1beafed1d23304b7a39f9f3ff067d8d8f9e24ecc7"},
        {"CBC-AES128", AESCodec::Aes128, AESCodec::Cbc, modeKey128,
         "7649abac8119b246cee98e9b12e9197d5086cb9b507219ee95db113a917678b2"
         "73bed6b8e3c1743b7116e69e222295163ff1caa1681fac09120eca307586e1a7"},
        {"CBC-AES192", AESCodec::Aes192, AESCodec::Cbc, modeKey192,
         "4f021db243bc633d7178183a9fa071e8b4d9ada9ad7dedf4e5e738763f69145a"
         "571b242012fb7ae07fa9baac3df102e008b0e27988598881d920a9e64f5615cd"},
        {"CBC-AES256", AESCodec::Aes256, AESCodec::Cbc, modeKey256,
         "f58c4c04d6e5f1ba779eabfb5f7bfbd69cfc4e967edb808d679f777bc6702c7d"
         "39f23369a9d9bacfa530e26304231461b2eb05e2c39be9fcda6c19078c6a9d1b"},
        {"CFB128-AES128", AESCodec::Aes128, AESCodec::Cfb, modeKey128,
         "3b3fd92eb72dad20333449f8e83cfb4ac8a64537a0b3a93fcde3cdad9f1ce58b"
         "26751f67a3cbb140b1808cf187a4f4dfc04b05357c5d1c0eeac4c66f9ff7f2e6"},
        {"CFB128-AES192", AESCodec::Aes192, AESCodec::Cfb, modeKey192,
         "cdc80d6fddf18cab34c25909c99a417467ce7f7f81173621961a2b70171d3d7a"
         "2e1e8a1dd59b88b1c8e60fed1efac4c9c05f9f9ca9834fa042ae8fba584b09ff"},
        {"CFB128-AES256", AESCodec::Aes256, AESCodec::Cfb, modeKey256,
         "dc7e84bfda79164b7ecd8486985d386039ffed143b28b1c832113c6331e5407b"
         "df10132415e54b92a13ed0a8267ae2f975a385741ab9cef82031623d55b1e471"},
        {"OFB-AES128", AESCodec::Aes128, AESCodec::Ofb, modeKey128,
         "3b3fd92eb72dad20333449f8e83cfb4a7789508d16918f03f53c52dac54ed825"
         "9740051e9c5fecf64344f7a82260edcc304c6528f659c77866a510d9c1d6ae5e"},
        {"OFB-AES192", AESCodec::Aes192, AESCodec::Ofb, modeKey192,
         "cdc80d6fddf18cab34c25909c99a4174fcc28b8d4c63837c09e81700c1100401"
         "8d9a9aeac0f6596f559c6d4daf59a5f26d9f200857ca6c3e9cac524bd9acc92a"},
        {"OFB-AES256", AESCodec::Aes256, AESCodec::Ofb, modeKey256,
         "dc7e84bfda79164b7ecd8486985d38604febdc6740d20b3ac88f6ad82a4fb08d"
         "71ab47a086e86eedf39d1c5bba97c4080126141d67f37be8538f5a8be740e484"},
    };
    for (const auto &e : examples)
        QTest::newRow(e.name) << e.level << e.mode << hex(e.key) << hex(e.cipher);
}

void tst_AESCodec::modeExamples()
{
    QFETCH(AESCodec::Aes, level);
    QFETCH(AESCodec::Mode, mode);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, cipher);
    const QByteArray plain = hex(modePlain);
    const QByteArray iv = hex(modeIv);

    AESCodec codec(level, mode, AESCodec::ZeroPadding);
    QCOMPARE(codec.encode(plain, key, iv).toHex(), cipher.toHex());
    QCOMPARE(codec.decode(cipher, key, iv).toHex(), plain.toHex());
    // Each block on its own continues the chain from the block before.
    for (int block = 0; block < 4 && mode != AESCodec::Ofb; ++block) {
        const QByteArray chain = mode == AESCodec::Ecb ? QByteArray() : block == 0 ? iv : cipher.mid(16 * (block - 1), 16);
        QCOMPARE(codec.encode(plain.mid(16 * block, 16), key, chain), cipher.mid(16 * block, 16));
        QCOMPARE(codec.decode(cipher.mid(16 * block, 16), key, chain), plain.mid(16 * block, 16));
    }
}

void tst_AESCodec::padding_data()
{
    QTest::addColumn<AESCodec::Padding>("padding");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("added");

    QTest::newRow("pkcs7 16 bytes: a whole block of 0x10") << AESCodec::Pkcs7Padding << 16 << QByteArray(16, 0x10);
    QTest::newRow("pkcs7 5 bytes: eleven 0x0b") << AESCodec::Pkcs7Padding << 5 << QByteArray(11, 0x0b);
    QTest::newRow("pkcs7 15 bytes: one 0x01") << AESCodec::Pkcs7Padding << 15 << QByteArray(1, 0x01);
    QTest::newRow("pkcs7 empty: a whole block") << AESCodec::Pkcs7Padding << 0 << QByteArray(16, 0x10);
    QTest::newRow("iso 16 bytes: nothing") << AESCodec::IsoPadding << 16 << QByteArray();
    QTest::newRow("iso 15 bytes: 0x80") << AESCodec::IsoPadding << 15 << hex("80");
    QTest::newRow("iso 5 bytes: 0x80 and ten zeros") << AESCodec::IsoPadding << 5
                                                     << hex("80") + QByteArray(10, '\0');
    QTest::newRow("iso empty: nothing") << AESCodec::IsoPadding << 0 << QByteArray();
    QTest::newRow("zero 16 bytes: nothing") << AESCodec::ZeroPadding << 16 << QByteArray();
    QTest::newRow("zero 5 bytes: eleven zeros") << AESCodec::ZeroPadding << 5 << QByteArray(11, '\0');
    QTest::newRow("zero 33 bytes: fifteen zeros") << AESCodec::ZeroPadding << 33 << QByteArray(15, '\0');
    QTest::newRow("unknown scheme pads with zeros") << AESCodec::Padding(7) << 5 << QByteArray(11, '\0');
}

void tst_AESCodec::padding()
{
    QFETCH(AESCodec::Padding, padding);
    QFETCH(int, size);
    QFETCH(QByteArray, added);

    const QByteArray text = sampleText(size);
    for (AESCodec::Mode mode : {AESCodec::Ecb, AESCodec::Cbc, AESCodec::Cfb, AESCodec::Ofb}) {
        AESCodec codec(AESCodec::Aes128, mode, padding);
        const QByteArray cipher = codec.encode(text, key16, iv16);
        QCOMPARE(cipher.size(), size + added.size());
        QCOMPARE(codec.decode(cipher, key16, iv16).toHex(), (text + added).toHex());
    }
}

void tst_AESCodec::ivCheck_data()
{
    QTest::addColumn<AESCodec::Mode>("mode");
    QTest::addColumn<QByteArray>("iv");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("cbc, 15 bytes") << AESCodec::Cbc << QByteArray(15, 'i') << false;
    QTest::newRow("cbc, 17 bytes") << AESCodec::Cbc << QByteArray(17, 'i') << false;
    QTest::newRow("cbc, empty") << AESCodec::Cbc << QByteArray() << false;
    QTest::newRow("cbc, 16 bytes") << AESCodec::Cbc << QByteArray(16, 'i') << true;
    QTest::newRow("cfb, 15 bytes") << AESCodec::Cfb << QByteArray(15, 'i') << false;
    QTest::newRow("cfb, empty") << AESCodec::Cfb << QByteArray() << false;
    QTest::newRow("ofb, 32 bytes") << AESCodec::Ofb << QByteArray(32, 'i') << false;
    QTest::newRow("ofb, empty") << AESCodec::Ofb << QByteArray() << false;
    QTest::newRow("ecb, empty") << AESCodec::Ecb << QByteArray() << true;
    QTest::newRow("ecb, 3 bytes") << AESCodec::Ecb << QByteArray(3, 'i') << true;
}

void tst_AESCodec::ivCheck()
{
    QFETCH(AESCodec::Mode, mode);
    QFETCH(QByteArray, iv);
    QFETCH(bool, accepted);

    AESCodec codec(AESCodec::Aes128, mode, AESCodec::Pkcs7Padding);
    const QByteArray cipher = codec.encode("attack at dawn", key16, iv);
    QCOMPARE(cipher.isEmpty(), !accepted);
    QCOMPARE(codec.decode(QByteArray(32, 'c'), key16, iv).isEmpty(), !accepted);
    if (accepted)
        QCOMPARE(codec.removePadding(codec.decode(cipher, key16, iv)), QByteArray("attack at dawn"));
}

void tst_AESCodec::wrongKeyLength_data()
{
    QTest::addColumn<AESCodec::Aes>("level");
    QTest::addColumn<int>("keySize");

    QTest::newRow("128, empty") << AESCodec::Aes128 << 0;
    QTest::newRow("128, 15") << AESCodec::Aes128 << 15;
    QTest::newRow("128, 17") << AESCodec::Aes128 << 17;
    QTest::newRow("128, 32") << AESCodec::Aes128 << 32;
    QTest::newRow("192, 16") << AESCodec::Aes192 << 16;
    QTest::newRow("192, 23") << AESCodec::Aes192 << 23;
    QTest::newRow("192, 25") << AESCodec::Aes192 << 25;
    QTest::newRow("256, 24") << AESCodec::Aes256 << 24;
    QTest::newRow("256, 31") << AESCodec::Aes256 << 31;
    QTest::newRow("256, 33") << AESCodec::Aes256 << 33;
    QTest::newRow("256, 1000") << AESCodec::Aes256 << 1000;
}

void tst_AESCodec::wrongKeyLength()
{
    QFETCH(AESCodec::Aes, level);
    QFETCH(int, keySize);

    const QByteArray key(keySize, 'k');
    for (AESCodec::Mode mode : {AESCodec::Ecb, AESCodec::Cbc, AESCodec::Cfb, AESCodec::Ofb}) {
        AESCodec codec(level, mode, AESCodec::Pkcs7Padding);
        QVERIFY(codec.encode("some text", key, iv16).isEmpty());
        QVERIFY(codec.decode(QByteArray(32, 'c'), key, iv16).isEmpty());
        QVERIFY(codec.expandKey(key).isEmpty());
        QVERIFY(AESCodec::Crypt(level, mode, "some text", key, iv16, AESCodec::Pkcs7Padding).isEmpty());
        QVERIFY(AESCodec::Decrypt(level, mode, QByteArray(32, 'c'), key, iv16, AESCodec::Pkcs7Padding).isEmpty());
        QVERIFY(AESCodec::ExpandKey(level, mode, key).isEmpty());
    }
}

void tst_AESCodec::levelFallback()
{
    const QByteArray text = sampleText(40);
    const QByteArray expected = AESCodec::Crypt(AESCodec::Aes128, AESCodec::Cbc, text, key16, iv16,
                                                AESCodec::IsoPadding);
    QCOMPARE(expected.size(), 48);
    for (int level : {-1, 3, 99}) {
        AESCodec codec(AESCodec::Aes(level), AESCodec::Cbc, AESCodec::IsoPadding);
        QCOMPARE(codec.expandKey(key16).size(), 176);
        QCOMPARE(codec.encode(text, key16, iv16), expected);
        QVERIFY(codec.encode(text, keyFor(AESCodec::Aes256), iv16).isEmpty());
    }
}

void tst_AESCodec::unknownModeAndPadding()
{
    for (int mode : {-1, 4, 42}) {
        AESCodec codec(AESCodec::Aes128, AESCodec::Mode(mode), AESCodec::ZeroPadding);
        QVERIFY(codec.encode(sampleText(16), key16, iv16).isEmpty());
        QVERIFY(codec.decode(sampleText(16), key16, iv16).isEmpty());
        QCOMPARE(codec.expandKey(key16).size(), 176);
    }
    const QByteArray text = QByteArray("data") + QByteArray(3, '\0');
    QCOMPARE(AESCodec::RemovePadding(text, AESCodec::Padding(5)), text);
}

void tst_AESCodec::roundTrip_data()
{
    AesTestData::addEveryCombination();
}

void tst_AESCodec::roundTrip()
{
    QFETCH(AESCodec::Aes, level);
    QFETCH(AESCodec::Mode, mode);
    QFETCH(AESCodec::Padding, padding);

    const QByteArray key = keyFor(level);
    AESCodec codec(level, mode, padding);
    // Lengths around the block size and around the eight blocks the
    // instructions path handles at once.
    for (int size : {0, 1, 5, 15, 16, 17, 31, 32, 33, 112, 127, 128, 129, 143, 144, 255, 256, 257, 1000, 70000}) {
        const QByteArray text = sampleText(size);
        const QByteArray cipher = codec.encode(text, key, iv16);
        const int padded = padding == AESCodec::Pkcs7Padding ? (size / 16 + 1) * 16 : (size + 15) / 16 * 16;
        QCOMPARE(cipher.size(), padded);
        if (size >= 16)
            QVERIFY(!cipher.contains(text.left(16)));
        const QByteArray plain = codec.decode(cipher, key, iv16);
        QCOMPARE(plain.size(), padded);
        QCOMPARE(plain.left(size), text);
        QCOMPARE(codec.removePadding(plain), text);
        QCOMPARE(AESCodec::RemovePadding(plain, padding), text);
    }
}

void tst_AESCodec::roundTripExceptions_data()
{
    QTest::addColumn<AESCodec::Padding>("padding");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("back");

    QTest::newRow("zero: trailing zeros of the text go too")
        << AESCodec::ZeroPadding << QByteArray("abc") + QByteArray(2, '\0') << QByteArray("abc");
    QTest::newRow("zero: aligned text ending in zeros")
        << AESCodec::ZeroPadding << QByteArray("0123456789ab") + QByteArray(4, '\0') << QByteArray("0123456789ab");
    QTest::newRow("zero: text of zeros only") << AESCodec::ZeroPadding << QByteArray(20, '\0') << QByteArray();
    QTest::newRow("iso: aligned text ending in 0x80 and zeros")
        << AESCodec::IsoPadding << QByteArray("0123456789abcd") + hex("8000") << QByteArray("0123456789abcd");
    QTest::newRow("iso: aligned text ending in 0x80")
        << AESCodec::IsoPadding << QByteArray("0123456789abcde") + hex("80") << QByteArray("0123456789abcde");
    QTest::newRow("iso: unaligned text ending in 0x80 comes back")
        << AESCodec::IsoPadding << QByteArray("abc") + hex("80") << QByteArray("abc") + hex("80");
    QTest::newRow("iso: unaligned text ending in zeros comes back")
        << AESCodec::IsoPadding << QByteArray("abc") + QByteArray(3, '\0') << QByteArray("abc") + QByteArray(3, '\0');
    QTest::newRow("pkcs7: any text comes back")
        << AESCodec::Pkcs7Padding << QByteArray("0123456789abcde") + hex("01") << QByteArray("0123456789abcde") + hex("01");
}

void tst_AESCodec::roundTripExceptions()
{
    QFETCH(AESCodec::Padding, padding);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, back);

    for (AESCodec::Mode mode : {AESCodec::Ecb, AESCodec::Cbc, AESCodec::Cfb, AESCodec::Ofb}) {
        AESCodec codec(AESCodec::Aes192, mode, padding);
        const QByteArray key = keyFor(AESCodec::Aes192);
        QCOMPARE(codec.removePadding(codec.decode(codec.encode(text, key, iv16), key, iv16)).toHex(), back.toHex());
    }
}

void tst_AESCodec::removePadding_data()
{
    QTest::addColumn<AESCodec::Padding>("padding");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("expected");

    for (AESCodec::Padding p : {AESCodec::ZeroPadding, AESCodec::Pkcs7Padding, AESCodec::IsoPadding})
        QTest::addRow("empty stays empty, scheme %d", int(p)) << p << QByteArray() << QByteArray();

    QTest::newRow("zero: trailing zeros") << AESCodec::ZeroPadding << QByteArray("ab") + QByteArray(5, '\0') << QByteArray("ab");
    QTest::newRow("zero: inner zeros stay") << AESCodec::ZeroPadding << hex("6100620000") << hex("610062");
    QTest::newRow("zero: no zeros") << AESCodec::ZeroPadding << QByteArray("abc") << QByteArray("abc");
    QTest::newRow("zero: zeros only stop at empty") << AESCodec::ZeroPadding << QByteArray(16, '\0') << QByteArray();
    QTest::newRow("zero: single zero") << AESCodec::ZeroPadding << QByteArray(1, '\0') << QByteArray();

    QTest::newRow("pkcs7: three bytes") << AESCodec::Pkcs7Padding << hex("616263030303") << QByteArray("abc");
    QTest::newRow("pkcs7: not validated") << AESCodec::Pkcs7Padding << hex("6162637f0102") << hex("6162637f");
    QTest::newRow("pkcs7: whole array") << AESCodec::Pkcs7Padding << hex("03030303").left(3) << QByteArray();
    QTest::newRow("pkcs7: zero removes nothing") << AESCodec::Pkcs7Padding << hex("616200") << hex("616200");
    QTest::newRow("pkcs7: beyond the size removes nothing") << AESCodec::Pkcs7Padding << hex("616205") << hex("616205");
    QTest::newRow("pkcs7: 0x80 is negative, removes nothing") << AESCodec::Pkcs7Padding << QByteArray(200, 'a') + hex("80")
                                                              << QByteArray(200, 'a') + hex("80");
    QTest::newRow("pkcs7: 0xff is negative, removes nothing") << AESCodec::Pkcs7Padding << hex("61ff") << hex("61ff");
    QTest::newRow("pkcs7: 0x7f removes 127") << AESCodec::Pkcs7Padding << QByteArray(130, 'a') + hex("7f")
                                             << QByteArray(4, 'a');
    QTest::newRow("pkcs7: a full block of 0x10") << AESCodec::Pkcs7Padding << QByteArray("xy") + QByteArray(16, 0x10)
                                                 << QByteArray("xy");

    QTest::newRow("iso: 0x80 then zeros") << AESCodec::IsoPadding << hex("6162800000") << QByteArray("ab");
    QTest::newRow("iso: 0x80 last") << AESCodec::IsoPadding << hex("616280") << QByteArray("ab");
    QTest::newRow("iso: only 0x80") << AESCodec::IsoPadding << hex("80") << QByteArray();
    QTest::newRow("iso: other byte before zeros") << AESCodec::IsoPadding << hex("61628100") << hex("61628100");
    QTest::newRow("iso: no padding") << AESCodec::IsoPadding << QByteArray("abc") << QByteArray("abc");
    QTest::newRow("iso: zeros only") << AESCodec::IsoPadding << QByteArray(4, '\0') << QByteArray(4, '\0');
    QTest::newRow("iso: earlier 0x80 stays") << AESCodec::IsoPadding << hex("8061628000") << hex("806162");
}

void tst_AESCodec::removePadding()
{
    QFETCH(AESCodec::Padding, padding);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, expected);

    AESCodec codec(AESCodec::Aes256, AESCodec::Cfb, padding);
    QCOMPARE(codec.removePadding(data).toHex(), expected.toHex());
    QCOMPARE(AESCodec::RemovePadding(data, padding).toHex(), expected.toHex());
}

void tst_AESCodec::partialBlock_data()
{
    QTest::addColumn<AESCodec::Mode>("mode");
    QTest::addColumn<int>("size");

    for (AESCodec::Mode mode : {AESCodec::Ecb, AESCodec::Cbc, AESCodec::Cfb, AESCodec::Ofb})
        for (int size : {1, 5, 15, 17, 20, 31, 143, 161})
            QTest::addRow("mode %d, %d bytes", int(mode), size) << mode << size;
}

// Ecb and Cbc cannot decrypt a partial block and give nothing; Cfb and Ofb
// decrypt the tail over its length.
void tst_AESCodec::partialBlock()
{
    QFETCH(AESCodec::Mode, mode);
    QFETCH(int, size);

    AESCodec codec(AESCodec::Aes256, mode, AESCodec::ZeroPadding);
    const QByteArray key = keyFor(AESCodec::Aes256);
    const QByteArray text = sampleText(176);
    const QByteArray cipher = codec.encode(text, key, iv16);
    QCOMPARE(cipher.size(), 176);
    const QByteArray plain = codec.decode(cipher.left(size), key, iv16);
    if (mode == AESCodec::Ecb || mode == AESCodec::Cbc) {
        QVERIFY(plain.isEmpty());
        QVERIFY(AESCodec::Decrypt(AESCodec::Aes256, mode, cipher.left(size), key, iv16, AESCodec::ZeroPadding).isEmpty());
    } else {
        QCOMPARE(plain, text.left(size));
    }
}

// Where encode() stops taking text: the padded length must fit in a
// QByteArray. decode() takes any QByteArray, so the two agree.
void tst_AESCodec::sizeLimit_data()
{
    using Orvane::AesSize::maxByteArraySize;
    QTest::addColumn<qint64>("size");
    QTest::addColumn<AESCodec::Padding>("padding");
    QTest::addColumn<bool>("accepted");

    const qint64 most = maxByteArraySize();
    const qint64 aligned = most - most % 16;
    const qint64 gib = qint64(1) << 30;
    for (AESCodec::Padding padding : {AESCodec::ZeroPadding, AESCodec::IsoPadding, AESCodec::Pkcs7Padding}) {
        const QByteArray name = QMetaEnum::fromType<AESCodec::Padding>().valueToKey(padding);
        const auto row = [&](const char *what, qint64 size, bool accepted) {
            QTest::newRow((name + ", " + what).constData()) << size << padding << accepted;
        };
        const bool pkcs7 = padding == AESCodec::Pkcs7Padding;
        row("empty", 0, true);
        row("negative", -1, false);
        row("1 GiB", gib, true);
        row("1 GiB + 1", gib + 1, true);
        row("2 GiB - 48", 2 * gib - 48, true);
        // PKCS #7 adds a whole block to aligned text, which then no longer fits.
        row("largest aligned", aligned, !pkcs7);
        row("largest aligned - 1", aligned - 1, true);
        row("largest aligned + 1", aligned + 1, false);
        row("largest QByteArray", most, most == aligned && !pkcs7);
        row("past every QByteArray", most + 1, false);
    }
    // A custom padding value pads like ZeroPadding.
    QTest::newRow("unknown padding, largest aligned") << aligned << AESCodec::Padding(7) << true;
    QTest::newRow("unknown padding, largest aligned + 1") << aligned + 1 << AESCodec::Padding(7) << false;
}

void tst_AESCodec::sizeLimit()
{
    QFETCH(qint64, size);
    QFETCH(AESCodec::Padding, padding);
    QFETCH(bool, accepted);
    QCOMPARE(Orvane::AesSize::encodeAccepts(size, padding), accepted);
    if (accepted)
        QVERIFY(size + Orvane::AesSize::paddingLength(size, padding) <= Orvane::AesSize::maxByteArraySize());
}

// The limit's padding sums are the codec's: the encoded length is the text's
// plus paddingLength(), and the figures in the header are this Qt's.
void tst_AESCodec::paddedLengths()
{
    const QByteArray key = keyFor(AESCodec::Aes128);
    for (AESCodec::Padding padding : {AESCodec::ZeroPadding, AESCodec::IsoPadding, AESCodec::Pkcs7Padding}) {
        for (int size = 0; size <= 48; ++size) {
            const QByteArray cipher = AESCodec::Crypt(AESCodec::Aes128, AESCodec::Cbc, sampleText(size), key, iv16, padding);
            QCOMPARE(cipher.size(), size + Orvane::AesSize::paddingLength(size, padding));
        }
    }
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    if (sizeof(void *) == 8)
        QCOMPARE(Orvane::AesSize::maxByteArraySize(), qint64(2147483622));
#elif QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
    QCOMPARE(Orvane::AesSize::maxByteArraySize(), std::numeric_limits<qint64>::max() - 25);
#endif
}

void tst_AESCodec::printArray_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("01 ab") << hex("01ab") << 2 << QByteArray("01ab");
    QTest::newRow("first byte only") << hex("01ab") << 1 << QByteArray("01");
    QTest::newRow("size 0") << hex("01ab") << 0 << QByteArray();
    QTest::newRow("negative size") << hex("01ab") << -3 << QByteArray();
    QByteArray all(256, Qt::Uninitialized);
    for (int i = 0; i < 256; ++i)
        all[i] = char(i);
    QTest::newRow("every byte") << all << 256 << all.toHex();
}

void tst_AESCodec::printArray()
{
    QFETCH(QByteArray, data);
    QFETCH(int, size);
    QFETCH(QByteArray, expected);

    AESCodec codec(AESCodec::Aes128, AESCodec::Ecb, AESCodec::ZeroPadding);
    QCOMPARE(codec.printArray(reinterpret_cast<unsigned char *>(data.data()), size), expected);
    QVERIFY(codec.printArray(nullptr, 4).isEmpty());
}

void tst_AESCodec::staticShorthands()
{
    const QByteArray key = keyFor(AESCodec::Aes192);
    const QByteArray text = sampleText(77);
    AESCodec codec(AESCodec::Aes192, AESCodec::Cfb, AESCodec::Pkcs7Padding);
    const QByteArray cipher = codec.encode(text, key, iv16);
    QCOMPARE(AESCodec::Crypt(AESCodec::Aes192, AESCodec::Cfb, text, key, iv16, AESCodec::Pkcs7Padding), cipher);
    QCOMPARE(AESCodec::Decrypt(AESCodec::Aes192, AESCodec::Cfb, cipher, key, iv16, AESCodec::Pkcs7Padding),
             codec.decode(cipher, key, iv16));
    // A codec is reusable: the same call gives the same result again.
    QCOMPARE(codec.encode(text, key, iv16), cipher);
}

void tst_AESCodec::staticShorthandsFromThreads()
{
    const QByteArray key = keyFor(AESCodec::Aes256);
    const QByteArray text = sampleText(1000);
    const QByteArray expected = AESCodec::Crypt(AESCodec::Aes256, AESCodec::Cbc, text, key, iv16, AESCodec::IsoPadding);
    QVERIFY(!expected.isEmpty());
    std::vector<QThread *> threads;
    std::vector<int> good(4, 0);
    for (int t = 0; t < 4; ++t) {
        threads.push_back(QThread::create([&, t] {
            for (int i = 0; i < 200; ++i) {
                const QByteArray c = AESCodec::Crypt(AESCodec::Aes256, AESCodec::Cbc, text, key, iv16, AESCodec::IsoPadding);
                const QByteArray p = AESCodec::Decrypt(AESCodec::Aes256, AESCodec::Cbc, c, key, iv16, AESCodec::IsoPadding);
                if (c == expected && AESCodec::RemovePadding(p, AESCodec::IsoPadding) == text)
                    ++good[std::size_t(t)];
            }
        }));
    }
    for (QThread *t : threads)
        t->start();
    for (QThread *t : threads)
        QVERIFY(t->wait(60000));
    qDeleteAll(threads);
    QCOMPARE(good, std::vector<int>(4, 200));
}

QTEST_GUILESS_MAIN(tst_AESCodec)
#include "tst_aescodec.moc"
