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

struct LoginItemAutoStartTest : testing::Test {
    Tests::ReplacedLoginItems items;
    Tests::ReplacedDistributedNotificationCenter center;
    Tests::ReplacedWorkspace workspace;
    LoginItemAutoStartController controller{app, starter};
};

struct MainAppAutoStartTest : testing::Test {
    Tests::ReplacedApplicationServices services;
    Tests::ReplacedDistributedNotificationCenter center;
    Tests::ReplacedWorkspace workspace;
    std::shared_ptr<Tests::FakeApplicationService> item = std::make_shared<Tests::FakeApplicationService>();
    MainAppAutoStartController controller{starter, item};
};

}  // namespace

TEST_F(LoginItemAutoStartTest, TheFirstJobWithTheStartersLabelDecides)
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
    for (const auto& [jobs, isEnabled] : rows) {
        items->jobs = jobs;
        EXPECT_EQ(controller.isEnabled(), isEnabled);
    }
}

TEST_F(LoginItemAutoStartTest, SwitchesTheStarterAndDropsRefusals)
{
    controller.setEnabled(true);
    EXPECT_TRUE(controller.isEnabled());
    controller.disable();
    EXPECT_FALSE(controller.isEnabled());
    items->isRefusing = true;
    controller.enable();
    controller.setEnabled(false);
    EXPECT_FALSE(controller.isEnabled());
    EXPECT_EQ(items->wishes, (std::vector<std::pair<std::string, bool>>{
                                 {starter, true}, {starter, false}, {starter, true}, {starter, false}}));
}

TEST_F(LoginItemAutoStartTest, TellsARunningStarterToEnd)
{
    using Posted = Tests::FakeDistributedNotificationCenter::Posted;
    controller.handleMainAppLaunch();
    EXPECT_TRUE(center->posted.empty());

    workspace->run(starter + ".other");
    controller.handleMainAppLaunch();
    EXPECT_TRUE(center->posted.empty());

    workspace->run(starter);
    controller.handleMainAppLaunch();
    LoginItemAutoStartController(std::nullopt, starter).handleMainAppLaunch();
    EXPECT_EQ(center->posted, (std::vector<Posted>{{"killme", app}, {"killme", std::nullopt}}));
}

TEST_F(MainAppAutoStartTest, IsEnabledAnswersForThePlatformsMainApp)
{
    for (const auto& [status, isEnabled] :
         {std::pair(Status::notRegistered, false), std::pair(Status::enabled, true),
          std::pair(Status::requiresApproval, false), std::pair(Status::notFound, false)}) {
        services->mainApp->state = status;
        item->state = status == Status::enabled ? Status::notRegistered : Status::enabled;
        EXPECT_EQ(controller.isEnabled(), isEnabled);
    }
}

TEST_F(MainAppAutoStartTest, RegistersAndUnregistersUnlessApprovalIsDue)
{
    struct Row {
        Status status;
        void (*use)(MainAppAutoStartController&);
        Calls calls;
        int settings;
    };
    const auto on = [](MainAppAutoStartController& used) { used.setEnabled(true); };
    const auto off = [](MainAppAutoStartController& used) { used.setEnabled(false); };
    const auto enable = [](MainAppAutoStartController& used) { used.enable(); };
    const auto disable = [](MainAppAutoStartController& used) { used.disable(); };
    for (const bool isRefusing : {false, true}) {
        for (const Row& row : std::vector<Row>{{Status::notRegistered, on, {"register"}, 0},
                                               {Status::enabled, off, {"unregister"}, 0},
                                               {Status::requiresApproval, on, {}, 1},
                                               {Status::requiresApproval, off, {}, 1},
                                               {Status::requiresApproval, enable, {"register"}, 0},
                                               {Status::requiresApproval, disable, {"unregister"}, 0}}) {
            item->state = row.status;
            item->isRefusing = isRefusing;
            item->calls.clear();
            services->settingsOpened = 0;
            row.use(controller);
            EXPECT_EQ(item->calls, row.calls);
            EXPECT_EQ(services->settingsOpened, row.settings);
        }
    }
}

TEST_F(MainAppAutoStartTest, MovesOnceFromAnEnabledStarterAndNeverPosts)
{
    const auto old = std::make_shared<Tests::FakeApplicationService>();
    services->loginItems[starter] = old;
    workspace->run(starter);
    for (const Status status : {Status::notRegistered, Status::requiresApproval, Status::notFound}) {
        old->state = status;
        controller.handleMainAppLaunch();
    }
    old->state = Status::enabled;
    MainAppAutoStartController(item).handleMainAppLaunch();
    EXPECT_EQ(services->mainApp->calls, Calls{});

    old->isRefusing = true;
    controller.handleMainAppLaunch();
    EXPECT_EQ(services->mainApp->calls, Calls{"register"}) << "also when the starter could not be unregistered";

    old->isRefusing = false;
    controller.handleMainAppLaunch();
    controller.handleMainAppLaunch();
    EXPECT_EQ(old->calls, (Calls{"unregister", "unregister"}));
    EXPECT_EQ(services->mainApp->calls, (Calls{"register", "register"}));
    EXPECT_TRUE(center->posted.empty());
    EXPECT_TRUE(item->calls.empty());
}
