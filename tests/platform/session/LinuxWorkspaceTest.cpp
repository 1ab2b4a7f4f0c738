#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/session/internal/LinuxWorkspace.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/ApplicationBundle.h"
#include "tests/support/Eventually.h"

using Platform::FileDescriptor;
using Platform::LinuxWorkspace;
using Platform::Url;
using Platform::Workspace;
using Tests::eventually;

namespace {

// Processes written down by the test instead of the kernel's.
class WrittenProcesses : public testing::Test {
protected:
    void addProcess(int process, const std::string& link, int startTime = 1)
    {
        const std::string base = "proc/" + std::to_string(process);
        folder.write(base + "/stat", std::to_string(process) + " (na) me) S 1 1 1 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 " +
                                         std::to_string(startTime) + " 0 0\n");
        std::filesystem::create_symlink(link, folder / (base + "/exe"));
    }

    std::vector<int> listed()
    {
        std::vector<int> processes;
        for (const auto& running : LinuxWorkspace().runningApplications()) {
            processes.push_back(running.processIdentifier());
        }
        return processes;
    }

    Tests::TemporaryDirectory folder;
    Tests::ReplacedSystemRoots roots{folder.path()};
};

// Real bundles in a folder of the test, whose processes end with it.
class RealProcesses : public testing::Test {
protected:
    RealProcesses() { environment->set("XDG_RUNTIME_DIR", folder.path()); }
    ~RealProcesses() override
    {
        for (const auto& running : mine()) ::kill(running.processIdentifier(), SIGKILL);
    }

    std::vector<Platform::RunningApplication> mine()
    {
        auto running = LinuxWorkspace().runningApplications();
        std::erase_if(running, [&](const auto& one) { return !one.bundleUrl().path().starts_with(folder.path()); });
        return running;
    }

    Url install(const std::string& name, const std::optional<std::string>& identifier)
    {
        Tests::makeApplication(folder, name, identifier, Tests::contentOf(WAITING_APPLICATION));
        return Url::fromPath(folder / name);
    }

    // The machine's processes are everybody's: other runs of this test are among them.
    const std::string own = "org.example.a" + std::to_string(::getpid());
    Tests::TemporaryDirectory folder;
    Tests::ReplacedEnvironment environment;
    LinuxWorkspace linux;
    Workspace& workspace = linux;
};

// What the fake session has to do like the real one.
class WorkspaceContract : public RealProcesses, public testing::WithParamInterface<bool> {
protected:
    Tests::FakeWorkspace fake;
    Workspace& session = GetParam() ? fake : workspace;
};
INSTANTIATE_TEST_SUITE_P(RealAndFake, WorkspaceContract, testing::Bool());

}  // namespace

TEST_P(WorkspaceContract, AnOpenedApplicationRunsOnceUntilItIsTerminated)
{
    for (const auto& identifier : {std::optional(own), std::optional<std::string>()}) {
        const std::string name = identifier ? "A b'\"%41\n\xc3\xa9.app" : "Nameless.app";
        fake.install(folder / name, identifier);
        const Url url = install(name, identifier);
        EXPECT_FALSE(session.isRunning(own));
        const auto opened = session.openApplication(url);
        ASSERT_TRUE(opened) << opened.error().message();
        EXPECT_EQ(*session.openApplication(url), *opened);
        for (int i = 0; i < 2; ++i) EXPECT_EQ(session.isRunning(own), identifier.has_value());
        EXPECT_FALSE(session.isRunning("O" + own.substr(1)));
        EXPECT_EQ(session.firstRunning(own), identifier ? std::optional(*opened) : std::nullopt);

        const int process = opened->processIdentifier();
        EXPECT_FALSE(session.terminate({process, opened->startTime() + 1, identifier, url, url})) << "one that ended";
        EXPECT_TRUE(session.terminate(*opened));
        EXPECT_TRUE(eventually([&] { return !session.terminate(*opened) && !session.isRunning(own); }));
    }
}

TEST_F(WrittenProcesses, OnlyTheNamedExecutableOfTheInnermostBundleCounts)
{
    const std::string inside = "Outer.app/Contents/Library/LoginItems/Inner.app";
    const std::string outer = Tests::makeApplication(folder, "Outer.app", "org.example.outer", "");
    const std::string inner = Tests::makeApplication(folder, inside, "org.example.inner", "");
    folder.write("NoInfo.app/Contents/MacOS/Program", "");
    folder.write("Empty.app/Contents/Info.plist", "");
    addProcess(10, outer, 30);
    addProcess(11, inner, 20);
    addProcess(12, outer + " (deleted)", 20);
    addProcess(13, folder / "Outer.app/Contents/MacOS/helper");
    addProcess(14, folder / "NoInfo.app/Contents/MacOS/Program");
    addProcess(15, folder / "Empty.app/Contents/MacOS/Program");
    folder.write("proc/16/exe", "cannot be read as a link");
    addProcess(17, "/usr/bin/plain");
    folder.makeFolder("proc/18");
    folder.write("proc/self/exe", "");

    EXPECT_EQ(listed(), (std::vector<int>{11, 12, 10}));
    LinuxWorkspace workspace;
    EXPECT_EQ(workspace.firstRunning("org.example.outer")->processIdentifier(), 12);
    EXPECT_TRUE(workspace.isRunning("org.example.inner"));
    EXPECT_FALSE(workspace.isRunning(""));
    Tests::makeApplication(folder, inside, "org.example.renamed", "");
    EXPECT_FALSE(workspace.isRunning("org.example.inner")) << "the bundle was changed";
}

