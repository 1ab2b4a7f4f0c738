#include "examples/pellora/menubar/StatusBarDisplay.h"

#include "Fennick/notifications/Notifications.h"
#include "examples/pellora/HotkeyText.h"
#include "platform/menubar/PopUpMenu.h"
#include "platform/menubar/StatusBar.h"
#include "platform/ui/Desktop.h"

namespace Pellora {

namespace {

constexpr double itemWidth = 32;
constexpr const char* graphKey = "cpu.total";
constexpr const char* mainReadings[] = {"cpu.total", "memory.percent", "load.1", "battery.percent"};

}  // namespace

void prepareDesktop()
{
    Platform::installDesktop();
}

std::shared_ptr<Fennick::DataProviderContainerDelegate> statusDisplayFor(const Monitor& monitor,
                                                                         Lorrel::IAutoStartController& autoStart,
                                                                         const Settings& settings)
{
    return std::make_shared<StatusBarDisplay>(monitor, autoStart, settings);
}

StatusBarDisplay::StatusBarDisplay(const Monitor& monitor, Lorrel::IAutoStartController& autoStart,
                                   const Settings& settings)
    : readings_(monitor.readings()),
      menu_(ReadingsMenu::create(monitor, autoStart)),
      graph_(std::make_shared<GraphView>(Platform::Size{itemWidth, Platform::StatusBar::thickness})),
      controller_(Lorrel::MenuBarItemController::create(Platform::ViewRef(graph_)))
{
    controller_->setDelegate(std::make_shared<Look>(graph_));
    controller_->setLength(itemWidth);
    controller_->setMenu(menu_->menu());
    controller_->item()->item()->setToolTip("Pellora");
    controller_->item()->item()->setAccessibilityText("Pellora");
    if (const auto hotkey = hotkeyFrom(settings.hotkey)) claim(*hotkey);
}

StatusBarDisplay::~StatusBarDisplay()
{
    hotkeys_->removeAllHandlers();
    controller_->tearDown();
}

void StatusBarDisplay::Look::appearanceChanged(bool /*isDark*/)
{
    if (const auto shown = graph.lock()) shown->setNeedsDisplay(true);
}

void StatusBarDisplay::claim(const Lorrel::Hotkey& hotkey)
{
    const auto item = controller_->item()->item();
    hotkeys_->keyUpHandlers()[hotkey] = {[item, readings = readings_] { openMenu(*item, readings); }};
    hotkeys_->register_(hotkey);
}

void StatusBarDisplay::openMenu(Platform::StatusItem& item, const std::shared_ptr<Fennick::IDataStore>& readings)
{
    item.openMenu([menu = item.menu(), readings] {
        if (!Platform::popUp(menu)) tell(*readings);
    });
}

void StatusBarDisplay::tell(const Fennick::IDataStore& readings)
{
    std::string body;
    for (const char* key : mainReadings) {
        const auto reading = readings.identifierFor(key);
        if (reading) body += (body.empty() ? "" : "\n") + reading->name() + ": " + readings.stringFor(key);
    }
    Fennick::Notifications::send("Pellora", body);
}

void StatusBarDisplay::didRefresh(double /*elapsed*/)
{
    if (const auto history = readings_->historyFor(graphKey)) graph_->setHistory(*history);
    menu_->readingsChanged();
}

}  // namespace Pellora
