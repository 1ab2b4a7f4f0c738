#pragma once

#include <map>
#include <memory>
#include <string>

#include "Lorrel/apps/queries/IAutoStartController.h"
#include "examples/pellora/Monitor.h"
#include "platform/menubar/Menu.h"

namespace Pellora {

// The menu of the status item: a line a reading, "Start at Login", "Quit". The
// lines change while it is open and just before, so that a closed menu costs
// nothing. Thread: main.
class ReadingsMenu final : public Platform::Responder,
                           public Platform::MenuDelegate,
                           public std::enable_shared_from_this<ReadingsMenu> {
public:
    static std::shared_ptr<ReadingsMenu> create(const Monitor& monitor, Lorrel::IAutoStartController& autoStart);

    const Platform::MenuRef& menu() const { return menu_; }
    // After a refresh.
    void readingsChanged();
    // Where there are now other ones, or in another order.
    void readingsReplaced();

    void menuNeedsUpdate(Platform::Menu& menu) override;
    void menuWillOpen(Platform::Menu& menu) override;
    void menuDidClose(Platform::Menu& menu) override;

private:
    ReadingsMenu(const Monitor& monitor, Lorrel::IAutoStartController& autoStart);
    void fill();
    void update();
    void toggleStartAtLogin();
    void quit();

    const Monitor& monitor_;
    Lorrel::IAutoStartController& autoStart_;
    const Platform::MenuRef menu_ = Platform::Menu::create();
    std::map<std::string, Platform::MenuItemRef> lines_;
    Platform::MenuItemRef startAtLogin_;
    bool isOpen_ = false;
};

}  // namespace Pellora
