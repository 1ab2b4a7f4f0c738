#include "platform/ui/views/Storyboard.h"

#include <sstream>

#include "platform/bundle/Bundle.h"
#include "platform/runtime/FileBytes.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Trim.h"

namespace Platform {
namespace {

constexpr std::size_t largestStoryboard = 1 << 20;

}  // namespace

ControllerClasses& ControllerClasses::shared()
{
    return Shared<ControllerClasses>::get([] { return std::make_unique<ControllerClasses>(); });
}

std::shared_ptr<Controller> ControllerClasses::make(const std::string& className) const
{
    const auto found = factories_.find(className);
    return found == factories_.end() ? nullptr : found->second();
}

std::optional<Storyboard> Storyboard::named(std::string_view name)
{
    const auto url = Bundle::main().urlForResource(name, "storyboard");
    if (!url) {
        log("Storyboard " + std::string(name) + ": the main bundle has none of that name");
        return std::nullopt;
    }
    const auto text = readFileBytes(url->path(), largestStoryboard);
    if (text) return parse(*text);
    log("Storyboard " + std::string(name) + ": " + text.error().message());
    return std::nullopt;
}

Storyboard Storyboard::parse(std::string_view text)
{
    Storyboard storyboard;
    std::istringstream lines{std::string(text)};
    std::string line;
    while (std::getline(lines, line)) {
        const std::size_t colon = line.find(':');
        const std::string key(trimmed(std::string_view(line).substr(0, colon)));
        if (colon == std::string::npos || key.starts_with('#')) continue;
        const std::string value(trimmed(std::string_view(line).substr(colon + 1)));
        if (key == "initial") {
            storyboard.initial_ = value;
        } else {
            storyboard.classNames_[key] = value;
        }
    }
    return storyboard;
}

std::shared_ptr<Controller> Storyboard::initialController() const
{
    return controller(initial_);
}

std::shared_ptr<Controller> Storyboard::controller(std::string_view identifier) const
{
    const auto found = classNames_.find(identifier);
    return found == classNames_.end() ? nullptr : ControllerClasses::shared().make(found->second);
}

}  // namespace Platform
