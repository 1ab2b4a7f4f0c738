#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/session/internal/LinuxWorkspace.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/ApplicationBundle.h"
#include "tests/support/Eventually.h"

using Platform::LinuxWorkspace;
using Platform::Url;
using Platform::Workspace;

namespace {

bool appears(const std::string& path)
{
    return Tests::eventually([&] { return ::access(path.c_str(), F_OK) == 0; });
}

// Processes written down by the test instead of the kernel's.
class WrittenProcesses : public testing::Test {
protected:
    void addProcess(int process, const std::string& link, int startTime = 1)
    {
        const std::string base = "proc/" + std::to_string(process);
        folder.write(base + "/stat", std::to_string(process) + " (na) me) S 1 1 1 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 " +
                                         std::to_string(startTime) + " 0 0\n");
        if (link.empty()) {
            folder.write(base + "/exe", "cannot be read as a link");
        } else {
            std::filesystem::create_symlink(link, folder / (base + "/exe"));
        }
    }

    std::string addApplication(const std::string& name, const std::string& identifier)
    {
        return Tests::makeApplication(folder, name, identifier, "");
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

    Tests::TemporaryDirectory folder;
    Tests::ReplacedEnvironment environment;
    LinuxWorkspace workspace;
};

// What the fake session has to do like the real one.
class WorkspaceContract : public RealProcesses, public testing::WithParamInterface<bool> {
protected:
    Url installBoth(const std::string& name, const std::optional<std::string>& identifier)
    {
        fake->install(folder / name, identifier);
        return install(name, identifier);
    }

