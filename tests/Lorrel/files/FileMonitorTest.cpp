#include <filesystem>
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
#include "tests/fakes/Replaced.h"
#include "tests/support/Eventually.h"
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
        const Platform::FileDescriptor file(::open(path.c_str(), O_WRONLY | O_APPEND));
        ASSERT_EQ(::write(file.get(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    Texts delivered()
    {
        Platform::RunLoop::main().drain();
        return std::exchange(receiver->texts, {});
    }

    static long openDescriptors()
    {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    }

    Tests::TemporaryDirectory folder;
    Platform::Shared<Platform::FileSystemEvents>::Override fresh;
    std::string path = folder.write("log", "there before\n");
    std::shared_ptr<Receiver> receiver = std::make_shared<Receiver>();
    std::shared_ptr<FileMonitor> monitor;
};

TEST_F(FileMonitorTest, DeliversWhatIsAppendedAfterItsCreation)
{
    follow();
    EXPECT_EQ(delivered(), Texts{});
    append("one\n");
    EXPECT_EQ(delivered(), Texts{"one\n"});
    append("two\n");
    append("three\n");
    EXPECT_EQ(delivered(), Texts{"two\nthree\n"}) << "two appends in one delivery";
    monitor->setDelegate({});
    append("unheard");
    Platform::RunLoop::main().drain();
    monitor->setDelegate(receiver);
    append("heard");
    EXPECT_EQ(delivered(), Texts{"heard"});
}

TEST_F(FileMonitorTest, EventsWithoutGrowthAndBrokenTextDeliverNothing)
{
    follow();
    const auto size = std::filesystem::file_size(path);
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"overwritten in place",
         [&] {
             const Platform::FileDescriptor file(::open(path.c_str(), O_WRONLY));
             EXPECT_EQ(::write(file.get(), "T", 1), 1);
         }},
        {"permissions", [&] { ::chmod(path.c_str(), 0600); }},
        {"first half of a character", [&] { append("\xc3"); }},
        {"its second half", [&] { append("\xa4"); }},
        {"truncated", [&] { std::filesystem::resize_file(path, 3); }},
        {"grown to where it was", [&] { append(std::string(size - 1, 'x')); }},
    };
    for (const auto& [what, change] : rows) {
        change();
        EXPECT_EQ(delivered(), Texts{}) << what;
    }
    append("beyond");
    EXPECT_EQ(delivered(), Texts{"beyond"}) << "only what lies past the place reached before";
}

TEST_F(FileMonitorTest, StaysWithTheFileItOpened)
{
    follow();
    const Platform::FileDescriptor writer(::open(path.c_str(), O_WRONLY | O_APPEND));
    std::filesystem::rename(path, folder / "log.1");
    folder.write("log", "a new file of the old name, longer than the old one");
    EXPECT_EQ(delivered(), Texts{});
    ASSERT_EQ(::write(writer.get(), "renamed", 7), 7);
    EXPECT_EQ(delivered(), Texts{"renamed"});
    std::filesystem::remove(folder / "log.1");
    ASSERT_EQ(::write(writer.get(), "deleted", 7), 7);
    EXPECT_EQ(delivered(), Texts{"deleted"});
}

TEST_F(FileMonitorTest, BurstArrivesWholeAndOnce)
{
    follow();
    std::string expected;
    for (int i = 0; i < 5000; ++i) expected += std::to_string(10'000 + i) + "\n";
    std::thread writer([&] {
        const Platform::FileDescriptor file(::open(path.c_str(), O_WRONLY | O_APPEND));
        for (std::size_t at = 0; at < expected.size(); at += 6) ASSERT_EQ(::write(file.get(), &expected[at], 6), 6);
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

TEST_F(FileMonitorTest, OverflowOfTheEventQueueIsCaughtUpBySize)
{
    follow();
    const Platform::FileDescriptor file(::open(path.c_str(), O_WRONLY | O_APPEND));
    for (int i = 0; i < 20'000; ++i) {
        ASSERT_EQ(::write(file.get(), "x", 1), 1);
        ::fchmod(file.get(), 0600 + i % 2);
    }
    std::string received;
    for (const auto& text : delivered()) received += text;
    EXPECT_EQ(received, std::string(20'000, 'x'));
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
    const std::weak_ptr<Receiver> gone = receiver;
    receiver.reset();
    EXPECT_TRUE(gone.expired());
    append("to nobody");
    Platform::RunLoop::main().drain();
    const auto before = openDescriptors();
    for (int i = 0; i < 10; ++i) FileMonitor::create(Platform::Url::fromPath(path));
    EXPECT_EQ(openDescriptors(), before);
}

struct FullQuota final : Platform::FileSystemEvents {
    Platform::Result<Platform::Subscription> watch(int, Handler) override
    {
        return Platform::Error::fromErrno("inotify_add_watch", "x", ENOSPC);
    }
};

// From now on the kernel answers this call of the thread with the error.
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
    const auto codeOf = [](const std::string& file) {
        try {
            FileMonitor::create(Platform::Url::fromPath(file));
        } catch (const FileMonitorError& failure) {
            EXPECT_EQ(failure.what(), failure.error().message());
            return failure.error().code;
        }
        return 0;
    };
    EXPECT_EQ(codeOf(folder / "missing"), ENOENT);
    EXPECT_EQ(codeOf(folder.path()), EISDIR);
    {
        const Tests::Replaced<Platform::FileSystemEvents, FullQuota> quota;
        EXPECT_EQ(codeOf(path), ENOSPC);
    }
    std::thread([&] {
        refuseInThisThread(SYS_inotify_init1, EMFILE);
        EXPECT_EQ(codeOf(path), EMFILE);
    }).join();
    EXPECT_EQ(codeOf(path), 0);
}

}  // namespace
}  // namespace Lorrel
