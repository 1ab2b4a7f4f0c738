#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {
class Timer;
}

namespace Lorrel {

// Receives the reports of an AppRunnerMonitor.
class AppRunnerMonitorDelegate {
public:
    virtual ~AppRunnerMonitorDelegate() = default;

    virtual void monitorDidCheck(std::string_view bundleIdentifier, bool isRunning) = 0;
};

// Looks at a fixed interval which applications of a list are running, and
// reports every one of them each time, in the order of the list, changed or
// not. One look costs one reading of the running applications, whatever the
// length of the list. While it is started, its timer keeps it alive.
// Thread: the one that starts it; reports arrive there, through its run loop.
class AppRunnerMonitor : public std::enable_shared_from_this<AppRunnerMonitor> {
public:
    // Stopped. The interval is in seconds.
    static std::shared_ptr<AppRunnerMonitor> create(std::vector<std::string> identifiers, double interval);

    const std::vector<std::string>& identifiers() const { return identifiers_; }
    double interval() const { return interval_; }

    // Held weakly.
    std::shared_ptr<AppRunnerMonitorDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::weak_ptr<AppRunnerMonitorDelegate>& delegate) { delegate_ = delegate; }

    // The first report comes one interval later. Started twice is started once.
    void start();
    void stop();
    // One look, at once.
    void refresh();

private:
    AppRunnerMonitor(std::vector<std::string> identifiers, double interval);

    std::shared_ptr<Platform::Timer> timer_;
    const std::vector<std::string> identifiers_;
    const double interval_;
    std::weak_ptr<AppRunnerMonitorDelegate> delegate_;
};

}  // namespace Lorrel
