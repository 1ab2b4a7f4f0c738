#include <csignal>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/runtime/Application.h"
#include "platform/runtime/FatalError.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"

using Platform::Application;

namespace {

// Refuses as often as told, then agrees.
class Delegate final : public Platform::ApplicationDelegate {
public:
    explicit Delegate(int refusals) : refusals_(refusals) {}

    void applicationDidFinishLaunching() override
    {
        calls.emplace_back("launched");
        ::kill(::getpid(), SIGTERM);
    }
    bool applicationShouldTerminate() override
    {
        calls.emplace_back("asked");
        if (refusals_-- <= 0) return true;
        ::kill(::getpid(), SIGTERM);
        return false;
    }
    void applicationWillTerminate() override { calls.emplace_back("ending"); }

    std::vector<std::string> calls;

private:
    int refusals_;
};

}  // namespace

TEST(Application, SignalsAskTheDelegateWhichMayRefuse)
{
    const Platform::Shared<Application>::Override fresh;
    const auto delegate = std::make_shared<Delegate>(2);
    EXPECT_EQ(Platform::applicationMain(0, nullptr, [&] { return delegate; }), 0);
    EXPECT_EQ(delegate->calls, (std::vector<std::string>{"launched", "asked", "asked", "asked", "ending"}));
}

TEST(Application, TerminateBeforeRunningEndsAtOnce)
{
    const Platform::Shared<Application>::Override fresh;
    Application::shared().terminate();
    Application::shared().run();
    EXPECT_TRUE(Application::shared().isTerminating());
}

TEST(FatalErrorDeathTest, NamesItsSourceAndAborts)
{
    EXPECT_EXIT(Platform::fatalError("Could not.", "Room/File"), testing::KilledBySignal(SIGABRT),
                "^Room/File: Fatal error: Could not\\.\n$");
}
