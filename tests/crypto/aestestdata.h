#ifndef ORVANE_AESTESTDATA_H
#define ORVANE_AESTESTDATA_H

// Shared by the codec's tests: the two cipher paths as global rows, so that
// every test runs through both, and one row per key size, mode and padding.

#include <Orvane/aescodec.h>

#include "crypto/aesni_p.h"

#include <QtTest>

Q_DECLARE_METATYPE(Orvane::AESCodec::Aes)
Q_DECLARE_METATYPE(Orvane::AESCodec::Mode)
Q_DECLARE_METATYPE(Orvane::AESCodec::Padding)

namespace AesTestData {

// For initTestCase_data(): the AES instructions (where the CPU has them)
// and the portable round functions.
inline void addPathRows()
{
    QTest::addColumn<bool>("instructions");
    QTest::newRow("instructions") << true;
    QTest::newRow("portable") << false;
    if (!Orvane::AesNi::supported())
        qInfo("this CPU has no AES instructions: both rows run the portable path");
}

// For init(): switches to the current global row's path.
inline void selectPath()
{
    QFETCH_GLOBAL(bool, instructions);
    Orvane::AesNi::setAllowed(instructions);
}

inline void addEveryCombination()
{
    using Orvane::AESCodec;
    QTest::addColumn<AESCodec::Aes>("level");
    QTest::addColumn<AESCodec::Mode>("mode");
    QTest::addColumn<AESCodec::Padding>("padding");

    const char *levels[] = {"128", "192", "256"};
    const char *modes[] = {"ecb", "cbc", "cfb", "ofb"};
    const char *paddings[] = {"zero", "pkcs7", "iso"};
    for (int l = 0; l < 3; ++l)
        for (int m = 0; m < 4; ++m)
            for (int p = 0; p < 3; ++p)
                QTest::addRow("%s %s %s", levels[l], modes[m], paddings[p])
                    << AESCodec::Aes(l) << AESCodec::Mode(m) << AESCodec::Padding(p);
}

} // namespace AesTestData

#endif // ORVANE_AESTESTDATA_H
