#include "platform/input/internal/DeadKeys.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace Platform {

namespace {

struct DeadKey {
    std::uint32_t symbol;
    std::string_view text;
};

constexpr DeadKey deadKeys[] = {
    {XKB_KEY_dead_grave, "`"},       {XKB_KEY_dead_acute, "´"},     {XKB_KEY_dead_circumflex, "^"},
    {XKB_KEY_dead_tilde, "~"},       {XKB_KEY_dead_macron, "¯"},    {XKB_KEY_dead_breve, "˘"},
    {XKB_KEY_dead_abovedot, "˙"},    {XKB_KEY_dead_diaeresis, "¨"}, {XKB_KEY_dead_abovering, "°"},
    {XKB_KEY_dead_doubleacute, "˝"}, {XKB_KEY_dead_caron, "ˇ"},     {XKB_KEY_dead_cedilla, "¸"},
    {XKB_KEY_dead_ogonek, "˛"},      {XKB_KEY_dead_stroke, "/"},    {XKB_KEY_dead_greek, "µ"},
};

}  // namespace

std::string deadKeyText(std::uint32_t symbol)
{
    const auto* found = std::ranges::find(deadKeys, symbol, &DeadKey::symbol);
    return found == std::end(deadKeys) ? std::string() : std::string(found->text);
}

}  // namespace Platform
