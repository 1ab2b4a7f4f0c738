#pragma once

#include <cerrno>
#include <map>

#include "platform/session/ApplicationService.h"
#include "platform/session/LoginItems.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// Login items kept in memory; every wish is recorded.
class FakeLoginItems final : public Platform::LoginItems {
public:
    Platform::Result<void> setEnabled(std::string_view identifier, bool isEnabled) override
    {
        wishes.emplace_back(identifier, isEnabled);
        if (isRefusing) return Platform::Error::fromErrno("open", identifier, EROFS);
        if (!jobs) jobs.emplace();
        std::erase_if(*jobs, [&](const auto& job) { return *job.find("Label")->text() == identifier; });
        if (isEnabled) jobs->push_back({{"Label", identifier}, {"OnDemand", true}});
        return {};
    }
    std::optional<std::vector<Platform::JobDictionary>> jobDictionaries() const override { return jobs; }

    std::vector<std::pair<std::string, bool>> wishes;
    std::optional<std::vector<Platform::JobDictionary>> jobs = std::vector<Platform::JobDictionary>();
    bool isRefusing = false;
};

using ReplacedLoginItems = Replaced<Platform::LoginItems, FakeLoginItems>;

// A service whose state a test sets and reads.
class FakeApplicationService final : public Platform::ApplicationService {
public:
    Status status() const override { return state; }
    Platform::Result<void> register_() override { return change("register", Status::enabled); }
    Platform::Result<void> unregister() override { return change("unregister", Status::notRegistered); }

    Status state = Status::notRegistered;
    bool isRefusing = false;
    std::vector<std::string> calls;

private:
    Platform::Result<void> change(const std::string& call, Status wanted)
    {
        calls.push_back(call);
        const bool isRefused = isRefusing || state == Status::requiresApproval;
        if (isRefused) return Platform::Error::fromErrno(call, "service", EPERM);
        state = wanted;
        return {};
    }
};

class FakeApplicationServices final : public Platform::ApplicationServices {
public:
    std::shared_ptr<Platform::ApplicationService> mainAppService() override { return mainApp; }
    std::shared_ptr<Platform::ApplicationService> loginItemService(const std::string& identifier) override
    {
        auto& item = loginItems[identifier];
        if (!item) item = std::make_shared<FakeApplicationService>();
        return item;
    }
    void openSystemSettingsLoginItems() override { ++settingsOpened; }

    std::shared_ptr<FakeApplicationService> mainApp = std::make_shared<FakeApplicationService>();
    std::map<std::string, std::shared_ptr<FakeApplicationService>> loginItems;
    int settingsOpened = 0;
};

using ReplacedApplicationServices = Replaced<Platform::ApplicationServices, FakeApplicationServices>;

}  // namespace Tests
