#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>

#include "platform/bus/BusConnection.h"
#include "platform/menubar/Menu.h"
#include "platform/menubar/internal/BusObject.h"
#include "platform/menubar/internal/UpdateGate.h"

namespace Platform {

// Shows a menu on the bus as a com.canonical.dbusmenu object. An item keeps
// its number as long as it lives; 0 is the menu itself. Thread: main.
class MenuExport : public std::enable_shared_from_this<MenuExport> {
public:
    static constexpr const char* path = "/MenuBar";

    // `isShown` answers whether somebody listens to changes.
    static std::shared_ptr<MenuExport> create(std::shared_ptr<BusConnection> connection, std::function<bool()> isShown);

    // Null for an empty menu.
    void setMenu(const MenuRef& menu);
    // From now on somebody listens: tells that the menu has changed since it was read.
    void shown();
    // Who showed the menu shows it no longer: what was open is closed.
    void hidden();
    // Sends now what had to wait.
    void publishSoon() { gate_.request(); }
    // Asks those who show the menu to open it. Few of them do.
    void askToOpen();
    // Somebody has begun to open it since.
    bool isOpening() const { return isOpening_; }

private:
    using Names = std::set<std::string>;

    MenuExport(std::shared_ptr<BusConnection> connection, std::function<bool()> isShown);
    BusObject describe();
    void changed(MenuItem* item);
    bool publish();
    void publishLayout();
    void publishItems();

    int numberOf(const MenuItemRef& item);
    MenuItemRef itemOf(int number) const;
    // The root for 0, else the item's submenu; null where there is none.
    MenuRef menuOf(int number) const;

    void getLayout(sd_bus_message* call, sd_bus_message* answer);
    void getGroupProperties(sd_bus_message* call, sd_bus_message* answer);
    void getProperty(sd_bus_message* call, sd_bus_message* answer);
    void event(sd_bus_message* call);
    void eventGroup(sd_bus_message* call, sd_bus_message* answer);
    void aboutToShowGroup(sd_bus_message* call, sd_bus_message* answer);

    void appendLayout(sd_bus_message* answer, int number, int depth, const Names& names);
    std::vector<BusObject::Property> properties(int number, const Names& names);
    // False for a number that nobody has.
    bool takeEvent(int number, std::string_view kind);
    void opened(const MenuRef& menu);
    void closed(const MenuRef& menu);
    bool aboutToShow(int number);

    std::shared_ptr<BusConnection> connection_;
    std::function<bool()> isShown_;
    MenuRef menu_;
    std::map<std::weak_ptr<MenuItem>, int, std::owner_less<>> numbers_;
    std::map<int, std::weak_ptr<MenuItem>> items_;
    int lastNumber_ = 0;
    std::uint32_t revision_ = 1;
    bool isLayoutChanged_ = false;
    bool isRead_ = false;     // somebody has the layout
    bool isMissed_ = false;   // and was not told of a change
    bool isDrawing_ = false;  // drawing a view is no change of it
    bool isOpening_ = false;
    std::vector<std::weak_ptr<Menu>> open_;  // on the screen, submenus last
    std::set<int> changedItems_;
    UpdateGate gate_;
    BusObject object_;
    Subscription menuObserver_;
    Subscription exported_;
};

}  // namespace Platform
