#pragma once

#include <optional>
#include <string>

#include "platform/session/ApplicationService.h"
#include "platform/session/LoginItems.h"

namespace Platform {

// Login items as XDG autostart entries.
class XdgLoginItems final : public LoginItems {
public:
    Result<void> setEnabled(std::string_view identifier, bool isEnabled) override;
    std::optional<std::vector<JobDictionary>> jobDictionaries() const override;
};

// Application services on the same entries.
class XdgApplicationServices final : public ApplicationServices {
public:
    std::shared_ptr<ApplicationService> mainAppService() override;
    std::shared_ptr<ApplicationService> loginItemService(const std::string& identifier) override;
    void openSystemSettingsLoginItems() override;
};

// A program that an entry may start.
struct StartedProgram {
    std::string name;
    std::string path;
};

// The running program, by its bundle; absent outside any bundle.
std::optional<StartedProgram> mainProgram();
// The starter application of that identifier inside the running program's bundle.
std::optional<StartedProgram> loginItemProgram(std::string_view identifier);

}  // namespace Platform
