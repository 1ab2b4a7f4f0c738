#pragma once

#include <string>
#include <tuple>

#include "platform/coding/CodingFields.h"

namespace Lorrel {

// One entry of the catalogue of computers, coded under the names of its fields. A value.
struct MacDevice {
    std::string model;        // the model identifier ("MacBookPro18,3")
    std::string description;  // its name in words

    static constexpr auto codingFields()
    {
        return std::tuple(Platform::codingField("model", &MacDevice::model),
                          Platform::codingField("description", &MacDevice::description));
    }

    friend bool operator==(const MacDevice&, const MacDevice&) = default;
};

}  // namespace Lorrel
