#include <gtest/gtest.h>

#include "launcher/AppDelegate.h"
#include "platform/bundle/Bundle.h"
#include "platform/runtime/Shared.h"
#include "tests/fakes/FakeDistributedNotificationCenter.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/TemporaryDirectory.h"

using Launcher::AppDelegate;
using Platform::Application;
using Platform::Bundle;

namespace {

struct AppDelegateTest : testing::Test {
    Tests::ReplacedWorkspace workspace;
    Tests::ReplacedDistributedNotificationCenter center;
    Platform::Shared<Application>::Override application;
    Tests::TemporaryDirectory folder;
    std::shared_ptr<AppDelegate> delegate = AppDelegate::create();

    void launchFrom(const std::string& place)
    {
        const Platform::Shared<Bundle>::Override bundle(Bundle::open(folder.makeFolder(place)));
        delegate->applicationDidFinishLaunching();
    }
    std::vector<std::string> opened() const
    {
        std::vector<std::string> paths;
        for (const auto& url : workspace->openRequests()) paths.push_back(url.path());
        return paths;
    }
    static bool isTerminating() { return Application::shared().isTerminating(); }

    const std::string launcher = "Pellora.app/Contents/Library/LoginItems/PelloraLauncher.app";
};

}  // namespace

TEST_F(AppDelegateTest, OpensTheApplicationAroundItAndWaits)
{
    EXPECT_EQ(delegate->mainIdentifier(), "com.orvane.pellora");
    launchFrom("Apps and \xc3\xbc % 'more'/" + launcher);
    EXPECT_EQ(opened(), std::vector<std::string>{folder / "Apps and \xc3\xbc % 'more'/Pellora.app"});
    EXPECT_EQ(center->observerCount(), 1u);
    EXPECT_FALSE(isTerminating());
}

TEST_F(AppDelegateTest, EndsAtOnceWhereTheApplicationRuns)
{
    workspace->run("com.orvane.pellora");
    launchFrom(launcher);
    EXPECT_TRUE(isTerminating());
    EXPECT_TRUE(workspace->openRequests().empty());
    EXPECT_EQ(center->observerCount(), 0u);
}

TEST_F(AppDelegateTest, SixComponentsOpenWhatIsLeftFiveOpenNothingAndEndIt)
{
    for (const std::size_t count : {6U, 5U}) {
        std::string place = "L.app";
        while (Platform::pathComponents(folder / place).size() < count) place = "x/" + place;
        launchFrom(place);
        EXPECT_EQ(opened(), std::vector<std::string>{"/" + Platform::pathComponents(folder.path())[1]});
        EXPECT_EQ(isTerminating(), count == 5);
    }
}
