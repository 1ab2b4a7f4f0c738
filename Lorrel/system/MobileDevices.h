#pragma once

#include <memory>
#include <string_view>

#include "Lorrel/system/MobileDevice.h"

namespace Lorrel {

// The catalogue of phones, music players, tablets and watches, compiled in.
// docs/devices.md says where its facts come from. Thread: any.
class MobileDevices {
public:
    MobileDevices() = delete;

    // The record of a model identifier such as "iPhone14,2". The family is the
    // first of iPhone, iPod, iPad and Watch that the identifier contains; one
    // that is not listed gets its family's generic record (an iPod none). Null
    // when no family fits.
    static std::shared_ptr<MobileDevice> device(std::string_view identifier);
};

}  // namespace Lorrel
