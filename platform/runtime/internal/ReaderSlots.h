#pragma once

#include <array>
#include <atomic>
#include <cstddef>

#include "platform/runtime/ThreadRecord.h"

namespace Platform {

// Where a thread marks the queues that it is reading, on a pair of cache lines of
// its own (processors fetch them in pairs).
struct alignas(128) ReaderSlot {
    static constexpr std::size_t depth = 4;

    std::array<std::atomic<const Queue*>, depth> cells{};
    std::atomic<bool> isTaken{false};
};

// Makes visible here what every other running thread has stored so far, so that
// threads which mark their slots need no fence themselves.
void awaitStoresOfOtherThreads();

// Those of the slots that are marked with the queue.
SlotSet markedSlots(SlotSet slots, const Queue* queue);

}  // namespace Platform
