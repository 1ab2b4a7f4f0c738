#include "Lorrel/presentation/SideBar.h"

namespace Lorrel {

void SideBarGroup::addItem(std::string title, Platform::ImageRef icon, std::any representedObject)
{
    add(std::make_shared<SideBarItem>(std::move(title), std::move(icon), std::move(representedObject)));
}

void SideBarGroup::add(std::shared_ptr<SideBarItem> item)
{
    items_.push_back(std::move(item));
}

// A copy: the reference may be to an element of the list itself.
void SideBarGroup::remove(const std::shared_ptr<SideBarItem>& item)
{
    const auto wanted = item;
    std::erase(items_, wanted);
}

}  // namespace Lorrel
