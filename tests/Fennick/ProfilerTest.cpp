#include <gtest/gtest.h>

#include "Fennick/Profiler.h"
#include "tests/fakes/VirtualClock.h"

using Fennick::Profiler;

namespace {

std::string printed(void (*stop)())
{
    testing::internal::CaptureStdout();
    stop();
    return testing::internal::GetCapturedStdout();
}

}  // namespace

TEST(Profiler, PrintsTheTimeSinceTheLatestStartOfANameOrOfTheFirst)
{
    const Tests::ReplacedClock clock;
    Profiler::start("a");
    clock->advance(5);
    Profiler::start("a");
    clock->advance(0.03125);
    EXPECT_EQ(printed([] { Profiler::stop("a"); }), "a: 31.25000 ms\n");
    EXPECT_EQ(printed([] { Profiler::stop("a"); }), "");
    Profiler::start();
    Profiler::start("b 100%s");
    clock->advance(0.5);
    EXPECT_EQ(printed([] { Profiler::stop(); }), "Profiler: 500.00000 ms\n");
    EXPECT_EQ(printed([] { Profiler::stop(); }), "b 100%s: 500.00000 ms\n");
}
