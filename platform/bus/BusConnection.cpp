#include "platform/bus/BusConnection.h"

#include <algorithm>
#include <utility>

#include "platform/bus/BusHandlers.h"
#include "platform/bus/SessionBusAddress.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Timer.h"

namespace Platform {

namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 2s;
constexpr auto firstRetry = 50ms;
constexpr auto longestRetry = 30'000ms;
// So many messages are read, or delivered, before other events have their turn.
constexpr int messagesPerTurn = 256;

}  // namespace

std::shared_ptr<BusConnection> BusConnection::session()
{
    return Shared<BusConnection>::get([] { return create(RunLoop::main()); }).shared_from_this();
}

std::shared_ptr<BusConnection> BusConnection::create(RunLoop& loop)
{
    return std::shared_ptr<BusConnection>(new BusConnection(loop));
}

BusConnection::BusConnection(RunLoop& loop) : loop_(loop), retryDelay_(firstRetry) {}

BusConnection::~BusConnection()
{
    if (timer_) timer_->invalidate();
    if (retry_) retry_->invalidate();
}

bool BusConnection::join()
{
    if (link_) return true;
    const auto address = sessionBusAddress();
    auto link = address ? BusLink::open(*address)
                        : Result<std::unique_ptr<BusLink>>(Error{"connect", "session bus", 0, "no address"});
    if (link) {
        attach(std::move(link).value());
        return true;
    }
    if (!std::exchange(hasSaidNoBus_, true)) log("no session bus: " + link.error().message());
    if (address) scheduleRetry();
    return false;
}

void BusConnection::attach(std::unique_ptr<BusLink> link)
{
    link_ = std::move(link);
    if (retry_) retry_->invalidate();
    sd_bus_add_filter(link_->bus(), nullptr, onFilter, this);
    watchedEvents_ = link_->events();
    watch_ = loop_.watch(link_->descriptor(), watchedEvents_, [this](std::uint32_t) { process(); });
    hook_ = loop_.beforeSleep([this] { prepareToSleep(); });
    for (const auto& entry : rules_) addRule(entry.first);
}

// The library's pending replies end with the link; ours get their error.
void BusConnection::lost()
{
    log("session bus lost, joining it again");
    watch_.cancel();
    hook_.cancel();
    for (auto& call : std::exchange(pending_, {})) arrivals_.push_back({{}, call->fail(), call->subject});
    link_.reset();
    if (timer_) timer_->invalidate();
    timerDeadline_ = 0;
    isReady_ = hasAnswered_ = isBacklogged_ = false;
    unmet_ = nullptr;
    greeting_ = nullptr;
    tell(Occasion::lost);
    scheduleDelivery();
    scheduleRetry();
}

void BusConnection::scheduleRetry()
{
    if (retry_) retry_->invalidate();
    retry_ = Timer::create(std::chrono::duration<double>(retryDelay_).count(), false, [this] { join(); });
    loop_.add(retry_);
    retryDelay_ = std::min<std::chrono::milliseconds>(retryDelay_ * 2, longestRetry);
}

// A synchronous wait may have left messages inside the library, where the
// descriptor does not show them: it is asked before every sleep.
void BusConnection::prepareToSleep()
{
    const std::uint32_t events = link_->events();
    if (std::exchange(watchedEvents_, events) != events) loop_.setEvents(link_->descriptor(), events);
    rearmTimer();
}

void BusConnection::rearmTimer()
{
    const std::uint64_t due = link_->deadline().value_or(UINT64_MAX);
    if (due == 0) {
        loop_.post([weak = weak_from_this()] {
            if (const auto self = weak.lock()) self->process();
        });
        return;
    }
    if (std::exchange(timerDeadline_, due) == due) return;
    if (timer_) timer_->invalidate();
    if (due == UINT64_MAX) return;
    const std::uint64_t now = busMicroseconds();
    timer_ = Timer::create(static_cast<double>(due > now ? due - now : 0) / 1e6, false, [this] {
        timerDeadline_ = 0;
        process();
    });
    loop_.add(timer_);
}

// Reads first and calls handlers afterwards, so that a slow one does not keep the bus waiting.
void BusConnection::process()
{
    const auto self = shared_from_this();  // a handler may end it
    if (link_) {
        if (link_->process(messagesPerTurn)) {
            noteReady();
            noteDrained();
        } else {
            lost();
        }
    }
    deliver();
}

void BusConnection::noteReady()
{
    if (isReady_ || !link_->isReady()) return;
    isReady_ = true;
    retryDelay_ = firstRetry;
    hasSaidNoBus_ = false;
    tell(Occasion::joined);
}

void BusConnection::noteDrained()
{
    if (!isBacklogged_ || link_->hasUnsent()) return;
    isBacklogged_ = false;
    tell(Occasion::drained);
}

void BusConnection::tell(Occasion occasion)
{
    for (const auto& handler : handlers_) {
        if (handler->occasion != occasion) continue;
        loop_.post([handler] {
            if (handler->isActive) handler->happened();
        });
    }
}

// After a wait that ended without success the next ones are not tried until it
// would have succeeded: a frozen bus costs 2 s once, not for every call.
bool BusConnection::waitUntil(const std::function<bool()>& isDone)
{
    const bool isStalled = unmet_ && !unmet_();
    const bool done = pump(isDone, isStalled ? 0s : longestWait);
    if (!isStalled) unmet_ = done ? nullptr : isDone;
    return done;
}

bool BusConnection::pump(const std::function<bool()>& isDone, std::chrono::nanoseconds timeout)
{
    const auto end = std::chrono::steady_clock::now() + timeout;
    while (link_ && !isDone()) {
        if (!link_->process(messagesPerTurn)) {
            lost();
            break;
        }
        noteReady();
        noteDrained();
        const auto left = end - std::chrono::steady_clock::now();
        if (isDone() || left <= 0s) break;
        link_->wait(left);
    }
    scheduleDelivery();
    return isDone();
}

void BusConnection::flush()
{
    if (!link_) return;
    if (!hasAnswered_) {
        if (!greeting_) greeting_ = start(newDaemonCall("GetId"), UINT64_MAX, nullptr);
        waitUntil([answered = greeting_] { return *answered; });
        return;
    }
    waitUntil([this] { return !link_ || !link_->hasUnsent(); });
}

void BusConnection::scheduleDelivery()
{
    if (arrivals_.empty() || std::exchange(isDeliveryScheduled_, true)) return;
    loop_.post([weak = weak_from_this()] {
        const auto self = weak.lock();
        if (!self) return;
        self->isDeliveryScheduled_ = false;
        self->deliver();
    });
}

void BusConnection::deliver()
{
    const auto self = shared_from_this();
    for (int count = 0; count < messagesPerTurn && !arrivals_.empty(); ++count) {
        const Arrival arrival = std::move(arrivals_.front());
        arrivals_.pop_front();
        dispatch(arrival);
    }
    scheduleDelivery();
}

}  // namespace Platform
