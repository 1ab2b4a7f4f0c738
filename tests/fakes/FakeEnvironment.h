#pragma once

#include <map>

#include "platform/runtime/Environment.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// A session with just the variables, home and account that a test gives it.
// Set it up before threads start.
class FakeEnvironment final : public Platform::Environment {
public:
    explicit FakeEnvironment(std::string home = "/home/ada", std::string user = "ada")
        : home_(std::move(home)), user_(std::move(user))
    {
    }

    std::optional<std::string> variable(const std::string& name) const override
    {
        const auto found = variables_.find(name);
        if (found == variables_.end()) return std::nullopt;
        return found->second;
    }
    std::string homeDirectory() const override { return home_; }
    std::string userName() const override { return user_; }

    void set(const std::string& name, std::string value) { variables_[name] = std::move(value); }
    void setHome(std::string path) { home_ = std::move(path); }

private:
    std::map<std::string, std::string> variables_;
    std::string home_;
    std::string user_;
};

using ReplacedEnvironment = Replaced<Platform::Environment, FakeEnvironment>;

// The system's folders moved below a folder of the test ("ROOT/proc", "ROOT/sys", ...).
class FakeSystemRoots final : public Platform::SystemRoots {
public:
    explicit FakeSystemRoots(std::string root) : root_(std::move(root)) {}

    std::string proc() const override { return root_ + "/proc"; }
    std::string sys() const override { return root_ + "/sys"; }
    std::string etc() const override { return root_ + "/etc"; }
    std::string applications() const override { return root_ + "/Applications"; }
    std::string system() const override { return root_ + "/System"; }
    std::string library() const override { return root_ + "/Library"; }

private:
    std::string root_;
};

using ReplacedSystemRoots = Replaced<Platform::SystemRoots, FakeSystemRoots>;

}  // namespace Tests
