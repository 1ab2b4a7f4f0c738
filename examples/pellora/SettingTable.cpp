#include "examples/pellora/SettingTable.h"

#include <array>
#include <charconv>

#include "examples/pellora/HotkeyText.h"

namespace Pellora {

namespace {

bool takeInterval(std::string_view text, Settings& settings)
{
    double seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || !(seconds >= shortestInterval && seconds <= longestInterval)) return false;
    settings.interval = seconds;
    return true;
}

std::string writeInterval(const Settings& settings)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), settings.interval).ptr;
    return {digits.data(), end};
}

// Calls the block with each element; false as soon as it answers so.
template <typename Block>
bool forEachElement(std::string_view text, Block block)
{
    while (!text.empty()) {
        const std::size_t comma = std::min(text.find(','), text.size());
        if (comma > 0 && !block(text.substr(0, comma))) return false;
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return true;
}

template <typename List, typename Text>
std::string joined(const List& list, Text text)
{
    std::string all;
    for (const auto& element : list) all += (all.empty() ? "" : ",") + text(element);
    return all;
}

bool takeLimits(std::string_view text, Settings& settings)
{
    std::vector<Limit> limits;
    const bool areUnderstood = forEachElement(text, [&](std::string_view element) {
        const auto limit = limitFrom(element);
        if (limit) limits.push_back(*limit);
        return limit.has_value();
    });
    if (areUnderstood) settings.limits = std::move(limits);
    return areUnderstood;
}

bool takeApplications(std::string_view text, Settings& settings)
{
    settings.applications.clear();
    return forEachElement(text, [&](std::string_view element) {
        settings.applications.emplace_back(element);
        return true;
    });
}

bool takeDisk(std::string_view text, Settings& settings)
{
    if (!text.starts_with('/')) return false;
    settings.disk = text;
    return true;
}

// A relative path would mean another file to the application that is started at login.
bool takeLog(std::string_view text, Settings& settings)
{
    if (!text.empty() && !text.starts_with('/')) return false;
    settings.log = text;
    return true;
}

bool takePing(std::string_view text, Settings& settings)
{
    settings.ping = text;
    return true;
}

bool takeHotkey(std::string_view text, Settings& settings)
{
    if (!text.empty() && !hotkeyFrom(text)) return false;
    settings.hotkey = text;
    return true;
}

constexpr std::array settingTable{
    Setting{"interval", "Interval", takeInterval, writeInterval},
    Setting{"disk", "Disk", takeDisk, [](const Settings& settings) { return settings.disk; }},
    Setting{"limits", "Limits", takeLimits, [](const Settings& settings) { return joined(settings.limits, textOf); }},
    Setting{"watch", "WatchedApplications", takeApplications,
            [](const Settings& settings) {
                return joined(settings.applications, [](const std::string& each) { return each; });
            }},
    Setting{"log", "FollowedLog", takeLog, [](const Settings& settings) { return settings.log; }},
    Setting{"ping", "PingAddress", takePing, [](const Settings& settings) { return settings.ping; }},
    Setting{"hotkey", "Hotkey", takeHotkey, [](const Settings& settings) { return settings.hotkey; }},
};

}  // namespace

std::span<const Setting> allSettings()
{
    return settingTable;
}

}  // namespace Pellora
