#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/runtime/Subscription.h"

namespace Platform {

class Timer;
class RunLoop;

// Takes over the waiting of the main loop, so that a user-interface toolkit's
// own loop and ours are one. Installed by the drawing room.
class RunLoopHost {
public:
    virtual ~RunLoopHost() = default;

    // Waits for and dispatches the host's events and the loop's (descriptor(),
    // prepareToSleep(), dispatchOne()) until `isDone` answers true, asking after
    // every event, or until the time is over.
    virtual void runUntil(RunLoop& loop, const std::function<bool()>& isDone,
                          std::optional<std::chrono::nanoseconds> timeout) = 0;
    // Makes a waiting runUntil ask `isDone` again. Any thread.
    virtual void wake() = 0;
};

// The events of one thread: posts, timers and descriptors, one dispatched per
// turn, so that runs nest freely: a handler may run the loop again.
// Thread: each thread has its own; only post(), stop(), wake() and add() may
// be called from others.
class RunLoop {
public:
    // The calling thread's loop, made on first use.
    static RunLoop& current();
    // The loop of the program's first thread.
    static RunLoop& main();

    RunLoop();
    ~RunLoop();
    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;

    // Dispatches until stop() ends this run. A nested run ends by its own stop().
    void run();
    // Dispatches until `isDone` answers true or the time is over; what it answered last.
    bool runUntil(const std::function<bool()>& isDone, std::chrono::nanoseconds timeout);
    // Dispatches all that is ready and what that makes ready, without waiting;
    // timers are due by Clock::shared(). How many events were dispatched.
    std::size_t drain();

    // Ends the innermost run, or every run in progress.
    void stop();
    void stopAll();

    // Runs the block on this loop's thread in a later turn, in order of posting.
    void post(std::function<void()> block);
    // Puts a timer on this loop (in every mode); one that is on another loop moves here with its phase.
    void add(const std::shared_ptr<Timer>& timer);

    // Calls back while the descriptor has any of the epoll events. The caller
    // keeps the descriptor open; cancel before closing it.
    Subscription watch(int descriptor, std::uint32_t events, std::function<void(std::uint32_t)> handler);
    // Changes the events of a watched descriptor.
    void setEvents(int descriptor, std::uint32_t events);
    // Called before every sleep, where a library has to be asked what it waits for.
    Subscription beforeSleep(std::function<void()> hook);

    // For the host of the main loop.
    void setHost(std::unique_ptr<RunLoopHost> host);
    int descriptor() const;
    void prepareToSleep();
    // One event, without waiting. False when none was ready.
    bool dispatchOne();
    // Makes a waiting run look again at its end condition. Any thread.
    void wake();

private:
    struct State;
    bool runWhile(const std::function<bool()>& isDone, std::optional<std::chrono::nanoseconds> timeout);

    std::unique_ptr<State> state_;
};

}  // namespace Platform
