#include "platform/runtime/Application.h"

#include <csignal>
#include <vector>

#include <sys/epoll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Subscription.h"

namespace Platform {

namespace {

sigset_t endingSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return signals;
}

void drain(int signals)
{
    signalfd_siginfo information{};
    while (::read(signals, &information, sizeof information) == sizeof information) {
    }
}

// Blocks the signals that ask the program to end, for as long as it runs.
class BlockedSignals {
public:
    BlockedSignals()
    {
        const sigset_t signals = endingSignals();
        ::pthread_sigmask(SIG_BLOCK, &signals, &previous_);
    }
    ~BlockedSignals() { ::pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;

private:
    sigset_t previous_{};
};

}  // namespace

struct Application::State {
    std::weak_ptr<ApplicationDelegate> delegate;
    bool isTerminating = false;
};

Application::Application() : state_(std::make_unique<State>()) {}

Application::~Application() = default;

Application& Application::shared()
{
    return Shared<Application>::get([] { return std::unique_ptr<Application>(new Application); });
}

void Application::setDelegate(const std::weak_ptr<ApplicationDelegate>& delegate)
{
    state_->delegate = delegate;
}

void Application::run()
{
    if (state_->isTerminating) return;
    RunLoop& loop = RunLoop::main();
    const sigset_t signals = endingSignals();
    const FileDescriptor ending(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    const Subscription watch = loop.watch(ending.get(), EPOLLIN, [this, &ending](std::uint32_t) {
        drain(ending.get());
        terminate();
    });
    loop.post([this] {
        if (const auto delegate = state_->delegate.lock(); delegate && !state_->isTerminating) {
            delegate->applicationDidFinishLaunching();
        }
    });
    // A nested stop() ends one run only; the application runs on until it terminates.
    while (!state_->isTerminating) loop.run();
}

void Application::terminate()
{
    if (state_->isTerminating) return;
    const auto delegate = state_->delegate.lock();
    if (delegate && !delegate->applicationShouldTerminate()) return;
    state_->isTerminating = true;
    if (delegate) delegate->applicationWillTerminate();
    RunLoop::main().stopAll();
}

bool Application::isTerminating() const
{
    return state_->isTerminating;
}

int applicationMain(int, char**, const DelegateFactory& makeDelegate)
{
    const BlockedSignals blocked;
    const auto delegate = makeDelegate();
    Application::shared().setDelegate(delegate);
    Application::shared().run();
    return 0;
}

}  // namespace Platform
