#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

#include "platform/menubar/MenuItem.h"
#include "platform/menubar/PopUpMenu.h"
#include "platform/ui/dialogs/AlertPanel.h"
#include "tests/support/DesktopLeaks.h"
#include "tests/support/Display.h"
#include "tests/support/Eventually.h"
#include "tests/support/Keyboard.h"

namespace {

using namespace Platform;
using Tests::eventually;
using Tests::runOnDisplay;

class Witness : public MenuDelegate, public Responder {
public:
    void menuNeedsUpdate(Menu& menu) override
    {
        if (update) update(menu);
    }
    void menuWillOpen(Menu&) override { heard += "open "; }
    void menuDidClose(Menu&) override { heard += "closed "; }
    void choose(ActionSender&) { heard += "chosen "; }

    std::string heard;
    std::function<void(Menu&)> update;
};

// It has the keyboard then.
bool isOnScreen()
{
    const QWidget* popup = QApplication::activePopupWidget();
    return popup && popup->windowHandle() && popup->windowHandle()->isExposed();
}

TEST(PopUpMenu, OpensAtThePointerIsSteeredByKeysAndTellsItsDelegates)
{
    Tests::Display display;
    const auto witness = std::make_shared<Witness>(), witnessBelow = std::make_shared<Witness>();
    const MenuRef menu = Menu::create(), below = Menu::create();
    menu->setDelegate(witness);
    below->setDelegate(witnessBelow);
    for (const char* title : {"One", "hidden by its view", "More"}) {
        menu->addItem(MenuItem::create(title, &Witness::choose));
    }
    menu->items()[1]->setTarget(witness);
    menu->items()[1]->setView(std::make_shared<View>(Rect::of(0, 0, 120, 40)));
    menu->items()[2]->setSubmenu(below);
    witnessBelow->update = [&](Menu& opening) {
        opening.removeAllItems();
        opening.addItem(MenuItem::create("Now", &Witness::choose));
        opening.items()[0]->setTarget(witnessBelow);
    };
    for (const MenuRef& nothing : {MenuRef(), Menu::create()}) EXPECT_FALSE(popUp(nothing));
    const struct {
        std::vector<std::string> keys;
        const char* lastKey;
        std::string heard, heardBelow;
    } uses[] = {{{"xdotool", "key", "Down", "Down"}, "Return", "open closed chosen ", ""},
                {{"xdotool", "key", "Up", "Right"}, "Return", "open closed ", "open closed chosen "},
                {{"xdotool", "key", "Down"}, "Escape", "open closed ", ""}};
    for (const auto& use : uses) {
        SCOPED_TRACE(testing::PrintToString(use.keys));
        witness->heard.clear();
        witnessBelow->heard.clear();
        ASSERT_EQ(runOnDisplay({"xdotool", "mousemove", "100", "100"}), 0);
        ASSERT_TRUE(popUp(menu));
        ASSERT_TRUE(eventually([&] { return witness->heard == "open " && isOnScreen(); }));
        EXPECT_GE(QApplication::activePopupWidget()->height(), 60) << "a view keeps its size";

        const auto windows = QApplication::allWidgets().size();
        int changes = 20;
        const std::function<void()> change = [&] {
            menu->addItem(MenuItem::create("Other"));
            menu->items().back()->setSubmenu(Menu::create());
            menu->removeItem(menu->items().back());
            if (--changes > 0) RunLoop::main().post(change);
        };
        RunLoop::main().post(change);
        EXPECT_TRUE(eventually([&] { return changes == 0 && QApplication::allWidgets().size() <= windows; }))
            << "submenus that come and go leave windows";

        ASSERT_EQ(runOnDisplay(use.keys), 0);
        ASSERT_TRUE(eventually([&] { return witnessBelow->heard.empty() == use.heardBelow.empty(); }));
        ASSERT_EQ(runOnDisplay({"xdotool", "key", use.lastKey}), 0);
        EXPECT_TRUE(eventually([&] { return witness->heard == use.heard && witnessBelow->heard == use.heardBelow; }))
            << witness->heard << witnessBelow->heard;
    }
}

}  // namespace
