#pragma once

#include <optional>
#include <string_view>

namespace Lorrel {

// The privacy pages of the security settings.
enum class PrivacyPage {
    privacy,
    accessibility,
    allFiles,
    Assistive,
    Calendars,
    Camera,
    Contacts,
    Diagnostics,
    LinkedIn,
    LocationServices,
    Microphone,
    Reminders,
    SystemServices,
};

// The page's name in the settings' addresses: "Privacy_Camera".
std::string_view rawValue(PrivacyPage page);
// The page of exactly that name; absent for any other text.
std::optional<PrivacyPage> privacyPage(std::string_view rawValue);

}  // namespace Lorrel