    std::shared_ptr<Tests::FakeWorkspace> fake = std::make_shared<Tests::FakeWorkspace>();
    Platform::Shared<Workspace>::Override replaced{GetParam() ? nullptr : fake};
    Workspace& session = Workspace::shared();
};
INSTANTIATE_TEST_SUITE_P(FakeAndReal, WorkspaceContract, testing::Bool());

}  // namespace

TEST_P(WorkspaceContract, AnOpenedApplicationRunsOnceUntilItIsTerminated)
{
    for (const auto& identifier : {std::optional<std::string>("org.example.a"), std::optional<std::string>()}) {
        const Url url = installBoth(identifier ? "A.app" : "Nameless.app", identifier);
        EXPECT_FALSE(session.isRunning("org.example.a"));
        const auto opened = session.openApplication(url);
        ASSERT_TRUE(opened) << opened.error().message();
        EXPECT_EQ(*session.openApplication(url), *opened);
        for (int i = 0; i < 2; ++i) EXPECT_EQ(session.isRunning("org.example.a"), identifier.has_value());
        EXPECT_FALSE(session.isRunning("org.example.A"));
        EXPECT_EQ(session.firstRunning("org.example.a"), identifier ? std::optional(*opened) : std::nullopt);

        EXPECT_TRUE(opened->terminate());
        EXPECT_TRUE(Tests::eventually([&] { return !opened->terminate() && !session.isRunning("org.example.a"); }));
    }
}

TEST_P(WorkspaceContract, ListsApplicationsInTheOrderOfTheirStart)
{
    std::vector<std::string> expected, listed;
    for (const char* name : {"Z.app", "A b.app", "M'\"%41\né.app"}) {
        const Url url = installBoth(name, std::string("org.example.") + name[0]);
        ASSERT_TRUE(session.openApplication(url));
        expected.push_back(url.path());
    }
    for (const auto& running : session.runningApplications()) {
        const std::string path = running.bundleUrl().path();
        if (path.starts_with(folder.path())) listed.push_back(path);
    }
    EXPECT_EQ(listed, expected);
}

TEST_P(WorkspaceContract, WhatIsNoApplicationIsRefused)
{
    for (const char* text : {"file:///missing/X.app", "file:///", "https://example.org/X.app"}) {
        EXPECT_EQ(session.openApplication(*Url::parse(text)).error().reason, "not an application");
    }
}

TEST_F(WrittenProcesses, OnlyTheNamedExecutableOfTheInnermostBundleCounts)
{
    const std::string outer = addApplication("Outer.app", "org.example.outer");
    const std::string inner = addApplication("Outer.app/Contents/Library/LoginItems/Inner.app", "org.example.inner");
    folder.write("NoInfo.app/Contents/MacOS/Program", "");
    folder.write("Empty.app/Contents/Info.plist", "");
    addProcess(10, outer, 30);
    addProcess(11, inner, 20);
    addProcess(12, outer + " (deleted)", 20);
    addProcess(13, folder / "Outer.app/Contents/MacOS/helper");
    addProcess(14, folder / "NoInfo.app/Contents/MacOS/Program");
    addProcess(15, folder / "Empty.app/Contents/MacOS/Program");
    addProcess(16, "");
    addProcess(17, "/usr/bin/plain");
    folder.makeFolder("proc/18");
    folder.write("proc/self/exe", "");

    EXPECT_EQ(listed(), (std::vector<int>{11, 12, 10}));
    LinuxWorkspace workspace;
    EXPECT_TRUE(workspace.isRunning("org.example.inner"));
    EXPECT_FALSE(workspace.isRunning(""));
    EXPECT_EQ(workspace.firstRunning("org.example.outer")->processIdentifier(), 12);
}

TEST_F(WrittenProcesses, ThoseThatVanishDuringTheScanAreSkippedAndTheOthersFound)
{
    const std::string program = addApplication("A.app", "org.example.a");
    for (int process = 1; process <= 300; ++process) addProcess(process, process % 3 == 0 ? "" : program, process);
    std::atomic<bool> isDone = false;
    std::thread reaper([&] {
        for (int process = 2; process <= 300; process += 2) {
            std::filesystem::remove_all(folder / ("proc/" + std::to_string(process)));
        }
        isDone = true;
    });
    std::vector<int> stay;
    for (int process = 1; process <= 300; process += 2) {
        if (process % 3 != 0) stay.push_back(process);
    }
    do {
        auto found = listed();
        std::erase_if(found, [](int process) { return process % 2 == 0; });
        EXPECT_EQ(found, stay);
    } while (!isDone);
    reaper.join();
    EXPECT_EQ(listed(), stay);
}

TEST_F(WrittenProcesses, AnUnchangedBundleIsNotReadAgainAChangedOneIs)
{
    addProcess(10, addApplication("A.app", "org.example.a"));
    LinuxWorkspace workspace;
    EXPECT_TRUE(workspace.isRunning("org.example.a"));

    const std::string info = folder / "A.app/Contents/Info.plist";
    struct stat before {};
    ASSERT_EQ(::stat(info.c_str(), &before), 0);
    std::string content = Tests::contentOf(info);
    content.replace(content.find("org.example.a"), 13, "org.example.b");
    folder.write("A.app/Contents/Info.plist", content);
    const timespec times[2] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, info.c_str(), times, 0), 0);
    EXPECT_TRUE(workspace.isRunning("org.example.a"));

    const timespec later[2] = {before.st_atim, {before.st_mtim.tv_sec + 1, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, info.c_str(), later, 0), 0);
    EXPECT_FALSE(workspace.isRunning("org.example.a"));
    EXPECT_TRUE(workspace.isRunning("org.example.b"));
}

TEST_F(RealProcesses, ManyOpensAtOnceStartOne)
{
    const Url url = install("A.app", "org.example.a");
    std::atomic<int> granted = 0;
    std::vector<std::thread> openers;
    for (int i = 0; i < 8; ++i) {
        openers.emplace_back([&] { granted += LinuxWorkspace().openApplication(url, {}).isSuccess(); });
    }
    for (auto& opener : openers) opener.join();
    EXPECT_EQ(granted, 8);
    EXPECT_EQ(mine().size(), 1U);
}

TEST_F(RealProcesses, AHangingStarterHoldsOthersUpForABoundedTimeAMissingLockFolderNobody)
{
    const Url url = install("A.app", "org.example.a");
    ASSERT_TRUE(workspace.openApplication(url, {}));
    for (const auto& running : mine()) ::kill(running.processIdentifier(), SIGKILL);
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        if (entry.path().extension() != ".lock") continue;
        const Platform::FileDescriptor held(::open(entry.path().c_str(), O_RDWR | O_CLOEXEC));
        ASSERT_EQ(::flock(held.get(), LOCK_EX | LOCK_NB), 0);
        ASSERT_TRUE(Tests::eventually([&] { return mine().empty(); }));
        EXPECT_EQ(workspace.openApplication(url, {}).error().code, ETIMEDOUT);
    }
    const Tests::ReplacedLog log;
    environment->set("XDG_RUNTIME_DIR", "/missing");
    EXPECT_TRUE(workspace.openApplication(url, {})) << "without a lock";
    EXPECT_EQ(mine().size(), 1U);
    EXPECT_EQ(log->messages().size(), 1U);
}

