#pragma once

#include <mutex>
#include <string>
#include <unordered_map>

#include "platform/runtime/FileDescriptor.h"
#include "platform/session/Workspace.h"
#include "platform/session/internal/ApplicationRegistry.h"
#include "platform/session/internal/ProcessFolder.h"

namespace Platform {

// The workspace over /proc, process descriptors and xdg-open.
class LinuxWorkspace final : public Workspace {
public:
    LinuxWorkspace();

    std::vector<RunningApplication> runningApplications() override;
    bool isRunning(std::string_view bundleIdentifier) override;
    bool terminate(const RunningApplication& application) override;
    Result<RunningApplication> openApplication(const Url& application, const OpenConfiguration& configuration) override;
    Result<void> openURL(const Url& url) override;
    Result<void> selectFile(const std::string& path, const std::string& root) override;

private:
    // A process that was seen to be an application's.
    struct Seen {
        pid_t process = 0;
        FileDescriptor descriptor;
    };
    struct Candidate {
        const ApplicationFacts* facts;
        std::string bundlePath;
    };

    std::optional<Candidate> candidate(pid_t process);
    bool hasIdentifier(pid_t process, std::string_view bundleIdentifier);
    bool isSeenRunning(const std::string& bundleIdentifier);
    std::optional<RunningApplication> runningOf(const ApplicationFacts& facts, const Url& bundle);

    ProcessFolder processes_;
    std::mutex mutex_;  // guards the two below
    ApplicationRegistry registry_;
    std::unordered_map<std::string, Seen> seen_;
};

}  // namespace Platform
