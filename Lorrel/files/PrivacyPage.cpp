#include "Lorrel/files/PrivacyPage.h"

#include <algorithm>
#include <array>

namespace Lorrel {

namespace {

// In the order of the enumeration.
constexpr std::array<std::string_view, 13> names = {
    "Privacy",
    "Privacy_Accessibility",
    "Privacy_AllFiles",
    "Privacy_Assistive",
    "Privacy_Calendars",
    "Privacy_Camera",
    "Privacy_Contacts",
    "Privacy_Diagnostics",
    "Privacy_LinkedIn",
    "Privacy_LocationServices",
    "Privacy_Microphone",
    "Privacy_Reminders",
    "Privacy_SystemServices",
};

}  // namespace

std::string_view rawValue(PrivacyPage page)
{
    return names[static_cast<std::size_t>(page)];
}

std::optional<PrivacyPage> privacyPage(std::string_view rawValue)
{
    const auto* found = std::ranges::find(names, rawValue);
    if (found == names.end()) return std::nullopt;
    return static_cast<PrivacyPage>(found - names.begin());
}

}  // namespace Lorrel