TEST_F(RealProcesses, TheStartedProgramInheritsNothing)
{
    const Platform::FileDescriptor leaky(::open("/dev/null", O_RDONLY));
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    const auto previous = ::signal(SIGUSR2, SIG_IGN);

    const std::string report = folder / "report";
    const auto opened = workspace.openApplication(install("A.app", "org.example.a"), {{report}});
    ::signal(SIGUSR2, previous);
    ::pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    ASSERT_TRUE(opened && appears(report));

    const std::string text = Tests::contentOf(report);
    EXPECT_NE(text.find("descriptors: 3\n"), std::string::npos) << text;
    EXPECT_NE(text.find("SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n"), std::string::npos) << text;
    EXPECT_EQ(text.find("session: " + std::to_string(::getsid(0)) + "\n"), std::string::npos) << text;
    EXPECT_EQ(text.find("parent: " + std::to_string(::getpid()) + "\n"), std::string::npos) << text;
}

TEST_F(RealProcesses, WhatCannotBeExecutedIsReported)
{
    const Url url = install("A.app", "org.example.a");
    const std::string program = url.path() + "/Contents/MacOS/Program";
    ASSERT_EQ(::chmod(program.c_str(), 0600), 0);
    EXPECT_EQ(workspace.openApplication(url, {}).error().code, EACCES);
    ::unlink(program.c_str());
    EXPECT_EQ(workspace.openApplication(url, {}).error().code, ENOENT);
}

TEST_F(RealProcesses, AReplacedExecutableStillCountsAndALinkedBundleIsTheSame)
{
    const Url url = install("A.app", "org.example.a");
    const Url link = Url::fromPath(folder / "Link.app", true);
    std::filesystem::create_directory_symlink(url.path(), link.path());
    const auto opened = workspace.openApplication(link, {});
    ASSERT_TRUE(opened);
    EXPECT_TRUE(workspace.isRunning("org.example.a"));

    const std::string program = url.path() + "/Contents/MacOS/Program";
    std::filesystem::copy_file(program, program + ".new");
    std::filesystem::rename(program + ".new", program);
    EXPECT_TRUE(workspace.isRunning("org.example.a"));
    EXPECT_TRUE(LinuxWorkspace().isRunning("org.example.a"));
    EXPECT_EQ(*workspace.openApplication(url, {}), *opened);
}

TEST_F(RealProcesses, NobodyElseIsTerminatedInPlaceOfOneThatEnded)
{
    const auto opened = workspace.openApplication(install("A.app", "org.example.a"), {});
    ASSERT_TRUE(opened);
    const Url nowhere = Url::fromPath("/", true);
    for (const auto& [process, start] : {std::pair{opened->processIdentifier(), opened->startTime() + 1},
                                         {pid_t{0}, std::uint64_t{0}},
                                         {pid_t{-1}, std::uint64_t{0}}}) {
        EXPECT_FALSE(workspace.terminate({process, start, std::nullopt, nowhere, nowhere}));
    }
    EXPECT_EQ(mine().size(), 1U);
}

TEST_F(RealProcesses, URLsReachTheDesktopsOpenerUnchanged)
{
    const std::string opener = folder.write("bin/xdg-open",
                                            "#!/bin/sh\nprintf %s \"$1\" > \"$0.part\"\n"
                                            "/bin/mv \"$0.part\" \"$0.out\"\n");
    environment->set("PATH", "::relative:/missing:" + folder / "bin");
    EXPECT_FALSE(workspace.openURL(*Url::parse("a:b"))) << "not executable, and no other in PATH";
    ::chmod(opener.c_str(), 0755);
    for (const auto& url : {*Url::parse("x-apple.systempreferences:com.example.pane?Privacy_A%20b&c='d'"),
                            Url::fromPath("/tmp/a b%é", true)}) {
        ASSERT_TRUE(workspace.openURL(url));
        ASSERT_TRUE(appears(opener + ".out"));
        EXPECT_EQ(Tests::contentOf(opener + ".out"), url.absoluteString());
        ::unlink((opener + ".out").c_str());
    }
}
