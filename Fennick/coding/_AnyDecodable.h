#pragma once

#include "Fennick/coding/AnyValue.h"
#include "platform/coding/Decoder.h"

namespace Fennick {

// Any value that a decoder stands on: null becomes the null marker, numbers
// the first of signed word, unsigned word and double that takes them.
// Throws DecodingError (data corrupted) for what is none of a JSON's kinds.
AnyValue decodeAnyValue(const Platform::Decoder& decoder);

// The decoding that the wrappers share.
template <typename Self>
struct _AnyDecodable {
    static Self decode(const Platform::Decoder& decoder) { return Self(decodeAnyValue(decoder)); }
};

}  // namespace Fennick
