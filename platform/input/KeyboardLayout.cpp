#include "platform/input/KeyboardLayout.h"

#include "platform/input/KeyPositions.h"
#include "platform/input/internal/X11KeyboardLayout.h"
#include "platform/runtime/Shared.h"

namespace Platform {

KeyboardLayout& KeyboardLayout::shared()
{
    return Shared<KeyboardLayout>::get([]() -> std::unique_ptr<KeyboardLayout> {
        if (auto layout = X11KeyboardLayout::open()) return layout;
        return std::make_unique<AnsiKeyboardLayout>();
    });
}

std::optional<std::string> AnsiKeyboardLayout::character(std::uint16_t keyCode) const
{
    const auto text = ansiCharacter(keyCode);
    if (!text) return std::nullopt;
    return std::string(*text);
}

}  // namespace Platform
