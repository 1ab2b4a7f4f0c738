#include <gtest/gtest.h>

#include "platform/menubar/MenuItem.h"
#include "platform/menubar/PopUpMenu.h"
#include "platform/ui/dialogs/AlertPanel.h"
#include "tests/support/Display.h"
#include "tests/support/Eventually.h"
#include "tests/support/Keyboard.h"

// The font library keeps a pattern to itself at the end of the process, the
// toolkit's accessibility a message of the bus library.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus\n";
}

namespace {

using namespace Platform;
using Tests::eventually;
using Tests::runOnDisplay;

class Witness : public MenuDelegate, public Responder {
public:
    void menuWillOpen(Menu&) override { heard += "open "; }
    void menuDidClose(Menu&) override { heard += "closed "; }
    void choose(ActionSender&) { heard += "chosen "; }

    std::string heard;
};

TEST(PopUpMenu, OpensAtThePointerIsSteeredByKeysAndTellsItsDelegate)
{
    Tests::Display display;
    const auto witness = std::make_shared<Witness>();
    const MenuRef menu = Menu::create();
    menu->setDelegate(witness);
    for (const char* title : {"One", "Two & more"}) menu->addItem(MenuItem::create(title, &Witness::choose));
    menu->items().back()->setTarget(witness);
    EXPECT_FALSE(popUp(nullptr));
    const struct {
        std::vector<std::string> keys;
        std::string heard;
    } uses[] = {{{"xdotool", "key", "Down", "Down", "Return"}, "open closed chosen "},
                {{"xdotool", "key", "Escape"}, "open closed "}};
    for (const auto& [keys, heard] : uses) {
        witness->heard.clear();
        ASSERT_EQ(runOnDisplay({"xdotool", "mousemove", "100", "100"}), 0);
        ASSERT_TRUE(popUp(menu));
        ASSERT_TRUE(eventually([&] { return witness->heard == "open "; }));
        ASSERT_TRUE(eventually([&] {
            return runOnDisplay({"xdotool", "search", "--onlyvisible", "--name", ".*"}) == 0;
        }));
        ASSERT_EQ(runOnDisplay(keys), 0);
        EXPECT_TRUE(eventually([&] { return witness->heard.size() >= heard.size(); })) << witness->heard;
        EXPECT_EQ(witness->heard, heard);
    }
}

}  // namespace
