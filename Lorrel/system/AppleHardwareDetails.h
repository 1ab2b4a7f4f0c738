#pragma once

#include <string>
#include <tuple>

#include "platform/coding/CodingFields.h"

namespace Lorrel {

// A model's hardware in words. A missing fact is "-". Coded under
// the names of its fields. A value.
struct AppleHardwareDetails {
    std::string processor;
    std::string description;
    std::string marketingModel;
    std::string model;

    static constexpr auto codingFields()
    {
        return std::tuple(Platform::codingField("processor", &AppleHardwareDetails::processor),
                          Platform::codingField("description", &AppleHardwareDetails::description),
                          Platform::codingField("marketingModel", &AppleHardwareDetails::marketingModel),
                          Platform::codingField("model", &AppleHardwareDetails::model));
    }

    friend bool operator==(const AppleHardwareDetails&, const AppleHardwareDetails&) = default;
};

}  // namespace Lorrel
