#include <algorithm>

#include <gtest/gtest.h>

#include "examples/pellora/HotkeyText.h"
#include "examples/pellora/Options.h"
#include "examples/pellora/Settings.h"
#include "tests/examples/pellora/Machine.h"

namespace Pellora {
namespace {

TEST(SettingTexts, AreTakenOrRefusedWhole)
{
    const struct {
        const char* name;
        const char* text;
        const char* written;  // null where it is refused
    } cases[] = {
        {"interval", "0.5", "0.5"},
        {"interval", "0.09", nullptr},
        {"interval", "nan", nullptr},
        {"interval", "2s", nullptr},
        {"disk", "home", nullptr},
        {"limits", "cpu.total>90,disk.free<1.5K", "cpu.total>90,disk.free<1536"},
        {"limits", "", ""},
        {"limits", "cpu.total>90,cpu.total", nullptr},
        {"limits", "a>", nullptr},
        {"limits", "a>9X", nullptr},
        {"watch", ",com.example.a,,com.example.b", "com.example.a,com.example.b"},
        {"log", "/var/log/a b,c", "/var/log/a b,c"},
        {"hotkey", "shift+f5", "shift+f5"},
        {"hotkey", "p", nullptr},
        {"hotkey", "control+P", nullptr},
        {"hotkey", "control+pp", nullptr},
        {"nonsense", "1", nullptr},
    };
    for (const auto& [name, text, written] : cases) {
        Settings settings;
        EXPECT_EQ(change(settings, name, text), written != nullptr) << name << ' ' << text;
        const auto texts = textsOf(settings);
        if (written) {
            EXPECT_EQ(std::ranges::count(texts, std::string(name) + ' ' + written), 1) << name << ' ' << text;
        } else {
            EXPECT_EQ(settings, Settings()) << name << ' ' << text;
        }
    }
    const auto hotkey = hotkeyFrom("command+shift+0");
    EXPECT_EQ(std::pair(hotkey->carbonKeyCode(), hotkey->carbonModifiers()), std::pair(29L, 0x300L));
}

TEST(KeptSettings, ComeBackAndWhatIsOfNoUseIsAsAtFirst)
{
    const Tests::Machine machine;
    const auto kept = keptSettings();
    EXPECT_EQ(loadSettings(*kept), Settings());

    Settings chosen;
    for (const auto& [name, text] : {std::pair("interval", "7"), {"limits", ""}, {"watch", "a,b"}, {"ping", "x"}}) {
        ASSERT_TRUE(change(chosen, name, text));
    }
    saveSettings(chosen, *kept);
    EXPECT_EQ(loadSettings(*keptSettings()), chosen);
    EXPECT_FALSE(kept->string("Hotkey")) << "what was not chosen is not kept";

    kept->set("Interval", "soon");
    kept->set("PingAddress", 5);
    chosen.interval = Settings().interval;
    chosen.ping.clear();
    EXPECT_EQ(loadSettings(*kept), chosen);
}

TEST(Options, AreUnderstoodOrRefused)
{
    using Words = std::vector<std::string_view>;
    for (const Words& words :
         {Words{"--table", "-1"}, {"--table"}, {"--start-at-login"}, {"--nonsense", "5"}, {"file"}}) {
        EXPECT_FALSE(optionsFrom(words)) << testing::PrintToString(words);
    }
    EXPECT_TRUE(optionsFrom({}));
    // The text of a setting is read later.
    const auto options =
        optionsFrom({"--directly", "--save", "--table", "7", "--ping", "--table", "--interval", "soon"});
    EXPECT_EQ(options->starter, Starter::session);
    EXPECT_TRUE(options->savesSettings);
    EXPECT_EQ(options->tableRefreshes, 7u);
    EXPECT_EQ(options->changes, (decltype(options->changes){{"ping", "--table"}, {"interval", "soon"}}));
}

}  // namespace
}  // namespace Pellora
