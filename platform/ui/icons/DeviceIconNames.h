#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// What an icon theme may call the picture of a device, most fitting first, for
// a type identifier of a computer, phone, player, tablet or watch
// ("com.apple.macbookpro-14-2021"); empty for every other type.
std::vector<std::string> deviceIconNames(std::string_view typeIdentifier);

}  // namespace Platform
