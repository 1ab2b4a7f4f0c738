#pragma once

#include <string>

#include "platform/bundle/Bundle.h"

namespace Fennick {

// The bundle's version (CFBundleShortVersionString, localised before raw), or
// "Unknown Version" where it is missing or no text. Thread: any.
std::string shortVersion(const Platform::Bundle& bundle);

// The bundle's name (CFBundleName), or "Unknown App". Thread: any.
std::string bundleName(const Platform::Bundle& bundle);

}  // namespace Fennick
