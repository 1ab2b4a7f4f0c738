#include "platform/runtime/RunLoop.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <map>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include "platform/runtime/Clock.h"
#include "platform/runtime/FatalError.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/internal/TimerQueue.h"

namespace Platform {

namespace {

using Handler = std::function<void(std::uint32_t)>;

constexpr std::uint64_t postSource = 0;
constexpr std::uint64_t timerSource = 1;
constexpr std::uint64_t firstWatchSource = 2;

struct Watch {
    int descriptor;
    std::shared_ptr<Handler> handler;
};

// One run() or runUntil() in progress; nested ones form a stack.
struct Run {
    bool isStopped = false;
};

FileDescriptor owned(int descriptor, std::string_view call)
{
    if (descriptor < 0) fatalError(std::string(call) + " failed", "platform/runtime/RunLoop");
    return FileDescriptor(descriptor);
}

void signal(const FileDescriptor& eventDescriptor)
{
    const std::uint64_t one = 1;
    [[maybe_unused]] auto written = ::write(eventDescriptor.get(), &one, sizeof one);
}

void clear(const FileDescriptor& counter)
{
    std::uint64_t count = 0;
    [[maybe_unused]] auto taken = ::read(counter.get(), &count, sizeof count);
}

}  // namespace

struct RunLoop::State {
    FileDescriptor epoll = owned(::epoll_create1(EPOLL_CLOEXEC), "epoll_create1");
    FileDescriptor posted = owned(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "eventfd");
    FileDescriptor alarm = owned(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK), "timerfd_create");
    std::optional<TimePoint> armedFor;

    std::mutex postMutex;
    std::deque<std::function<void()>> posts;

    std::shared_ptr<TimerQueue> timers;
    std::unordered_map<std::uint64_t, Watch> watches;
    std::map<std::uint64_t, std::shared_ptr<std::function<void()>>> hooks;
    std::uint64_t nextId = firstWatchSource;

    std::mutex runMutex;
    std::vector<Run*> runs;
    std::unique_ptr<RunLoopHost> host;

    // Outlives the loop for subscriptions that end after it.
    std::shared_ptr<State*> self = std::make_shared<State*>(this);

    State();
    ~State();
    void registerSource(const FileDescriptor& descriptor, std::uint64_t source);
    bool dispatch(std::uint64_t source, std::uint32_t events);
    bool runPost();
    bool fireTimer();
    void arm();
    void endWatch(std::uint64_t id);
};

RunLoop::State::State()
{
    registerSource(posted, postSource);
    registerSource(alarm, timerSource);
    timers = std::make_shared<TimerQueue>([weak = std::weak_ptr(self)] {
        if (const auto state = weak.lock()) signal((*state)->posted);
    });
}

RunLoop::State::~State()
{
    self.reset();
    timers->close();
}

void RunLoop::State::registerSource(const FileDescriptor& descriptor, std::uint64_t source)
{
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u64 = source;
    ::epoll_ctl(epoll.get(), EPOLL_CTL_ADD, descriptor.get(), &event);
}

bool RunLoop::State::runPost()
{
    std::function<void()> block;
    {
        std::lock_guard lock(postMutex);
        if (posts.empty()) {
            clear(posted);
            return false;
        }
        block = std::move(posts.front());
        posts.pop_front();
        if (posts.empty()) clear(posted);
    }
    block();
    return true;
}

bool RunLoop::State::fireTimer()
{
    const bool fired = timers->fireOne(Clock::shared().monotonic());
    if (!fired) {
        clear(alarm);
        armedFor.reset();
    }
    return fired;
}

// Sets the timer descriptor to the earliest due time, if that has moved.
void RunLoop::State::arm()
{
    const auto due = timers->nextDue();
    if (due == armedFor) return;
    armedFor = due;
    itimerspec alarmTime{};
    if (due) {
        // Zero would switch the descriptor off.
        const auto wait = std::max(*due - Clock::shared().monotonic(), std::chrono::nanoseconds(1));
        alarmTime.it_value.tv_sec = wait.count() / 1'000'000'000;
        alarmTime.it_value.tv_nsec = wait.count() % 1'000'000'000;
    }
    ::timerfd_settime(alarm.get(), 0, &alarmTime, nullptr);
}

bool RunLoop::State::dispatch(std::uint64_t source, std::uint32_t events)
{
    if (source == postSource) return runPost();
    if (source == timerSource) return fireTimer();
    const auto found = watches.find(source);
    if (found == watches.end()) return false;
    const auto handler = found->second.handler;
    (*handler)(events);
    return true;
}

void RunLoop::State::endWatch(std::uint64_t id)
{
    const auto found = watches.find(id);
    if (found == watches.end()) return;
    ::epoll_ctl(epoll.get(), EPOLL_CTL_DEL, found->second.descriptor, nullptr);
    watches.erase(found);
}

RunLoop& RunLoop::main()
{
    static RunLoop& loop = *new RunLoop;  // never destroyed: other threads may post to the end
    return loop;
}

RunLoop& RunLoop::current()
{
    thread_local const bool isFirstThread = ::gettid() == ::getpid();
    if (isFirstThread) return main();
    thread_local RunLoop loop;
    return loop;
}

RunLoop::RunLoop() : state_(std::make_unique<State>()) {}

RunLoop::~RunLoop() = default;

void RunLoop::run()
{
    runWhile([] { return false; }, std::nullopt);
}

bool RunLoop::runUntil(const std::function<bool()>& isDone, std::chrono::nanoseconds timeout)
{
    return runWhile(isDone, timeout);
}

