#pragma once

#include "Fennick/coding/AnyValue.h"
#include "platform/coding/Encoder.h"

namespace Fennick {

// Writes the value by its kind: null and the empty value as null, a boxed
// number by its type code ('c' as a boolean), dates and URLs as the encoder's
// strategy has it, containers with all they hold. Throws EncodingError
// (invalid value) for any other object and for a dictionary with a key that is
// no text.
void encodeAnyValue(const AnyValue& value, Platform::Encoder& encoder);

// The encoding that the wrappers share; Self has the field `value`.
template <typename Self>
struct _AnyEncodable {
    void encode(Platform::Encoder& encoder) const { encodeAnyValue(static_cast<const Self*>(this)->value, encoder); }
};

}  // namespace Fennick
