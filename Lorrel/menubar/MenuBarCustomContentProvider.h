#pragma once

#include <memory>

#include "platform/ui/views/View.h"

namespace Lorrel {

class MenuBarItem;

// For applications that put content of their own into the menu bar; the
// library calls neither of the two. Main thread.
class MenuBarCustomContentProvider {
public:
    virtual ~MenuBarCustomContentProvider() = default;
    // The view for the item; null for none.
    virtual Platform::ViewRef customContent(const std::shared_ptr<MenuBarItem>&) { return nullptr; }
    virtual void updateCustomContent(const std::shared_ptr<MenuBarItem>&) {}
};

}  // namespace Lorrel
