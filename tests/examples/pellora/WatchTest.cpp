#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/NumberIdentifier.h"
#include "examples/pellora/watch/FollowedLog.h"
#include "examples/pellora/watch/LimitWarnings.h"
#include "examples/pellora/watch/Ping.h"
#include "examples/pellora/watch/WatchedApplications.h"
#include "platform/runtime/RunLoop.h"
#include "tests/examples/pellora/Machine.h"
#include "tests/fakes/FakeUserNotificationCenter.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/Eventually.h"
#include "tests/support/http/HttpServer.h"

namespace Pellora {
namespace {

constexpr std::optional<double> gone;

TEST(LimitWatch, WarnsOnceUntilTheReadingHasComeBackWell)
{
    const struct {
        const char* limit;
        std::vector<std::optional<double>> readings;
        std::vector<std::size_t> warnings;  // at which readings
    } cases[] = {
        {"a>100", {101, 101, 101, 101, 101}, {2}},
        {"a>100", {101, 101, 99, 101, 101, 101}, {5}},
        {"a>100", {101, gone, 101, gone, 101}, {4}},
        {"a>100", {101, 101, 101, 95, 101, 101, 101}, {2, 6}},
        {"a<10", {9, 9, 9, 10.4, 9, 9, 9, 10.5, 9, 9, 9}, {2, 10}},
        {"a<1", {0, 0, 0, 0, 1, 1, 0, 0, 0}, {2}},
    };
    for (const auto& [limit, readings, warnings] : cases) {
        LimitWatch watch(*limitFrom(limit));
        std::vector<std::size_t> found;
        for (std::size_t at = 0; at < readings.size(); ++at) {
            if (watch.isWarning(readings[at])) found.push_back(at);
        }
        EXPECT_EQ(found, warnings) << limit << ' ' << testing::PrintToString(readings);
    }
}

TEST(LimitWarnings, NameTheReadingAndItsValue)
{
    const Tests::Machine machine;
    const Tests::ReplacedUserNotificationCenter desktop;
    const auto store = std::make_shared<Fennick::DataStore>();
    const auto load = std::make_shared<Fennick::NumberIdentifier>("load", "Load", 1);
    store->add(load);
    LimitWarnings warnings(store, {*limitFrom("load>2"), *limitFrom("load<9"), *limitFrom("missing>0")});
    for (int refresh = 0; refresh < 8; ++refresh) {
        if (refresh == 4) warnings.take({*limitFrom("load>3"), *limitFrom("load>2")});  // one was there before
        load->set(2.5);
        warnings.didRefresh(1);
    }

    ASSERT_EQ(desktop->shown.size(), 2u);
    EXPECT_EQ(desktop->shown[0].content.title, "Load is high");
    EXPECT_EQ(desktop->shown[0].content.body, "It is 2.5 now.");
}

TEST(WatchedApplications, AreLookedAtEveryFewSeconds)
{
    const Tests::Machine machine;
    const Tests::ReplacedWorkspace workspace;
    workspace->run("com.example.a");
    const auto watched = WatchedApplications::create({"com.example.b", "com.example.a", "com.example.b"});
    EXPECT_EQ(watched->keys(), (std::vector<std::string>{"app.com.example.b", "app.com.example.a"}));
    watched->update(0.1);
    EXPECT_EQ(watched->stringFor("app.com.example.a"), "running");
    EXPECT_EQ(watched->stringFor("app.com.example.b"), "not running");

    workspace->end("com.example.a");
    watched->update(4.9);
    EXPECT_EQ(watched->valueFor("app.com.example.a"), Platform::Number(1));
    watched->update(0.1);
    EXPECT_EQ(watched->valueFor("app.com.example.a"), Platform::Number(0));
    workspace->run("com.example.b");
    watched->update(-3600);
    EXPECT_EQ(watched->stringFor("app.com.example.b"), "running") << "the system's time stepped back";
}

TEST(ShownLine, IsTheLastThatIsNotBlankAndFitToBeShown)
{
    const std::string longLine(59, 'x');
    const std::pair<std::string, std::optional<std::string>> cases[] = {
        {" \n\n\t\r\n", {}},
        {"one\n  two \r\n\n", "two"},
        {"\x1b[31mred\x7f\tbell\a!", " [31mred  bell !"},
        {longLine + "yz", longLine + "y"},
        {longLine + "\xc3\xa9z", longLine},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(shownLine(text), expected) << text;
}

TEST(FollowedLog, ShowsTheLastLineAndCountsTheNewOfWhatComesInPlaceOfAFolderOrOfAnother)
{
    const Tests::Machine machine;
    const std::string path = machine.folder / "log";
    std::filesystem::create_directory(path);
    const auto log = FollowedLog::create(path);
    const auto append = [&](const std::string& text) {
        std::ofstream(path, std::ios::app) << text;
        Platform::RunLoop::main().drain();
    };
    // The line shown and the number of new ones, after an update.
    using Shown = std::pair<std::string, std::optional<Platform::Number>>;
    const auto shown = [&](double elapsed = 1) {
        log->update(elapsed);
        return Shown(log->stringFor("log"), log->valueFor("log"));
    };
    EXPECT_EQ(shown(20), Shown("-", std::nullopt));
    std::filesystem::remove(path);
    append("too early\n");
    EXPECT_EQ(shown(9.5), Shown("-", std::nullopt)) << "nobody has looked again yet";
    shown(0.5);
    append("a\nb\n");
    append("c\n\n");
    EXPECT_EQ(shown(), Shown("c", 4));
    EXPECT_EQ(shown(), Shown("c", 0));

    std::filesystem::rename(path, path + ".1");
    std::ofstream(path + ".1", std::ios::app) << "last words\n";
    Platform::RunLoop::main().drain();
    EXPECT_EQ(shown(9), Shown("last words", 1)) << "followed until there is another";
    append("not yet\n");
    shown(10);
    append("second\n");
    EXPECT_EQ(shown(), Shown("second", 1));
}

TEST(Ping, TellsTheTimeOfAnswersAndWhoDoesNotAnswerWell)
{
    const Tests::Machine machine;
    const Tests::HttpServer server([](const Tests::HttpRequest& request, Tests::HttpConnection& out) {
        return out.answer(request.target == "/well" && request.method == "HEAD" ? 204 : 500, "");
    });
    const struct {
        std::string address;
        const char* state;
    } cases[] = {
        {server.url("/well"), "answers"},
        {server.url("/ill"), "does not answer well"},
        {"http://127.0.0.1:1", "does not answer well"},
    };
    for (const auto& [address, state] : cases) {
        Ping ping(address);
        ASSERT_TRUE(Tests::eventually([&] {
            ping.update(0);
            return ping.valueFor("ping.state").has_value();
        })) << address;
        EXPECT_EQ(ping.stringFor("ping.state"), state) << address;
        EXPECT_EQ(ping.valueFor("ping").has_value(), ping.valueFor("ping.state") == Platform::Number(1)) << address;
    }
    EXPECT_EQ(server.connectionCount(), 2) << "asked once each, however often updated";
}

}  // namespace
}  // namespace Pellora
