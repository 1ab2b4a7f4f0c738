#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace Fennick {

// The labels of the containers' queues: a fixed text and a number that counts
// through the process from 0. Thread: any.
class LabelDispatch {
public:
    LabelDispatch() = delete;

    // Replaced by tests that start afresh.
    using Counter = std::atomic<std::int64_t>;

    // "com.threading.dispatchqueue_" and the next number.
    static std::string nextLabel();
};

}  // namespace Fennick
