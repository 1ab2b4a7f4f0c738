#include "platform/session/internal/LinuxWorkspace.h"

#include <algorithm>
#include <csignal>
#include <tuple>

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/bundle/Bundle.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Log.h"
#include "platform/session/internal/DetachedProgram.h"
#include "platform/session/internal/FileBrowser.h"
#include "platform/session/internal/OpenLock.h"
#include "platform/session/internal/ProgramInPath.h"

namespace Platform {

namespace {

// By number: the C library's header of these two is not fit for C++.
FileDescriptor openProcess(pid_t process)
{
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

bool sendSignal(const FileDescriptor& process, int number)
{
    return ::syscall(SYS_pidfd_send_signal, process.get(), number, nullptr, 0) == 0;
}

bool hasEnded(const FileDescriptor& process)
{
    pollfd state{process.get(), POLLIN, 0};
    return !process || ::poll(&state, 1, 0) != 0;
}

Error notAnApplication(const Url& url)
{
    return {"open", url.absoluteString(), 0, "not an application"};
}

}  // namespace

LinuxWorkspace::LinuxWorkspace() : processes_(SystemRoots::shared().proc()) {}

// The one rule of what is an application's process; cheapest questions first,
// since most processes are none.
std::optional<LinuxWorkspace::Candidate> LinuxWorkspace::candidate(pid_t process)
{
    ProcessFolder::Buffer buffer;
    const auto executable = processes_.executable(process, buffer);
    if (!executable) return std::nullopt;
    auto bundlePath = innermostPackage(*executable);
    if (!bundlePath || !processes_.isOwn(process)) return std::nullopt;
    const ApplicationFacts* facts = registry_.factsOf(*bundlePath);
    if (!facts || facts->executable != *executable) return std::nullopt;
    return Candidate{facts, std::move(*bundlePath)};
}

bool LinuxWorkspace::hasIdentifier(pid_t process, std::string_view bundleIdentifier)
{
    const auto found = candidate(process);
    return found && found->facts->bundleIdentifier == bundleIdentifier;
}

std::vector<RunningApplication> LinuxWorkspace::runningApplications()
{
    const auto isEarlier = [](const RunningApplication& a, const RunningApplication& b) {
        return std::tuple(a.startTime(), a.processIdentifier()) < std::tuple(b.startTime(), b.processIdentifier());
    };
    std::vector<RunningApplication> applications;
    const std::lock_guard lock(mutex_);
    processes_.anyProcess([&](pid_t process) {
        const auto found = candidate(process);
        const auto start = found ? processes_.startTime(process) : std::nullopt;
        if (!start) return false;
        RunningApplication one(process, *start, found->facts->bundleIdentifier, Url::fromPath(found->bundlePath, true),
                               Url::fromPath(found->facts->executable, false));
        // Nearly always at the end: later processes mostly have higher numbers.
        applications.insert(std::ranges::upper_bound(applications, one, isEarlier), std::move(one));
        return false;
    });
    return applications;
}

bool LinuxWorkspace::isRunning(std::string_view bundleIdentifier)
{
    const std::string identifier(bundleIdentifier);
    const std::lock_guard lock(mutex_);
    if (isSeenRunning(identifier)) return true;
    return processes_.anyProcess([&](pid_t process) {
        if (!hasIdentifier(process, identifier)) return false;
        seen_[identifier] = {process, openProcess(process)};
        return true;
    });
}

// The same rule asked of one process. While its descriptor says that it lives,
// its number cannot have passed to another.
bool LinuxWorkspace::isSeenRunning(const std::string& bundleIdentifier)
{
    const auto seen = seen_.find(bundleIdentifier);
    if (seen == seen_.end()) return false;
    if (!hasEnded(seen->second.descriptor) && hasIdentifier(seen->second.process, bundleIdentifier)) return true;
    seen_.erase(seen);
    return false;
}

bool LinuxWorkspace::terminate(const RunningApplication& application)
{
    const pid_t number = application.processIdentifier();
    if (number <= 0) return false;
    const FileDescriptor process = openProcess(number);
    ProcessFolder::Buffer buffer;
    const bool isSame = process && processes_.startTime(number) == application.startTime();
    if (!isSame || !processes_.executable(number, buffer)) return false;  // what is ending has no program
    return sendSignal(process, SIGTERM);
}

std::optional<RunningApplication> LinuxWorkspace::runningOf(const ApplicationFacts& facts, const Url& bundle)
{
    for (auto& running : runningApplications()) {
        const bool isSame = facts.bundleIdentifier ? running.bundleIdentifier() == facts.bundleIdentifier
                                                   : running.bundleUrl().path() == bundle.path();
        if (isSame) return std::move(running);
    }
    return std::nullopt;
}

Result<RunningApplication> LinuxWorkspace::openApplication(const Url& application,
                                                           const OpenConfiguration& configuration)
{
    // The kernel names programs by their real paths.
    const Url bundle = application.resolvingSymlinksInPath();
    std::optional<ApplicationFacts> facts;
    {
        const std::lock_guard lock(mutex_);
        const auto* found = application.isFileUrl() ? registry_.factsOf(bundle.path()) : nullptr;
        if (!found) return notAnApplication(application);
        facts = *found;
    }
    // Held until the program executes, and so is listed as running: the started
    // process inherits the lock and closes it by executing. Who runs is asked
    // under the lock only: an answer from before would have to be asked again.
    const auto lock = takeOpenLock(facts->bundleIdentifier.value_or(bundle.path()));
    if (!lock) return lock.error();
    if (auto running = runningOf(*facts, bundle)) return std::move(*running);

    const auto process = startDetached({facts->executable, configuration.arguments});
    if (!process) return process.error();
    return RunningApplication(*process, processes_.startTime(*process).value_or(0), facts->bundleIdentifier,
                              Url::fromPath(bundle.path(), true), Url::fromPath(facts->executable, false));
}

Result<void> LinuxWorkspace::openURL(const Url& url)
{
    const auto opener = programInPath("xdg-open");
    if (!opener) return Error{"find", "xdg-open", 0, "no such program in PATH"};
    const auto process = startDetached({*opener, {url.absoluteString()}});
    return process ? Result<void>() : Result<void>(process.error());
}

Result<void> LinuxWorkspace::selectFile(const std::string& path, const std::string& root)
{
    const auto openRoot = [this, root]() -> Result<void> {
        if (root.empty()) return Error{"reveal", root, 0, "it lies in no folder"};
        return openURL(Url::fromPath(root, true));
    };
    const auto openRootInstead = [openRoot](const Error& refusal) {
        log("File browser: " + refusal.message());
        if (const auto opened = openRoot(); !opened) log("File browser: " + opened.error().message());
    };
    return showInFileBrowser(Url::fromPath(path), openRootInstead) ? Result<void>() : openRoot();
}

}  // namespace Platform
