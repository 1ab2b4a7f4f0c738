#pragma once

#include <string_view>

#include "platform/ui/Image.h"

namespace Platform {

// A picture of the main bundle's resources: the file of that name, or with one
// of the usual endings of pictures after it. Null when there is none that can be read.
ImageRef imageNamed(std::string_view name);

}  // namespace Platform
