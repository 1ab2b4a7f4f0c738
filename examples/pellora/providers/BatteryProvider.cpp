#include "examples/pellora/providers/BatteryProvider.h"

#include <utility>

#include "examples/pellora/Texts.h"
#include "examples/pellora/providers/FolderNames.h"
#include "examples/pellora/providers/Scan.h"
#include "platform/runtime/Environment.h"

namespace Pellora {

namespace {

// The kernel's words for the state, and ours.
constexpr std::pair<std::string_view, const char*> states[] = {
    {"Charging", "BATTERY_CHARGING"},
    {"Discharging", "BATTERY_DISCHARGING"},
    {"Full", "BATTERY_FULL"},
    {"Not charging", "BATTERY_NOT_CHARGING"},
};

std::optional<std::string> stateText(std::string_view word)
{
    for (const auto& [theirs, ours] : states) {
        if (theirs == word) return text(ours);
    }
    return std::nullopt;
}

bool isBatteryOfComputer(const std::string& folder)
{
    return firstLineOf(folder + "/type") == "Battery" && firstLineOf(folder + "/scope") != "Device";
}

}  // namespace

BatteryProvider::BatteryProvider()
{
    const std::string all = Platform::SystemRoots::shared().sys() + "/class/power_supply/";
    for (const auto& name : namesIn(all)) {
        const std::string folder = all + name;
        if (!isBatteryOfComputer(folder)) continue;
        batteries_.push_back(
            std::make_unique<Battery>(Battery{SystemFile(folder + "/capacity"), SystemFile(folder + "/status")}));
    }
    if (batteries_.empty()) return;
    percent_ = addPercentage("battery.percent", text("BATTERY_PERCENT"));
    state_ = std::make_shared<Fennick::StringIdentifier>("battery.state", text("BATTERY_STATE"), std::nullopt);
    add(state_);
}

void BatteryProvider::update(double /*elapsed*/)
{
    if (batteries_.empty()) return;
    double sum = 0;
    int known = 0;
    std::optional<std::string> state;
    for (const auto& battery : batteries_) {
        if (const auto percent = battery->capacity.readNumber()) {
            sum += static_cast<double>(*percent);
            ++known;
        }
        std::string_view status = battery->status.read();
        if (!state) state = stateText(takeLine(status));
    }
    take(percent_, known > 0 ? std::optional(sum / known) : std::nullopt);
    state_->setString(state);
}

}  // namespace Pellora
