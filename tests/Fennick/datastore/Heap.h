#pragma once

#include <atomic>
#include <cstdint>

namespace Tests {

// What this program has taken from the heap by operator new. Thread: any.
struct Heap {
    static inline std::atomic<std::int64_t> allocations = 0;
    static inline std::atomic<std::int64_t> bytesInUse = 0;
};

}  // namespace Tests
