#include "examples/pellora/Settings.h"

#include <algorithm>

#include "examples/pellora/AutoStart.h"
#include "examples/pellora/SettingTable.h"

namespace Pellora {

std::shared_ptr<Platform::UserDefaults> keptSettings()
{
    return Platform::UserDefaults::suite(appIdentifier);
}

Settings loadSettings(const Platform::UserDefaults& defaults)
{
    Settings settings;
    for (const auto& setting : allSettings()) {
        if (const auto text = defaults.string(setting.key)) setting.take(*text, settings);
    }
    return settings;
}

// Only what has changed: other processes and later versions keep their keys.
void saveSettings(const Settings& settings, Platform::UserDefaults& defaults)
{
    for (const auto& setting : allSettings()) {
        const std::string text = setting.write(settings);
        if (text != setting.write(loadSettings(defaults))) defaults.set(setting.key, text);
    }
}

bool change(Settings& settings, std::string_view name, std::string_view text)
{
    const auto all = allSettings();
    const auto setting = std::ranges::find(all, name, &Setting::name);
    return setting != all.end() && setting->take(text, settings);
}

std::vector<std::string> textsOf(const Settings& settings)
{
    std::vector<std::string> texts;
    for (const auto& setting : allSettings())
        texts.push_back(std::string(setting.name) + " " + setting.write(settings));
    return texts;
}

}  // namespace Pellora
