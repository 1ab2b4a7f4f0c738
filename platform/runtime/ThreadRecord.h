#pragma once

#include <atomic>
#include <cstdint>

namespace Platform {

class Queue;

// One queue that a thread is inside, and the one around it.
struct InsideQueue {
    const Queue* queue;
    const InsideQueue* outer;
};

// A set of the slots in which threads mark the queues that they read, one bit each.
using SlotSet = std::uint64_t;

// What a thread knows about itself. Part of `Queue`, which reads it in place.
struct ThreadRecord {
    using Cell = std::atomic<const Queue*>;

    const InsideQueue* innermost = nullptr;
    Cell* cells = nullptr;  // of its slot; null without one
    SlotSet slot = 0;
    bool isAsked = false;  // it has asked for a slot; there may have been none

    // Where to mark one more queue; null for a thread without slot, or too deep inside.
    Cell* freeCell();
    void askForSlot();
};

inline constinit thread_local ThreadRecord threadRecord;

}  // namespace Platform
