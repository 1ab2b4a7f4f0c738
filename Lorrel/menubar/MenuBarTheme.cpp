#include "Lorrel/menubar/MenuBarTheme.h"

namespace Lorrel {

std::string rawValue(MenuBarTheme theme)
{
    return theme == MenuBarTheme::light ? "light" : "dark";
}

std::optional<MenuBarTheme> menuBarTheme(std::string_view rawValue)
{
    for (const MenuBarTheme theme : {MenuBarTheme::light, MenuBarTheme::dark}) {
        if (rawValue == Lorrel::rawValue(theme)) return theme;
    }
    return std::nullopt;
}

}  // namespace Lorrel
