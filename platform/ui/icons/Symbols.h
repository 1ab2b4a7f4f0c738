#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/Image.h"

namespace Platform {

// A symbol of the system by its name ("cpu", "arrow.up"), as a template of
// 13 points in regular weight until it is configured otherwise. Ours are
// drawn at any resolution; a few more names are answered by the icon theme,
// where it has them. Null for a name that is not known.
ImageRef systemSymbol(std::string_view name);

// The names that systemSymbol knows, in order.
std::vector<std::string> symbolNames();

}  // namespace Platform
