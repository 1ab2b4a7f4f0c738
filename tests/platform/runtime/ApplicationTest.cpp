#include <csignal>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/runtime/Application.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"

using Platform::Application;

namespace {

// Refuses to end twice, then agrees.
struct Delegate final : Platform::ApplicationDelegate {
    void applicationDidFinishLaunching() override
    {
        calls.emplace_back("launched");
        ::kill(::getpid(), SIGTERM);
    }
    bool applicationShouldTerminate() override
    {
        calls.emplace_back("asked");
        if (refusals-- <= 0) return true;
        ::kill(::getpid(), SIGTERM);
        return false;
    }
    void applicationWillTerminate() override { calls.emplace_back("ending"); }

    std::vector<std::string> calls;
    int refusals = 2;
};

}  // namespace

TEST(Application, SignalsAskTheDelegateWhichMayRefuse)
{
    const Platform::Shared<Application>::Override fresh;
    const auto delegate = std::make_shared<Delegate>();
    EXPECT_EQ(Platform::applicationMain(0, nullptr, [&] { return delegate; }), 0);
    EXPECT_EQ(delegate->calls, (std::vector<std::string>{"launched", "asked", "asked", "asked", "ending"}));
}
