#include <filesystem>

#include <gtest/gtest.h>

#include "platform/menubar/StatusBar.h"
#include "platform/ui/Image.h"
#include "tests/support/Chosen.h"
#include "tests/support/Display.h"
#include "tests/support/Eventually.h"
#include "tests/support/Keyboard.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryDirectory.h"

namespace {

using namespace Platform;
using Tests::Chosen;
using Tests::eventually;

// One panel at the top left corner with nothing but the tray.
constexpr const char* panelSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="20"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="icon-size" type="uint" value="22"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
    </property>
  </property>
</channel>)";

constexpr std::uint32_t magenta = 0xFFFF00FF, black = 0xFF000000;

// A real panel of another maker on a display and a bus of its own.
class Panel {
public:
    Panel()
    {
        settings_.write("xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", panelSettings);
        store_.emplace(std::vector<std::string>{"/usr/lib/" LIBRARY_ARCHITECTURE "/xfce4/xfconf/xfconfd"}, options());
        panel_.emplace(std::vector<std::string>{"xfce4-panel", "--disable-wm-check"}, options());
    }

    // The screen as a picture file.
    static Bitmap screen(const std::string& path)
    {
        std::filesystem::remove(path);
        Tests::runOnDisplay({"scrot", "--overwrite", path});
        const ImageRef image = Image::fromFile(Url::fromPath(path, false));
        return image ? *image->bitmap() : Bitmap();
    }

private:
    Tests::ChildOptions options()
    {
        return {.environment = {{"XDG_CONFIG_HOME", settings_.path()},
                                {"HOME", settings_.path()},
                                {"XDG_CACHE_HOME", settings_.path()},
                                {"GTK_THEME", "Adwaita"},
                                {"NO_AT_BRIDGE", "1"},
                                {"LANG", "C.UTF-8"}},
                .streams = Tests::ChildStreams::silent};
    }

    Tests::TemporaryDirectory settings_;
    std::optional<Tests::ChildProcess> store_;
    std::optional<Tests::ChildProcess> panel_;
};

// Other programs look and press, and answer in their own time; our loop runs in between.
bool tryUntil(const std::function<void()>& act, const std::function<bool()>& isDone)
{
    for (int round = 0; round < 20; ++round) {
        act();
        if (eventually(isDone, std::chrono::milliseconds(500))) return true;
    }
    return false;
}

TEST(PanelTest, ShowsTheItemAndOpensAndClicksItsMenu)
{
    const Tests::Display display("640x400x24");
    const Tests::PrivateBus bus;
    Panel panel;
    const std::string picture = Tests::screenshotPath("menubar/panel");
    const std::string opened = Tests::screenshotPath("menubar/panel-menu");

    const auto item = StatusBar::system().statusItem(StatusItem::squareLength);
    item->button()->setImage(Tests::square(22, Color::deviceRGB(1, 0, 1)));
    const auto target = std::make_shared<Chosen>();
    const auto menu = Menu::create();
    menu->addItem(MenuItem::create("Only", &Chosen::choose));
    menu->items()[0]->setTarget(target);
    item->setMenu(menu);

    ASSERT_TRUE(eventually([] { return StatusBar::system().isShown(); }, std::chrono::seconds(30)));
    std::ptrdiff_t left = -1, top = -1;
    const auto findIcon = [&] {
        const Bitmap screen = Panel::screen(picture);
        const auto* end = screen.pixels() + screen.pixelCount();
        const auto* icon = std::find(screen.pixels(), end, magenta);
        if (icon == end) return;
        left = (icon - screen.pixels()) % screen.width();
        top = (icon - screen.pixels()) / screen.width();
    };
    ASSERT_TRUE(tryUntil(findIcon, [&] { return left >= 0; })) << "the icon does not show in " << picture;

    const std::string x = std::to_string(left + 5), y = std::to_string(top + 5);
    const auto showsMenu = [&] {
        const Bitmap screen = Panel::screen(opened);
        return !screen.isEmpty() && screen.pixel(int(left) + 20, 45) != black;
    };
    const auto clickAt = [&](const std::string& height) {
        return [&, height] { Tests::runOnDisplay({"xdotool", "mousemove", x, height, "click", "1"}); };
    };
    EXPECT_TRUE(tryUntil(clickAt(y), [&] { return eventually(showsMenu, std::chrono::seconds(3)); }))
        << "no menu in " << opened;
    EXPECT_TRUE(tryUntil(clickAt("45"), [&] { return !target->tags.empty(); }))
        << "the menu does not answer, see " << opened;
}

}  // namespace
