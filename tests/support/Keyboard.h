#pragma once

#include "tests/support/ChildProcess.h"

namespace Tests {

// Runs a program that speaks to the display of DISPLAY and waits for its end; its exit code.
inline int runOnDisplay(const std::vector<std::string>& command)
{
    return ChildProcess(command).wait(std::chrono::seconds(20)).value_or(-1);
}

// Keys by symbol ("Super_L") or by the display's number ("38").
inline int pressKeys(const std::vector<std::string>& keys, const char* change = "keydown")
{
    std::vector<std::string> command{"xdotool"};
    for (const auto& key : keys) command.insert(command.end(), {change, key});
    return runOnDisplay(command);
}
inline int releaseKeys(const std::vector<std::string>& keys)
{
    return pressKeys(keys, "keyup");
}

}  // namespace Tests
