#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime/Number.h"

namespace Fennick {

// Whatever answers the number and the text under a key.
class InfoProvider {
public:
    virtual ~InfoProvider() = default;

    // Absent for an unknown key or a reading without a number.
    virtual std::optional<Platform::Number> valueFor(std::string_view key) const = 0;
    // "-" for an unknown key or a reading without a text.
    virtual std::string stringFor(std::string_view key) const = 0;
};

}  // namespace Fennick
