// Any bytes give a coding error or a value; a value's JSON gives the same
// value again, and the tape agrees with the direct reading.
#include "Fennick/coding/AnyCodable.h"
#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"
#include "tests/fuzz/Fuzz.h"

using Fennick::AnyCodable;
using Platform::DecodingError;
using Platform::JSONDecoder;
using Platform::JSONEncoder;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    bool isRead = false;
    try {
        const auto source = JSONDecoder().sourceOf(textOf(data, size));
        const auto value = Platform::Decoder(*source).decode<AnyCodable>();
        isRead = true;
        source->tape();
        require(Platform::Decoder(*source).decode<AnyCodable>() == value, "the tape agrees");
        const std::string json = JSONEncoder().encode(value);
        require(JSONDecoder().decode<AnyCodable>(json) == value, "what is written reads back");
        require(JSONEncoder().encode(JSONDecoder().decode<AnyCodable>(json)) == json, "and is written the same");
    } catch (const DecodingError&) {
        require(!isRead, "what was read once is read again");
    }
    return 0;
}
