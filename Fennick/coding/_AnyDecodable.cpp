#include "Fennick/coding/_AnyDecodable.h"

#include "Fennick/coding/internal/AnyValueBuilder.h"

namespace Fennick {

AnyValue decodeAnyValue(const Platform::Decoder& decoder)
{
    AnyValueBuilder builder(decoder);
    decoder.walk(builder);
    return builder.take();
}

}  // namespace Fennick
