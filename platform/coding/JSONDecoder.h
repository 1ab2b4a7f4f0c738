#pragma once

#include <memory>
#include <string_view>

#include "platform/coding/Decoder.h"

namespace Platform {

// Reads JSON (RFC 8259, UTF-8, with or without a byte-order mark) into typed values.
//
// A number written without fraction whose value fits a signed, else an
// unsigned, 64-bit word is an integer (1e2 is 100); every other number is a
// double. Of a repeated key the last value counts. Every DecodingError bears
// the path of what it speaks of: not JSON, a number outside a double's range,
// half of a surrogate pair, more than `maximumDepth` levels.
// Thread: any, one decode at a time.
class JSONDecoder {
public:
    static constexpr int maximumDepth = 512;

    DateStrategy dateStrategy = DateStrategy::secondsSince1970;

    template <typename T>
    T decode(std::string_view json) const
    {
        const auto source = sourceOf(json);
        return Decoder(*source).decode<T>();
    }

    // For a caller that reads by hand; refers to the text.
    std::unique_ptr<DecodingSource> sourceOf(std::string_view json) const;
};

}  // namespace Platform