TEST_F(WrittenProcesses, ThoseThatVanishDuringTheScanAreSkippedAndTheOthersFound)
{
    const std::string program = Tests::makeApplication(folder, "A.app", "org.example.a", "");
    std::vector<int> stay;
    for (int process = 1; process <= 300; ++process) {
        addProcess(process, program, process);
        if (process % 2 == 1) stay.push_back(process);
    }
    std::atomic<bool> isDone = false;
    const std::jthread reaper([&] {
        for (int process = 2; process <= 300; process += 2) {
            std::filesystem::remove_all(folder / ("proc/" + std::to_string(process)));
        }
        isDone = true;
    });
    while (!isDone) {
        auto found = listed();
        std::erase_if(found, [](int process) { return process % 2 == 0; });
        EXPECT_EQ(found, stay);
    }
    EXPECT_EQ(listed(), stay);
}

TEST_F(RealProcesses, AHangingStarterHoldsOthersUpForABoundedTimeAMissingLockFolderNobody)
{
    const Url url = install("A.app", own);
    {
        const std::string lock = folder / ("pellora-open-" + own + ".lock");
        const FileDescriptor held(::open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
        ASSERT_EQ(::flock(held.get(), LOCK_EX | LOCK_NB), 0);
        EXPECT_EQ(workspace.openApplication(url).error().code, ETIMEDOUT);
    }
    const Tests::ReplacedLog log;
    environment->set("XDG_RUNTIME_DIR", "/missing");
    EXPECT_TRUE(workspace.openApplication(url)) << "without a lock";
    EXPECT_EQ(mine().size(), 1U);
    EXPECT_EQ(log->messages().size(), 1U);
}

TEST_F(RealProcesses, TheStartedProgramInheritsNothing)
{
    const std::string report = folder / "report";
    Tests::makeApplication(folder, "A.app", own,
                           "#!/bin/sh\n"
                           "{ grep '^Sig[BI]' /proc/self/status\n"
                           "[ -e /proc/$$/fd/$2 ] && echo descriptor $2\n"
                           "[ $PPID = $3 ] && echo child\n"
                           "[ $(cut -d ' ' -f 6 /proc/$$/stat) = $4 ] && echo session $4\n"
                           "} > \"$1.part\"; mv \"$1.part\" \"$1\"\n");
    const FileDescriptor leaky(::fcntl(STDERR_FILENO, F_DUPFD, 77));
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    const auto previous = ::signal(SIGUSR2, SIG_IGN);
    const auto opened = workspace.openApplication(
        Url::fromPath(folder / "A.app"),
        {{report, std::to_string(leaky.get()), std::to_string(::getpid()), std::to_string(::getsid(0))}});
    ::signal(SIGUSR2, previous);
    ::pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    ASSERT_TRUE(opened && eventually([&] { return std::filesystem::exists(report); }));
    EXPECT_EQ(Tests::contentOf(report), "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
}

TEST_F(RealProcesses, WhatCannotBeExecutedIsReported)
{
    for (const char* text : {"file:///missing/X.app", "file:///", "https://example.org/X.app"}) {
        EXPECT_EQ(workspace.openApplication(*Url::parse(text)).error().reason, "not an application");
    }
    const Url url = install("A.app", own);
    const std::string program = url.path() + "/Contents/MacOS/Program";
    std::filesystem::permissions(program, std::filesystem::perms::owner_read);
    EXPECT_EQ(workspace.openApplication(url).error().code, EACCES);
    std::filesystem::remove(program);
    EXPECT_EQ(workspace.openApplication(url).error().code, ENOENT);
}

TEST_F(RealProcesses, AReplacedExecutableStillCountsAndALinkedBundleIsTheSame)
{
    const Url url = install("A.app", own);
    const Url link = Url::fromPath(folder / "Link.app", true);
    std::filesystem::create_directory_symlink(url.path(), link.path());
    const auto opened = workspace.openApplication(link);
    ASSERT_TRUE(opened);
    EXPECT_TRUE(workspace.isRunning(own));

    const std::string program = url.path() + "/Contents/MacOS/Program";
    std::filesystem::copy_file(program, program + ".new");
    std::filesystem::rename(program + ".new", program);
    EXPECT_TRUE(workspace.isRunning(own));
    EXPECT_TRUE(LinuxWorkspace().isRunning(own));
    EXPECT_EQ(*workspace.openApplication(url), *opened);
}
