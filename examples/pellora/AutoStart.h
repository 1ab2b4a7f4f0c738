#pragma once

#include <memory>
#include <string_view>

#include "Lorrel/apps/queries/IAutoStartController.h"

namespace Pellora {

inline constexpr const char* appIdentifier = "com.orvane.pellora";
inline constexpr const char* launcherIdentifier = "com.orvane.pelloralauncher";

// Who starts Pellora at login.
enum class Starter { launcher, session };

// The session, where the system's version lets it start applications by themselves.
Starter starterOfThisSystem();

// By its launcher, or directly by the session (which also takes over from the launcher).
std::unique_ptr<Lorrel::IAutoStartController> autoStartController(Starter starter);

// Carries out "on", "off" or "status" and prints the state that this leaves:
// "on" or "off". False for another word, or where the wish was not granted.
bool runAutoStartCommand(Lorrel::IAutoStartController& controller, std::string_view command);

}  // namespace Pellora
