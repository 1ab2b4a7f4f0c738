#include <gtest/gtest.h>
#include <signal.h>

#include "platform/session/internal/LinuxWorkspace.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/ApplicationBundle.h"
#include "tests/support/Eventually.h"

using Platform::Workspace;

namespace {

// A session in which the suite can install applications.
class Session {
public:
    virtual ~Session() = default;
    virtual Workspace& workspace() = 0;
    virtual Platform::Url install(const std::string& name, const std::optional<std::string>& identifier) = 0;
};

class FakeSession final : public Session {
public:
    Workspace& workspace() override { return *fake_; }
    Platform::Url install(const std::string& name, const std::optional<std::string>& identifier) override
    {
        return fake_->install("/Applications/" + name, identifier);
    }

private:
    Tests::ReplacedWorkspace fake_;
};

class RealSession final : public Session {
public:
    RealSession() { environment_->set("XDG_RUNTIME_DIR", folder_.path()); }
    ~RealSession() override
    {
        for (const auto& running : workspace_->runningApplications()) {
            const bool isOurs = running.bundleUrl().path().starts_with(folder_.path());
            if (isOurs) ::kill(running.processIdentifier(), SIGKILL);
        }
    }
    Workspace& workspace() override { return *workspace_; }
    Platform::Url install(const std::string& name, const std::optional<std::string>& identifier) override
    {
        return Platform::Url::fromPath(Tests::makeApplication(folder_, name, identifier, WAITING_APPLICATION));
    }

private:
    Tests::TemporaryDirectory folder_;
    Tests::ReplacedEnvironment environment_;
    Tests::Replaced<Workspace, Platform::LinuxWorkspace> workspace_;
};

template <typename S>
class WorkspaceContract : public testing::Test {
protected:
    S session;
    Workspace& workspace = session.workspace();
};

using Sessions = testing::Types<FakeSession, RealSession>;
TYPED_TEST_SUITE(WorkspaceContract, Sessions);

}  // namespace

TYPED_TEST(WorkspaceContract, AnOpenedApplicationRunsUntilItIsTerminated)
{
    const auto url = this->session.install("A.app", "org.example.a");
    EXPECT_FALSE(this->workspace.isRunning("org.example.a"));

    const auto opened = this->workspace.openApplication(url);
    ASSERT_TRUE(opened) << opened.error().message();
    EXPECT_TRUE(this->workspace.isRunning("org.example.a"));
    EXPECT_TRUE(this->workspace.isRunning("org.example.a")) << "the remembered answer";
    EXPECT_FALSE(this->workspace.isRunning("org.example.A"));
    EXPECT_EQ(this->workspace.firstRunning("org.example.a"), *opened);

    EXPECT_TRUE(opened->terminate());
    EXPECT_TRUE(Tests::eventually([&] { return !this->workspace.isRunning("org.example.a"); }));
    EXPECT_FALSE(opened->terminate());
}

TYPED_TEST(WorkspaceContract, OneThatRunsIsNotStartedAgain)
{
    for (const auto& identifier : {std::optional<std::string>("org.example.b"), std::optional<std::string>()}) {
        const auto url = this->session.install(identifier ? "B.app" : "Nameless.app", identifier);
        const auto first = this->workspace.openApplication(url);
        const auto second = this->workspace.openApplication(url);
        ASSERT_TRUE(first && second);
        EXPECT_EQ(*first, *second);
    }
}

TYPED_TEST(WorkspaceContract, ListsApplicationsInTheOrderOfTheirStart)
{
    std::vector<std::string> expected;
    for (const char* name : {"Z.app", "A b.app", "M'\"%41\né.app"}) {
        const auto url = this->session.install(name, std::string("org.example.") + name[0]);
        ASSERT_TRUE(this->workspace.openApplication(url));
        expected.push_back(url.path());
    }
    std::vector<std::string> listed;
    for (const auto& running : this->workspace.runningApplications()) {
        const std::string path = running.bundleUrl().path();
        if (std::count(expected.begin(), expected.end(), path) > 0) listed.push_back(path);
    }
    EXPECT_EQ(listed, expected);
}

TYPED_TEST(WorkspaceContract, WhatIsNoApplicationIsRefused)
{
    for (const char* text : {"file:///missing/X.app", "file:///", "https://example.org/X.app"}) {
        const auto opened = this->workspace.openApplication(*Platform::Url::parse(text));
        ASSERT_FALSE(opened);
        EXPECT_EQ(opened.error().reason, "not an application");
    }
}
