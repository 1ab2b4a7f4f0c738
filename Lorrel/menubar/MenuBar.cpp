#include "Lorrel/menubar/MenuBar.h"

#include "Lorrel/menubar/MenuBarTheme.h"
#include "Lorrel/menubar/internal/ReferenceItem.h"
#include "platform/runtime/Shared.h"

namespace Lorrel {

ReferenceItem& ReferenceItem::shared()
{
    return Platform::Shared<ReferenceItem>::get([] { return std::make_unique<ReferenceItem>(); });
}

bool MenuBar::isDark()
{
    const auto item = ReferenceItem::shared().item;
    return item && item->button() && item->button()->effectiveAppearance().soundsDark();
}

Platform::Color menuBarTextColor()
{
    const MenuBarTheme theme = MenuBar::isDark() ? MenuBarTheme::dark : MenuBarTheme::light;
    return theme == MenuBarTheme::light ? Platform::Color::black() : Platform::Color::white();
}

}  // namespace Lorrel
