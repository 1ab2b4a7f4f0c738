#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Platform {

// The name that the keyboard description of X gives to the position of a
// virtual key code ("AC01" is the first key of the row of A), and what the US
// ANSI layout writes there. Absent for codes that name no position of a PC keyboard.
std::optional<std::string_view> keyPositionName(std::uint32_t keyCode);
std::optional<std::string_view> ansiCharacter(std::uint32_t keyCode);

}  // namespace Platform
