#pragma once

#include <QMenu>
#include <map>

#include "platform/menubar/Menu.h"

namespace Platform {

// A menu in a window of the toolkit, and each of its submenus in one below it.
// A window for itself ends by itself once it is closed. Thread: main.
class MenuWindow final : public QMenu {
public:
    // At the pointer; the one that is open makes way.
    static void open(const MenuRef& menu);

private:
    explicit MenuWindow(MenuRef menu, QWidget* parent = nullptr);
    void fill();
    void add(const MenuItemRef& item);
    void refresh(MenuItem* item);
    void willShow();
    void hasHidden();

    MenuRef menu_;
    std::map<MenuItem*, QAction*> lines_;
    Subscription changes_;
};

}  // namespace Platform
