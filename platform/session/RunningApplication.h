#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <sys/types.h>

#include "platform/runtime/Url.h"

namespace Platform {

// An application that ran when the workspace was asked: a process of this user
// whose program is the executable of a bundle. A value; it may have ended since.
class RunningApplication {
public:
    RunningApplication(pid_t process, std::uint64_t startTime, std::optional<std::string> bundleIdentifier,
                       Url bundleUrl, Url executableUrl)
        : process_(process),
          startTime_(startTime),
          bundleIdentifier_(std::move(bundleIdentifier)),
          bundleUrl_(std::move(bundleUrl)),
          executableUrl_(std::move(executableUrl))
    {
    }

    pid_t processIdentifier() const { return process_; }
    // In clock ticks since the machine's start; with the process identifier it
    // names the process for good.
    std::uint64_t startTime() const { return startTime_; }
    const std::optional<std::string>& bundleIdentifier() const { return bundleIdentifier_; }
    const Url& bundleUrl() const { return bundleUrl_; }
    const Url& executableUrl() const { return executableUrl_; }

    // Asks it to quit, which it may refuse. False when the request could not be
    // delivered: it has ended, or its process identifier is another's by now.
    bool terminate() const;

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;

private:
    pid_t process_;
    std::uint64_t startTime_;
    std::optional<std::string> bundleIdentifier_;
    Url bundleUrl_;
    Url executableUrl_;
};

}  // namespace Platform
