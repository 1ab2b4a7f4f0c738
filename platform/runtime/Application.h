#pragma once

#include <functional>
#include <memory>

namespace Platform {

// What a program does when its application starts and ends. Main thread.
class ApplicationDelegate {
public:
    virtual ~ApplicationDelegate() = default;

    // Once, from the first turn of the main loop.
    virtual void applicationDidFinishLaunching() {}
    // False refuses the request to end.
    virtual bool applicationShouldTerminate() { return true; }
    virtual void applicationWillTerminate() {}
};

// The running program: its delegate, and its polite end by terminate() or by
// SIGTERM and SIGINT, which ask the delegate first. Main thread.
class Application {
public:
    static Application& shared();

    // Held weakly.
    void setDelegate(const std::weak_ptr<ApplicationDelegate>& delegate);

    // Runs the main loop until the application terminates.
    void run();
    // Ends run() unless the delegate refuses. Harmless before run(): it ends at once.
    void terminate();
    bool isTerminating() const;

    ~Application();

private:
    Application();
    struct State;
    std::unique_ptr<State> state_;
};

using DelegateFactory = std::function<std::shared_ptr<ApplicationDelegate>()>;

// The application's main routine: takes the signals, makes the delegate (which
// lives until the end) and runs. Call it first in main(), before any thread
// starts. The arguments are not read. Returns 0.
int applicationMain(int argc, char** argv, const DelegateFactory& makeDelegate);

}  // namespace Platform
