#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Lorrel {

// What a shell command answered. A value.
class ShellOutput {
public:
    // All of its standard output; absent when that is no UTF-8, or nothing ran.
    const std::optional<std::string>& output() const { return output_; }
    void setOutput(std::optional<std::string> output) { output_ = std::move(output); }
    // The exit code, or the number of the signal that ended it.
    std::int32_t exitCode() const { return exitCode_; }
    void setExitCode(std::int32_t code) { exitCode_ = code; }
    // True when it ended by itself, not by a signal.
    bool didExit() const { return didExit_; }
    void setDidExit(bool didExit) { didExit_ = didExit; }

private:
    std::optional<std::string> output_;
    std::int32_t exitCode_ = 0;
    bool didExit_ = false;
};

}  // namespace Lorrel