namespace {

// Enters and leaves a run on the stack of runs in progress.
class RunScope {
public:
    RunScope(std::mutex& mutex, std::vector<Run*>& runs) : mutex_(mutex), runs_(runs)
    {
        std::lock_guard lock(mutex_);
        runs_.push_back(&run_);
    }
    ~RunScope()
    {
        std::lock_guard lock(mutex_);
        runs_.pop_back();
    }
    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;

    bool isStopped() const
    {
        std::lock_guard lock(mutex_);
        return run_.isStopped;
    }

private:
    std::mutex& mutex_;
    std::vector<Run*>& runs_;
    Run run_;
};

// Milliseconds for epoll_wait, rounded up; -1 waits for ever.
int waitTime(std::optional<TimePoint> deadline, TimePoint now)
{
    if (!deadline) return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - now).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
}

// The kernel's time, not the replaceable one: real waits end in real time.
TimePoint kernelTime()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

}  // namespace

bool RunLoop::runWhile(const std::function<bool()>& isDone, std::optional<std::chrono::nanoseconds> timeout)
{
    const RunScope scope(state_->runMutex, state_->runs);
    const auto isOver = [&] { return scope.isStopped() || isDone(); };
    const auto deadline = timeout ? std::optional(kernelTime() + *timeout) : std::nullopt;
    while (!isOver()) {
        // A host may also be set by a handler of this very run, which then goes on in it.
        if (state_->host) {
            const auto left = deadline ? std::optional(*deadline - kernelTime()) : std::nullopt;
            state_->host->runUntil(*this, isOver, left);
            break;
        }
        prepareToSleep();
        epoll_event event{};
        const int ready = ::epoll_wait(state_->epoll.get(), &event, 1, waitTime(deadline, kernelTime()));
        if (ready > 0) state_->dispatch(event.data.u64, event.events);
        // Also where there is always something ready, as with a block that posts itself.
        if (deadline && kernelTime() >= *deadline) break;
    }
    return isDone();
}

std::size_t RunLoop::drain()
{
    std::size_t dispatched = 0;
    for (bool isBusy = true; isBusy;) {
        prepareToSleep();
        isBusy = dispatchOne() || state_->fireTimer();
        if (isBusy) ++dispatched;
    }
    return dispatched;
}

bool RunLoop::dispatchOne()
{
    // A source that turns out empty (a wake-up, a timer set early) is no event: look on.
    for (int idle = 0; idle < 4; ++idle) {
        epoll_event event{};
        if (::epoll_wait(state_->epoll.get(), &event, 1, 0) <= 0) return false;
        if (state_->dispatch(event.data.u64, event.events)) return true;
    }
    return false;
}

void RunLoop::prepareToSleep()
{
    std::vector<std::shared_ptr<std::function<void()>>> hooks;
    hooks.reserve(state_->hooks.size());
    for (const auto& [id, hook] : state_->hooks) hooks.push_back(hook);
    for (const auto& hook : hooks) (*hook)();
    state_->arm();
}

void RunLoop::stop()
{
    {
        std::lock_guard lock(state_->runMutex);
        if (!state_->runs.empty()) state_->runs.back()->isStopped = true;
    }
    wake();
}

void RunLoop::stopAll()
{
    {
        std::lock_guard lock(state_->runMutex);
        for (Run* run : state_->runs) run->isStopped = true;
    }
    wake();
}

void RunLoop::wake()
{
    signal(state_->posted);
    if (state_->host) state_->host->wake();
}

void RunLoop::post(std::function<void()> block)
{
    std::lock_guard lock(state_->postMutex);
    state_->posts.push_back(std::move(block));
    if (state_->posts.size() == 1) signal(state_->posted);
}

void RunLoop::add(const std::shared_ptr<Timer>& timer)
{
    std::shared_ptr<TimerQueue> previous;
    TimePoint due{};
    {
        std::lock_guard lock(timer->state_->mutex);
        previous = timer->state_->queue.lock();
        due = timer->state_->due;
    }
    if (previous == state_->timers) return;
    if (previous) {
        previous->erase(*timer);
    } else {
        due = Clock::shared().monotonic() + timer->state_->interval;
    }
    state_->timers->insert(timer, due);
}

Subscription RunLoop::watch(int descriptor, std::uint32_t events, std::function<void(std::uint32_t)> handler)
{
    const std::uint64_t id = state_->nextId++;
    epoll_event event{};
    event.events = events;
    event.data.u64 = id;
    if (::epoll_ctl(state_->epoll.get(), EPOLL_CTL_ADD, descriptor, &event) != 0) {
        fatalError("A descriptor that cannot be watched.", "platform/runtime/RunLoop");
    }
    state_->watches.emplace(id, Watch{descriptor, std::make_shared<Handler>(std::move(handler))});
    return Subscription([weak = std::weak_ptr(state_->self), id] {
        if (const auto state = weak.lock()) (*state)->endWatch(id);
    });
}

void RunLoop::setEvents(int descriptor, std::uint32_t events)
{
    const auto found =
        std::ranges::find_if(state_->watches, [&](const auto& entry) { return entry.second.descriptor == descriptor; });
    if (found == state_->watches.end()) return;
    epoll_event event{};
    event.events = events;
    event.data.u64 = found->first;
    ::epoll_ctl(state_->epoll.get(), EPOLL_CTL_MOD, descriptor, &event);
}

Subscription RunLoop::beforeSleep(std::function<void()> hook)
{
    const std::uint64_t id = state_->nextId++;
    state_->hooks.emplace(id, std::make_shared<std::function<void()>>(std::move(hook)));
    return Subscription([weak = std::weak_ptr(state_->self), id] {
        if (const auto state = weak.lock()) (*state)->hooks.erase(id);
    });
}

void RunLoop::setHost(std::unique_ptr<RunLoopHost> host)
{
    state_->host = std::move(host);
}

int RunLoop::descriptor() const
{
    return state_->epoll.get();
}

}  // namespace Platform
