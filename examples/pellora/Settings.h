#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "examples/pellora/watch/Limit.h"
#include "platform/bundle/UserDefaults.h"

namespace Pellora {

// Seconds between two readings.
inline constexpr double shortestInterval = 0.1;
inline constexpr double longestInterval = 3600;

// What the user may choose. A value.
struct Settings {
    double interval = 2;
    std::string disk = "/";  // a folder of the file system that is measured
    std::vector<Limit> limits{{"disk.percent", Limit::Side::above, 95}, {"battery.percent", Limit::Side::below, 10}};
    std::vector<std::string> applications;  // bundle identifiers
    std::string log;                        // these three may be empty, for none
    std::string ping;
    std::string hotkey = "control+option+p";

    friend bool operator==(const Settings&, const Settings&) = default;
};

// Where they are kept between runs.
std::shared_ptr<Platform::UserDefaults> keptSettings();
// What is missing there, or of no use, is as at first.
Settings loadSettings(const Platform::UserDefaults& defaults);
void saveSettings(const Settings& settings, Platform::UserDefaults& defaults);

// Changes one setting by its name ("interval") and a text. A list takes its
// elements separated by commas; an empty text empties it, or turns the setting
// off. False, and nothing is changed, for an unknown name or a text of no use.
bool change(Settings& settings, std::string_view name, std::string_view text);
// Every setting as "NAME TEXT", as change() takes them.
std::vector<std::string> textsOf(const Settings& settings);

}  // namespace Pellora
