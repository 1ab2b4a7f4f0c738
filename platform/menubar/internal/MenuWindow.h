#pragma once

#include <QMenu>
#include <map>
#include <set>
#include <tuple>

#include "platform/menubar/Menu.h"

namespace Platform {

// A menu in a window of the toolkit, and each of its submenus in one below it.
// A window for itself ends by itself once it is closed. Thread: main.
class MenuWindow final : public QMenu {
public:
    // At the pointer; the one that is open makes way. False, and nothing opens, when nothing in it shows.
    static bool open(const MenuRef& menu);

private:
    // What a line stands for: an item, what hangs below it, and whether it shows a view.
    using Key = std::tuple<const MenuItem*, const Menu*, bool>;

    explicit MenuWindow(MenuRef menu, QWidget* parent = nullptr);
    // Tells that it closes, if it is open.
    ~MenuWindow() override { hide(); }
    static Key keyOf(const MenuItem& item);
    void fill();
    QAction* newLine(const MenuItemRef& item);
    void describe(QAction& line, const MenuItem& item);
    void refresh(MenuItem* item);
    void willShow();
    void hasHidden();

    MenuRef menu_;
    std::map<Key, QAction*> lines_;
    bool isDrawing_ = false;
    Subscription changes_;
};

}  // namespace Platform
