#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

// The property lists below the system's core-types bundle, in listing order.
std::vector<Platform::Url> coreTypeDeclarations();
// The picture of the first declared type with this device-model code that has
// one; null when there is none.
Platform::ImageRef declaredIcon(const std::vector<Platform::Url>& declarations, std::string_view code);

// The picture of this file name in the core-types bundles' resources, else the
// icon service's for the type that the file is named after; null when there is none.
Platform::ImageRef deviceIcon(const std::string& iconName);

}  // namespace Lorrel
