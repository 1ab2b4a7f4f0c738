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
        {"limits", "disk.free<2T", "disk.free<2199023255552"},
        {"limits", "", ""},
        {"limits", "cpu.total>90,cpu.total", nullptr},
        {"limits", "a>", nullptr},
        {"limits", "a>K", nullptr},
        {"limits", "a>9X", nullptr},
        {"watch", ",com.example.a,,com.example.b", "com.example.a,com.example.b"},
        {"log", "/var/log/a b,c", "/var/log/a b,c"},
        {"ping", "example.com", "example.com"},
        {"hotkey", "shift+f5", "shift+f5"},
        {"hotkey", "p", nullptr},
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
}

TEST(HotkeyTexts, NameModifiersAndAKey)
{
    const struct {
        const char* text;
        std::optional<std::pair<std::int64_t, std::int64_t>> codeAndMask;
    } cases[] = {
        {"control+option+p", {{35, 0x1800}}},
        {"command+shift+0", {{29, 0x300}}},
        {"f20", {{90, 0}}},
        {"p", {}},
        {"+p", {}},
        {"control+P", {}},
        {"control+pp", {}},
    };
    for (const auto& [text, expected] : cases) {
        const auto hotkey = hotkeyFrom(text);
        ASSERT_EQ(hotkey.has_value(), expected.has_value()) << text;
        if (!hotkey) continue;
        EXPECT_EQ(std::pair(hotkey->carbonKeyCode(), hotkey->carbonModifiers()), *expected) << text;
    }
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
    const struct {
        std::vector<std::string_view> words;
        bool areUnderstood;
    } cases[] = {
        {{}, true},
        {{"--table", "0", "--interval", "soon"}, true},  // the text of a setting is read later
        {{"--table", "-1"}, false},
        {{"--table"}, false},
        {{"--start-at-login"}, false},
        {{"--nonsense", "5"}, false},
        {{"file"}, false},
    };
    for (const auto& [words, areUnderstood] : cases) {
        EXPECT_EQ(optionsFrom(words).has_value(), areUnderstood) << testing::PrintToString(words);
    }

    const auto options = optionsFrom({"--directly", "--save", "--table", "7", "--ping", "--table"});
    EXPECT_EQ(options->starter, Starter::session);
    EXPECT_TRUE(options->savesSettings);
    EXPECT_EQ(options->tableRefreshes, 7u);
    EXPECT_EQ(options->changes, (decltype(options->changes){{"ping", "--table"}}));
}

}  // namespace
}  // namespace Pellora
