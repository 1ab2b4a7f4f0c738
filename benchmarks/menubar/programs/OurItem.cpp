// One status item with a menu and one hot key, and no more.
#include "Lorrel/hotkeys/HotkeyController.h"
#include "Lorrel/menubar/MenuBarItem.h"
#include "platform/menubar/Menu.h"
#include "platform/runtime/Application.h"
#include "platform/ui/Image.h"

namespace {

class Quit : public Platform::Responder, public Platform::ApplicationDelegate {
public:
    void applicationDidFinishLaunching() override
    {
        item_ = Lorrel::MenuBarItem::create(
            std::make_shared<Platform::Image>(Platform::Size{22, 22}, [](Platform::GraphicsContext& context) {
                context.fill({{}, context.size()}, Platform::CompositingOperation::sourceOver);
            }));
        const auto menu = Platform::Menu::create();
        menu->addItem(Platform::MenuItem::create("Quit", &Quit::quit, "q"));
        item_->setMenu(menu);
        hotkeys_->register_(Lorrel::Hotkey("open", Lorrel::Key::f5, Lorrel::ModifierFlags::control));
    }
    void quit() { Platform::Application::shared().terminate(); }

private:
    std::shared_ptr<Lorrel::MenuBarItem> item_;
    std::shared_ptr<Lorrel::HotkeyController> hotkeys_ = Lorrel::HotkeyController::create();
};

}  // namespace

int main(int argc, char** argv)
{
    return Platform::applicationMain(argc, argv, [] { return std::make_shared<Quit>(); });
}
