#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/bus/BusLink.h"
#include "platform/bus/BusMessage.h"
#include "platform/runtime/Result.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Subscription.h"

namespace Platform {

class Timer;

// The process's place on the session bus, served by a run loop. A lost bus is
// joined again with back-off, and rules are renewed. All handlers run from the
// loop or at least outside the library, so they may do anything, also run the
// loop or end this connection. Cancelled handlers are not called again.
// Waits at most 2 s where it says so, then the loop finishes the work.
// Thread: that of the loop.
class BusConnection : public std::enable_shared_from_this<BusConnection> {
public:
    using SignalHandler = std::function<void(BusMessage)>;
    // Answers a call with its reply (sd_bus_message_new_method_return or _errorf);
    // without one nothing is sent back.
    using CallHandler = std::function<BusMessage(BusMessage)>;
    using Completion = std::function<void(Result<BusMessage>)>;

    // The session bus on the main loop, shared by the services of this room.
    static std::shared_ptr<BusConnection> session();
    static std::shared_ptr<BusConnection> create(RunLoop& loop);
    ~BusConnection();

    // Joins the bus where that has not happened yet; does not wait for it to
    // answer. False when there is none; said once in the log.
    bool join();

    // Each time the bus has answered the greeting: to claim names, to announce.
    Subscription onJoined(std::function<void()> handler);
    // Each time a joined bus, or one that we were joining, is gone.
    Subscription onLost(std::function<void()> handler);
    // Has the bus send us what the rule matches. Waits for its consent.
    Subscription matchRule(const std::string& rule);
    // The same without waiting: what is sent later finds the rule in force.
    Subscription matchRuleSoon(const std::string& rule);
    // Signals that the rules brought. Empty texts match all.
    Subscription onSignal(std::string interface, std::string member, SignalHandler handler);
    // Every method call to the path, those of the standard interfaces included
    // (properties, introspection; Peer is answered by the library).
    Subscription exportObject(std::string path, CallHandler handler);

    // Empty where no bus is joined or a text is not allowed there.
    BusMessage newSignal(const char* path, const char* interface, const char* member);
    BusMessage newCall(const char* destination, const char* path, const char* interface, const char* member);

    // An empty message is ignored.
    void send(const BusMessage& message);
    // Messages wait here because the bus has stopped reading; what need not be
    // sent now had better wait, too, until it is told that all have left.
    bool isBacklogged() const { return isBacklogged_; }
    Subscription onDrained(std::function<void()> handler);
    // Waits until what was sent has left; on a fresh connection until the bus
    // has answered, as closing a socket with unread answers loses what was sent.
    void flush();
    // The reply, or the error that came or took its place (lost, too late).
    void call(const BusMessage& message, std::chrono::nanoseconds deadline, Completion completion);

private:
    struct PendingCall;
    struct Handler;
    struct Rule {
        int users = 0;
        std::shared_ptr<bool> isAgreed;  // the bus has answered for this link
    };
    enum class Occasion { none, joined, lost, drained };
    struct Arrival {
        BusMessage message;
        Completion completion;  // of a reply
        std::string subject;    // the call of that reply; without a message it will not come
    };

    explicit BusConnection(RunLoop& loop);
    static int onFilter(sd_bus_message* message, void* self, sd_bus_error*);
    static int onReply(sd_bus_message* message, void* pending, sd_bus_error*);

    void attach(std::unique_ptr<BusLink> link);
    void lost();
    void scheduleRetry();
    void prepareToSleep();
    void rearmTimer();
    void process();
    void noteReady();
    void noteDrained();
    void tell(Occasion occasion);
    bool waitUntil(const std::function<bool()>& isDone);
    bool pump(const std::function<bool()>& isDone, std::chrono::nanoseconds timeout);

    void addRule(const std::string& rule);
    void removeRule(const std::string& rule);
    Subscription ruleKeeper(const std::string& rule);
    BusMessage newDaemonCall(const char* member);
    std::shared_ptr<bool> start(const BusMessage& message, std::uint64_t microseconds, Completion completion);
    Subscription keep(std::shared_ptr<Handler> handler);
    Subscription on(Occasion occasion, std::function<void()> handler);

    int accept(sd_bus_message* message);
    void scheduleDelivery();
    void deliver();
    void dispatch(const Arrival& arrival);
    void dispatchToHandlers(const BusMessage& message);

    RunLoop& loop_;
    std::unique_ptr<BusLink> link_;
    Subscription watch_;
    Subscription hook_;
    std::uint32_t watchedEvents_ = 0;
    std::shared_ptr<Timer> timer_;
    std::uint64_t timerDeadline_ = 0;
    std::shared_ptr<Timer> retry_;
    std::chrono::milliseconds retryDelay_;
    bool isReady_ = false;            // the greeting of this link was answered
    bool hasAnswered_ = false;        // so was a call
    std::shared_ptr<bool> greeting_;  // a question whose answer shows that the bus is there
    bool hasSaidNoBus_ = false;
    bool isBacklogged_ = false;
    std::function<bool()> unmet_;  // the wait that ended without success

    std::map<std::string, Rule> rules_;
    std::vector<std::shared_ptr<Handler>> handlers_;
    std::list<std::unique_ptr<PendingCall>> pending_;
    std::deque<Arrival> arrivals_;
    bool isDeliveryScheduled_ = false;
};

}  // namespace Platform
