#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Lorrel {

// The two looks of the menu bar, with "light" and "dark" as raw values.
enum class MenuBarTheme { light, dark };

std::string rawValue(MenuBarTheme theme);
// Absent for any other text.
std::optional<MenuBarTheme> menuBarTheme(std::string_view rawValue);

}  // namespace Lorrel
