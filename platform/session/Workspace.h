#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/Result.h"
#include "platform/runtime/Url.h"
#include "platform/session/RunningApplication.h"

namespace Platform {

// How an application is opened. The default gives it no arguments.
struct OpenConfiguration {
    std::vector<std::string> arguments = {};
};

// The user's session: the applications that run in it, and opening more.
// Thread: any; meant for the main thread.
class Workspace {
public:
    static Workspace& shared();
    virtual ~Workspace() = default;

    // In the order of their start.
    virtual std::vector<RunningApplication> runningApplications() = 0;
    // Whether some running application has exactly this bundle identifier.
    // Fast for one that was seen running before.
    virtual bool isRunning(std::string_view bundleIdentifier) = 0;
    // The first of runningApplications() with exactly this bundle identifier.
    std::optional<RunningApplication> firstRunning(std::string_view bundleIdentifier);

    // See RunningApplication::terminate().
    virtual bool terminate(const RunningApplication& application) = 0;

    // Starts the application of the bundle at a file location, as a process
    // that outlives this one. One that runs already (its identifier does; or,
    // without identifier, its bundle) is answered instead of started again,
    // also when several programs open it at once. Returns once it executes, at most 10 s later.
    virtual Result<RunningApplication> openApplication(const Url& application,
                                                       const OpenConfiguration& configuration = {}) = 0;

    // Hands the location to the desktop's preferred program for it; succeeds
    // once that hand-over has started.
    virtual Result<void> openURL(const Url& url) = 0;

    // Shows the entry, selected, in a file browser; without one that can select,
    // opens the root (its folder). Succeeds once the request has left; what the
    // browser refuses is logged. Thread: main.
    virtual Result<void> selectFile(const std::string& path, const std::string& root) = 0;
};

}  // namespace Platform
