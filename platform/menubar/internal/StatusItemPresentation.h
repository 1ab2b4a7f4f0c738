#pragma once

#include <memory>
#include <optional>

#include "platform/bus/BusConnection.h"
#include "platform/menubar/StatusItem.h"
#include "platform/menubar/internal/BusObject.h"
#include "platform/menubar/internal/ItemSnapshot.h"
#include "platform/menubar/internal/MenuExport.h"
#include "platform/menubar/internal/UpdateGate.h"
#include "platform/runtime/Timer.h"

namespace Platform {

// Shows one status item on the session bus as an org.kde.StatusNotifierItem,
// on a connection of its own, whose end tells the tray host that the item is
// gone. Registers with every watcher that appears. Draws only for those who
// look. Thread: main.
class StatusItemPresentation : public std::enable_shared_from_this<StatusItemPresentation> {
public:
    // Begins in the loop's next turn, when the item has got its content.
    static std::shared_ptr<StatusItemPresentation> create(StatusItem& item);

    // Takes the item off the bar. Call it before the item ends.
    void end();
    void itemChanged();
    void menuChanged();
    // Asks the desktop to open the item's menu; the block is called later,
    // once, where that has not begun in time.
    void openMenu(std::function<void()> otherwise);
    // A watcher has accepted the item.
    bool isShown() const { return isShown_; }

private:
    explicit StatusItemPresentation(StatusItem& item);
    BusObject describe();
    void start();
    void announce();
    void lost();
    void drained();
    void watcherChanged(BusMessage message);
    bool publish();
    void emitChanges(const ItemSnapshot& former, const ItemSnapshot& present);
    void emitSignal(const char* member, const char* text = nullptr);
    const ItemSnapshot& snapshot();
    // Lets the item do something in the loop's next turn, if it is still there.
    void later(std::function<void(StatusItem&)> work);

    StatusItem* item_;
    std::shared_ptr<BusConnection> connection_;
    std::shared_ptr<MenuExport> menu_;
    BusObject object_;
    UpdateGate gate_;
    std::optional<ItemSnapshot> snapshot_;  // what the host has been told
    bool isCurrent_ = false;
    bool isDrawing_ = false;
    bool isShown_ = false;
    std::shared_ptr<Timer> opening_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace Platform
