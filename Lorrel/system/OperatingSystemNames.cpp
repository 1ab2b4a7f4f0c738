#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>

#include "Lorrel/resource_bundle_accessor.h"
#include "Lorrel/system/MacSystem.h"
#include "Lorrel/system/internal/Texts.h"
#include "platform/runtime/Trim.h"
#include "platform/system/ProcessInfo.h"

namespace Lorrel {

namespace {

// From the kernel's major release 8 on, one name a release.
constexpr std::int64_t firstNamedKernel = 8;
constexpr const char* kernelNames[] = {
    "macOS Tiger",     "macOS Leopard",  "macOS Snow Leopard", "macOS Lion",     "macOS Mountain Lion",
    "macOS Mavericks", "macOS Yosemite", "macOS El Capitan",   "macOS Sierra",   "macOS High Sierra",
    "macOS Mojave",    "macOS Catalina", "macOS Big Sur",      "macOS Monterey", "macOS Ventura",
    "macOS Sonoma",    "macOS Sequoia",
};

constexpr std::int64_t firstNamedMajor = 11;
constexpr const char* majorNames[] = {"macOS Big Sur", "macOS Monterey", "macOS Ventura", "macOS Sonoma"};

std::string nameAt(std::span<const char* const> names, std::int64_t place)
{
    const bool isNamed = place >= 0 && place < std::ssize(names);
    return isNamed ? names[static_cast<std::size_t>(place)] : Resources::text("UNKNOWN_MACOS_VERSION");
}

struct ModelSymbol {
    std::string_view model;
    bool isWhole;  // the model is exactly this, or begins so
    const char* symbol;
};

// The first line that fits decides.
constexpr ModelSymbol modelSymbols[] = {
    {"Mac13,1", true, "macstudio"},          {"MacBookAir", false, "laptopcomputer"},
    {"MacBookPro", false, "laptopcomputer"}, {"iMac", false, "desktopcomputer"},
    {"Macmini", false, "macmini"},           {"MacPro4,1", true, "macpro.gen1"},
    {"MacPro5,1", true, "macpro.gen1"},      {"MacPro6,1", true, "macpro.gen2"},
    {"MacPro", false, "macpro.gen3"},
};

}  // namespace

std::string MacSystem::symbolName()
{
    const std::string name = model();
    const auto fits = [&](const ModelSymbol& line) {
        return line.isWhole ? name == line.model : name.starts_with(line.model);
    };
    const auto found = std::ranges::find_if(modelSymbols, fits);
    return found == std::end(modelSymbols) ? "desktopcomputer" : found->symbol;
}

std::string MacSystem::osName(int kernelVersion)
{
    return nameAt(kernelNames, kernelVersion - firstNamedKernel);
}

std::string MacSystem::osName()
{
    return nameAt(majorNames, osMajorVersion().value_or(0) - firstNamedMajor);
}

// The leading whole number of the first word after "Version".
std::optional<int> MacSystem::osMajorVersion()
{
    const std::string text = osVersionText();
    std::string_view word = text;
    word.remove_prefix(std::min(word.find_first_not_of(' '), word.size()));
    word = word.substr(0, word.find(' '));
    word.remove_prefix(std::min(word.find_first_not_of('.'), word.size()));
    word = word.substr(0, word.find('.'));
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (word.empty() || error != std::errc() || end != word.data() + word.size()) return std::nullopt;
    return number;
}

std::string MacSystem::osVersionString()
{
    return Platform::ProcessInfo::shared().operatingSystemVersionString();
}

std::string MacSystem::osVersionText()
{
    return std::string(Platform::trimmed(replaced(osVersionString(), "Version", "")));
}

std::string MacSystem::osMarketingVersionText()
{
    return std::string(Platform::trimmed(replaced(osVersionString(), "Version", "macOS")));
}

std::string MacSystem::osDescription()
{
    return osName() + " " + osVersionText();
}

}  // namespace Lorrel
