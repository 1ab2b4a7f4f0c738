#pragma once

#include <cstdint>
#include <string>

namespace Platform {

// What a dead key shows: its accent alone; empty for a symbol that is none.
std::string deadKeyText(std::uint32_t symbol);

}  // namespace Platform
