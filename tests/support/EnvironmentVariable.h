#pragma once

#include <optional>
#include <string>

namespace Tests {

// A variable of the real environment for a scope, for what reads it past
// Platform::Environment: system libraries and child processes. The former
// value comes back at the end. Thread: main, while no other thread runs.
class EnvironmentVariable {
public:
    // Without a value the variable is unset.
    EnvironmentVariable(std::string name, const std::optional<std::string>& value);
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable();

private:
    std::string name_;
    std::optional<std::string> previous_;
};

}  // namespace Tests
