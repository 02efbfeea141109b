// decode and removePadding on arbitrary keys, IVs and data, through both
// cipher paths, which must agree; where the key and IV are valid, the data
// encoded and decoded again must come back with its padding.
//
// Input: level, mode, padding, key length, IV length (one byte each), then
// the key, the IV and the data.
#include <Orvane/orvanecrypto.h>

#include "crypto/aesni_p.h"

#include <cstdint>
#include <cstdlib>

using Orvane::AESCodec;

namespace {

void check(bool ok)
{
    if (!ok)
        std::abort();
}

QByteArray take(const uint8_t *&data, size_t &size, size_t n)
{
    n = n < size ? n : size;
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(n));
    data += n;
    size -= n;
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 5)
        return 0;
    // Out-of-range values are part of the input space on purpose.
    const auto level = AESCodec::Aes(int(data[0] % 5) - 1);
    const auto mode = AESCodec::Mode(int(data[1] % 6) - 1);
    const auto padding = AESCodec::Padding(int(data[2] % 5) - 1);
    const size_t keyLength = data[3] % 40;
    const size_t ivLength = data[4] % 20;
    data += 5;
    size -= 5;
    const QByteArray key = take(data, size, keyLength);
    const QByteArray iv = take(data, size, ivLength);
    const QByteArray text = take(data, size, size);

    AESCodec codec(level, mode, padding);
    Orvane::AesNi::setAllowed(true);
    const QByteArray decoded = codec.decode(text, key, iv);
    const QByteArray encoded = codec.encode(text, key, iv);
    Orvane::AesNi::setAllowed(false);
    check(codec.decode(text, key, iv) == decoded);
    check(codec.encode(text, key, iv) == encoded);
    Orvane::AesNi::setAllowed(true);

    const QByteArray stripped = codec.removePadding(decoded);
    check(stripped.size() <= decoded.size());
    check(decoded.startsWith(stripped));
    check(AESCodec::RemovePadding(decoded, padding) == stripped);

    if (!encoded.isEmpty()) {
        check(encoded.size() % 16 == 0 && encoded.size() >= text.size());
        const QByteArray back = codec.decode(encoded, key, iv);
        check(back.size() == encoded.size() && back.startsWith(text));
        check(codec.removePadding(back).size() <= back.size());
    }
    return 0;
}
