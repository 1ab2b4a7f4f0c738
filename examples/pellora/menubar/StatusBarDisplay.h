#pragma once

#include <memory>

#include "Lorrel/hotkeys/HotkeyController.h"
#include "Lorrel/menubar/MenuBarDelegate.h"
#include "Lorrel/menubar/MenuBarItemController.h"
#include "examples/pellora/StatusDisplay.h"
#include "examples/pellora/menubar/GraphView.h"
#include "examples/pellora/menubar/ReadingsMenu.h"

namespace Pellora {

// Pellora's item in the status bar: the processor's graph and the menu of the
// readings. The hotkey opens the menu when it is let go: in the bar where the
// tray host does that, else at the pointer; without a screen it shows the main
// readings as a user notification. Thread: main.
class StatusBarDisplay final : public StatusDisplay {
public:
    StatusBarDisplay(const Monitor& monitor, Lorrel::IAutoStartController& autoStart, const Settings& settings);
    StatusBarDisplay(const StatusBarDisplay&) = delete;
    StatusBarDisplay& operator=(const StatusBarDisplay&) = delete;
    ~StatusBarDisplay() override;

    void didRefresh(double elapsed) override;
    void take(const Settings& settings) override;
    void writePicture(const std::string& path) override;

    const std::shared_ptr<Lorrel::MenuBarItemController>& controller() const { return controller_; }
    const std::shared_ptr<GraphView>& graph() const { return graph_; }

private:
    // Draws the graph in the colour of the bar's new look.
    struct Look final : Lorrel::MenuBarDelegate {
        explicit Look(std::weak_ptr<GraphView> shown) : graph(std::move(shown)) {}
        void itemsChanged() override {}
        void appearanceChanged(bool isDark) override;
        std::weak_ptr<GraphView> graph;
    };

    void claim(const std::string& hotkey);
    static void openMenu(Platform::StatusItem& item, const std::shared_ptr<Fennick::IDataStore>& readings);
    static void tell(const Fennick::IDataStore& readings);

    const std::shared_ptr<Fennick::IDataStore> readings_;
    const std::shared_ptr<ReadingsMenu> menu_;
    const std::shared_ptr<GraphView> graph_;
    const std::shared_ptr<Lorrel::MenuBarItemController> controller_;
    const std::shared_ptr<Lorrel::HotkeyController> hotkeys_ = Lorrel::HotkeyController::create();
    std::string hotkey_;
};

}  // namespace Pellora
