#ifndef ORVANE_ORVANECRYPTO_H
#define ORVANE_ORVANECRYPTO_H

/// @file
/// The AES codec.

#include <Orvane/aescodec.h>

#endif // ORVANE_ORVANECRYPTO_H
