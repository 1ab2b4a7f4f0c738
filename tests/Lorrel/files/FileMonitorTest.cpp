#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "Lorrel/files/FileMonitor.h"
#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "tests/support/Eventually.h"
#include "tests/support/OpenDescriptors.h"
#include "tests/support/TemporaryDirectory.h"

namespace Lorrel {
namespace {

using Texts = std::vector<std::string>;

struct Receiver final : FileMonitorDelegate {
    void didAppend(const std::string& text) override
    {
        texts.push_back(text);
        if (then) then();
    }
    Texts texts;
    std::function<void()> then;
};

class FileMonitorTest : public testing::Test {
protected:
    void follow()
    {
        monitor = FileMonitor::create(Platform::Url::fromPath(path));
        monitor->setDelegate(receiver);
    }
    void append(std::string_view text) const
    {
        ASSERT_EQ(::write(file.get(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    Texts delivered()
    {
        Platform::RunLoop::main().drain();
        return std::exchange(receiver->texts, {});
    }

    Tests::TemporaryDirectory folder;
    Platform::Shared<Platform::FileSystemEvents>::Override fresh;
    std::string path = folder.write("log", "there before\n");
    Platform::FileDescriptor file{::open(path.c_str(), O_WRONLY | O_APPEND)};
    std::shared_ptr<Receiver> receiver = std::make_shared<Receiver>();
    std::shared_ptr<FileMonitor> monitor;
};

TEST_F(FileMonitorTest, DeliversWhatTheFileItOpenedGrowsBy)
{
    follow();
    constexpr auto reached = std::string_view("there before\none\ntwo\n\xc3\xa4").size();
    const struct {
        const char* what;
        std::function<void()> change;
        Texts expected;
    } steps[] = {
        {"nothing", [] {}, {}},
        {"two appends",
         [&] {
             for (const auto* text : {"one\n", "two\n"}) append(text);
         },
         {"one\ntwo\n"}},
        {"first half of a character", [&] { append("\xc3"); }, {}},
        {"its second half", [&] { append("\xa4"); }, {}},
        {"truncated", [&] { std::filesystem::resize_file(path, 3); }, {}},
        {"grown to the place reached before", [&] { append(std::string(reached - 3, 'x')); }, {}},
        {"grown beyond", [&] { append("beyond"); }, {"beyond"}},
        {"renamed", [&] { std::filesystem::rename(path, folder / "log.1"); }, {}},
        {"a longer one of its name", [&] { folder.write("log", std::string(100, 'y')); }, {}},
        {"the renamed one", [&] { append("renamed"); }, {"renamed"}},
        {"deleted", [&] { std::filesystem::remove(folder / "log.1"); }, {}},
        {"the deleted one", [&] { append("deleted"); }, {"deleted"}},
    };
    for (const auto& step : steps) {
        step.change();
        EXPECT_EQ(delivered(), step.expected) << step.what;
    }
}

TEST_F(FileMonitorTest, WhatIsWrittenWhileItReadsArrivesWholeAndOnce)
{
    follow();
    std::string expected;
    for (int i = 10'000; i < 15'000; ++i) expected += std::to_string(i) + "\n";
    std::thread writer([&] {
        for (std::size_t at = 0; at < expected.size(); at += 6) append(std::string_view(expected).substr(at, 6));
    });
    std::string received;
    receiver->then = [&] {
        for (const auto& text : std::exchange(receiver->texts, {})) received += text;
    };
    EXPECT_TRUE(Tests::eventually([&] { return received.size() >= expected.size(); }));
    writer.join();
    Platform::RunLoop::main().drain();
    EXPECT_EQ(received, expected);
}

TEST_F(FileMonitorTest, WhatTheFullEventQueueDoesNotTellIsCaughtUp)
{
    follow();
    const std::string other = folder.write("other", "");
    const auto otherMonitor = FileMonitor::create(Platform::Url::fromPath(other));
    long queue = 0;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> queue;
    ASSERT_GT(queue, 0);
    for (long i = 0; i <= queue / 2; ++i) {
        for (const auto& touched : {path, other}) ::chmod(touched.c_str(), 0600);
    }
    append("behind the last event");
    EXPECT_EQ(delivered(), Texts{"behind the last event"});
}

TEST_F(FileMonitorTest, EndsInsideItsOwnDeliveryAndHoldsNeitherDelegateNorDescriptor)
{
    follow();
    receiver->then = [this] { monitor.reset(); };
    append("last");
    EXPECT_EQ(delivered(), Texts{"last"});
    append("unheard");
    EXPECT_EQ(delivered(), Texts{});

    follow();
    receiver.reset();
    append("to nobody");
    Platform::RunLoop::main().drain();
    const auto before = Tests::openDescriptors();
    for (int i = 0; i < 10; ++i) FileMonitor::create(Platform::Url::fromPath(path));
    EXPECT_EQ(Tests::openDescriptors(), before);
}

// From now on the kernel answers this call of the thread with the error. A limit of descriptors would hit the
// sanitizers as well, which open some themselves.
void refuseInThisThread(std::uint32_t systemCall, std::uint32_t error)
{
    sock_filter steps[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                           BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, systemCall, 0, 1),
                           BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error),
                           BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog program{std::size(steps), steps};
    ASSERT_EQ(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
    ASSERT_EQ(::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0);
}

TEST_F(FileMonitorTest, WhatCannotBeOpenedOrWatchedIsAnErrorWithItsReason)
{
    const auto codeOf = [](const std::string& name) {
        try {
            FileMonitor::create(Platform::Url::fromPath(name));
        } catch (const FileMonitorError& failure) {
            EXPECT_EQ(failure.what(), failure.error().message());
            return failure.error().code;
        }
        return 0;
    };
    EXPECT_EQ(codeOf(folder / "missing"), ENOENT);
    EXPECT_EQ(codeOf(folder.path()), EISDIR);
    std::thread([&] {
        refuseInThisThread(SYS_inotify_init1, EMFILE);
        EXPECT_EQ(codeOf(path), EMFILE);
    }).join();
    EXPECT_EQ(codeOf(path), 0);
}

}  // namespace
}  // namespace Lorrel
