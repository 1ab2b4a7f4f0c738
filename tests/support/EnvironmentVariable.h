#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace Tests {

// A variable of the real environment for a scope, for what reads it past
// Platform::Environment: system libraries and child processes. The former
// value comes back at the end. Thread: main, while no other thread runs.
class EnvironmentVariable {
public:
    // Without a value the variable is unset.
    EnvironmentVariable(std::string name, const std::optional<std::string>& value) : name_(std::move(name))
    {
        if (const char* current = std::getenv(name_.c_str())) previous_ = current;
        assign(value);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() { assign(previous_); }

private:
    void assign(const std::optional<std::string>& value) const
    {
        value ? ::setenv(name_.c_str(), value->c_str(), 1) : ::unsetenv(name_.c_str());
    }

    const std::string name_;
    std::optional<std::string> previous_;
};

}  // namespace Tests
