#pragma once

#include <array>
#include <atomic>
#include <cstddef>

#include "platform/runtime/Queue.h"

namespace Platform {

// Where a thread marks the queues that it is reading, on a pair of cache lines of
// its own (processors fetch them in pairs).
struct alignas(128) ReaderSlot {
    static constexpr std::size_t depth = 4;

    std::array<std::atomic<const Queue*>, depth> cells{};
    std::atomic<bool> isTaken{false};
};

// What a thread knows about itself.
struct ThreadRecord {
    const InsideQueue* innermost = nullptr;
    ReaderSlot* slot = nullptr;
    std::size_t usedCells = 0;
    bool isAsked = false;  // it has asked for a slot; there may have been none

    // The next cell to mark; null for a thread without slot, or too deep inside.
    std::atomic<const Queue*>* freeCell()
    {
        if (!isAsked) askForSlot();
        return slot && usedCells < ReaderSlot::depth ? &slot->cells[usedCells] : nullptr;
    }
    void askForSlot();
};

inline constinit thread_local ThreadRecord threadRecord;

// Whether a thread's slot is marked with the queue.
bool isMarkedBySlots(const Queue* queue);

}  // namespace Platform
