#include <gtest/gtest.h>

#include "Lorrel/apps/queries/LoginItemAutoStartController.h"
#include "Lorrel/apps/queries/MainAppAutoStartController.h"
#include "tests/fakes/FakeDistributedNotificationCenter.h"
#include "tests/fakes/FakeLoginItems.h"
#include "tests/fakes/FakeWorkspace.h"

using Lorrel::LoginItemAutoStartController;
using Lorrel::MainAppAutoStartController;
using Platform::JobDictionary;
using Platform::PropertyList;
using Status = Platform::ApplicationService::Status;
using Calls = std::vector<std::string>;

namespace {

const std::string app = "com.orvane.pellora";
const std::string starter = "com.orvane.pelloralauncher";

struct AutoStartTest : testing::Test {
    Tests::ReplacedLoginItems items;
    Tests::ReplacedApplicationServices services;
    Tests::ReplacedDistributedNotificationCenter center;
    Tests::ReplacedWorkspace workspace;
    LoginItemAutoStartController throughStarter{app, starter};
    std::shared_ptr<Tests::FakeApplicationService> item = std::make_shared<Tests::FakeApplicationService>();
    MainAppAutoStartController directly{starter, item};
};

}  // namespace

TEST_F(AutoStartTest, TheFirstJobWithTheStartersLabelDecides)
{
    const auto job = [](const PropertyList& label, const PropertyList& onDemand) {
        return JobDictionary{{"Label", label}, {"OnDemand", onDemand}};
    };
    const JobDictionary on = job(starter, true), off = job(starter, false), silent{{"Label", starter}};
    const JobDictionary longer = job(starter + ".extra", true), shorter = job("com.orvane.pellora", true);
    const std::vector<std::pair<std::optional<std::vector<JobDictionary>>, bool>> rows{
        {std::nullopt, false},
        {{{}}, false},
        {{{on}}, true},
        {{{off, on}}, false},
        {{{silent, on}}, false},
        {{{longer, off}}, true},
        {{{job(starter, 1)}}, false},
        {{{job(starter, "true")}}, false},
        {{{JobDictionary(), {{"OnDemand", true}}, job(7, true), shorter, on}}, true},
    };
    for (std::size_t row = 0; row < rows.size(); ++row) {
        items->jobs = rows[row].first;
        EXPECT_EQ(throughStarter.isEnabled(), rows[row].second) << "row " << row;
    }
}

TEST_F(AutoStartTest, SwitchesTheStarterAndDropsRefusals)
{
    throughStarter.enable();
    EXPECT_TRUE(throughStarter.isEnabled());
    items->isRefusing = true;
    throughStarter.disable();
    throughStarter.setEnabled(false);
    EXPECT_TRUE(throughStarter.isEnabled());
    EXPECT_EQ(items->wishes,
              (std::vector<std::pair<std::string, bool>>{{starter, true}, {starter, false}, {starter, false}}));
}

TEST_F(AutoStartTest, TellsARunningStarterToEnd)
{
    using Posted = Tests::FakeDistributedNotificationCenter::Posted;
    workspace->run(starter + ".other");
    throughStarter.handleMainAppLaunch();
    EXPECT_TRUE(center->posted.empty());

    workspace->run(starter);
    throughStarter.handleMainAppLaunch();
    LoginItemAutoStartController(std::nullopt, starter).handleMainAppLaunch();
    EXPECT_EQ(center->posted, (std::vector<Posted>{{"killme", app}, {"killme", std::nullopt}}));
}

TEST_F(AutoStartTest, RegistersAndUnregistersUnlessApprovalIsDue)
{
    for (const Status status : {Status::notRegistered, Status::enabled, Status::requiresApproval, Status::notFound}) {
        services->mainApp->state = status;
        EXPECT_EQ(directly.isEnabled(), status == Status::enabled) << "whatever the item says";
        for (const bool isOn : {true, false}) {
            item->state = status;
            item->calls.clear();
            services->settingsOpened = 0;
            directly.setEnabled(isOn);
            const bool isDue = status == Status::requiresApproval;
            EXPECT_EQ(item->calls, isDue ? Calls() : Calls{isOn ? "register" : "unregister"});
            EXPECT_EQ(services->settingsOpened, isDue ? 1 : 0);
        }
    }
    item->calls.clear();
    item->state = Status::requiresApproval;
    directly.enable();
    directly.disable();
    EXPECT_EQ(item->calls, (Calls{"register", "unregister"}));
}

TEST_F(AutoStartTest, MovesOnceFromAnEnabledStarterAndNeverPosts)
{
    const auto old = std::make_shared<Tests::FakeApplicationService>();
    services->loginItems[starter] = old;
    workspace->run(starter);
    for (const Status status : {Status::notRegistered, Status::requiresApproval, Status::notFound}) {
        old->state = status;
        directly.handleMainAppLaunch();
    }
    old->state = Status::enabled;
    MainAppAutoStartController(item).handleMainAppLaunch();
    EXPECT_EQ(services->mainApp->calls, Calls{});

    old->isRefusing = true;
    directly.handleMainAppLaunch();
    EXPECT_EQ(services->mainApp->calls, Calls{"register"}) << "also when the starter could not be unregistered";

    old->isRefusing = false;
    directly.handleMainAppLaunch();
    directly.handleMainAppLaunch();
    EXPECT_EQ(old->calls, (Calls{"unregister", "unregister"}));
    EXPECT_EQ(services->mainApp->calls, (Calls{"register", "register"}));
    EXPECT_TRUE(center->posted.empty() && item->calls.empty());
}
