#include "platform/menubar/StatusBar.h"

#include <algorithm>

#include "platform/menubar/internal/StatusItemPresentation.h"
#include "platform/runtime/Shared.h"

namespace Platform {

StatusBar& StatusBar::system()
{
    return Shared<StatusBar>::get([] { return std::make_unique<StatusBar>(); });
}

StatusItemRef StatusBar::statusItem(double length)
{
    const StatusItemRef item(new StatusItem);
    item->start(length);
    std::erase_if(items_, [](const auto& each) { return each.expired(); });
    items_.push_back(item);
    return item;
}

void StatusBar::removeStatusItem(const StatusItemRef& item)
{
    std::erase_if(items_, [&](const auto& each) { return each.lock() == item; });
    if (!item || !item->presentation_) return;
    item->presentation_->end();
    item->presentation_ = nullptr;
}

std::vector<StatusItemRef> StatusBar::items() const
{
    std::vector<StatusItemRef> present;
    for (const auto& each : items_) {
        if (auto item = each.lock()) present.push_back(std::move(item));
    }
    return present;
}

bool StatusBar::isShown() const
{
    const auto present = items();
    return std::ranges::any_of(present,
                               [](const auto& item) { return item->isVisible() && item->presentation_->isShown(); });
}

}  // namespace Platform
