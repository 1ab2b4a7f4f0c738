#include "examples/pellora/menubar/StatusBarDisplay.h"

#include "Fennick/notifications/Notifications.h"
#include "Lorrel/presentation/ImageOperations.h"
#include "examples/pellora/HotkeyText.h"
#include "examples/pellora/menubar/ItemPicture.h"
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

std::shared_ptr<StatusDisplay> statusDisplayFor(const Monitor& monitor, Lorrel::IAutoStartController& autoStart,
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
    claim(settings.hotkey);
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

// In place of the former one.
void StatusBarDisplay::claim(const std::string& hotkey)
{
    if (const auto former = hotkeyFrom(hotkey_)) hotkeys_->unregister(*former);
    hotkeys_->keyUpHandlers().clear();
    hotkey_ = hotkey;
    const auto wanted = hotkeyFrom(hotkey);
    if (!wanted) return;
    const auto item = controller_->item()->item();
    hotkeys_->keyUpHandlers()[*wanted] = {[item, readings = readings_] { openMenu(*item, readings); }};
    hotkeys_->register_(*wanted);
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

void StatusBarDisplay::take(const Settings& settings)
{
    menu_->readingsReplaced();
    if (settings.hotkey != hotkey_) claim(settings.hotkey);
}

void StatusBarDisplay::writePicture(const std::string& path)
{
    Platform::StatusItem& item = *controller_->item()->item();
    item.menu()->needsUpdate();
    std::vector<Platform::ImageRef> pictures;
    for (const auto& look : {Platform::Appearance::aqua, Platform::Appearance::darkAqua}) {
        pictures.push_back(itemPicture(item, look));
    }
    Lorrel::writePNG(sideBySide(pictures), Platform::Url::fromPath(path));
}

}  // namespace Pellora
