#include "Lorrel/system/internal/DeviceCoding.h"

#include "platform/coding/CodingErrors.h"
#include "platform/coding/JSONDecoder.h"

namespace Lorrel {

std::vector<MacDevice> decodeDevices(std::string_view json)
{
    try {
        return Platform::JSONDecoder().decode<std::vector<MacDevice>>(json);
    } catch (const Platform::DecodingError&) {
        return {};
    }
}

}  // namespace Lorrel
