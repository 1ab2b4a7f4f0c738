#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/runtime/Number.h"

namespace Fennick {

// A sliding sequence of numbers, oldest first, in a ring that allocates only
// when it is given more entries than it ever had. Not confined to a thread.
class NumberHistory {
public:
    explicit NumberHistory(std::int64_t size) : ring_(static_cast<std::size_t>(std::max<std::int64_t>(size, 1)))
    {
        fillWithZeros(size);
    }

    // Drops the oldest entry, if any, and appends the newest.
    void push(Platform::Number number)
    {
        dropOldest();
        ring_[wrapped(oldest_ + count_)] = number;
        ++count_;
    }

    void dropOldest()
    {
        if (count_ == 0) return;
        oldest_ = wrapped(oldest_ + 1);
        --count_;
    }

    // A negative size counts as 0.
    void fillWithZeros(std::int64_t size)
    {
        reset(static_cast<std::size_t>(std::max<std::int64_t>(size, 0)));
        std::fill_n(ring_.begin(), count_, Platform::Number(0.0));
    }

    void assign(const std::vector<Platform::Number>& numbers)
    {
        reset(numbers.size());
        std::copy(numbers.begin(), numbers.end(), ring_.begin());
    }

    std::vector<Platform::Number> numbers() const
    {
        const auto start = ring_.begin() + static_cast<std::ptrdiff_t>(oldest_);
        const std::size_t straight = std::min(count_, ring_.size() - oldest_);
        std::vector<Platform::Number> copy;
        copy.reserve(count_);
        copy.insert(copy.end(), start, start + static_cast<std::ptrdiff_t>(straight));
        copy.insert(copy.end(), ring_.begin(), ring_.begin() + static_cast<std::ptrdiff_t>(count_ - straight));
        return copy;
    }

private:
    std::size_t wrapped(std::size_t at) const { return at >= ring_.size() ? at - ring_.size() : at; }

    void reset(std::size_t count)
    {
        if (count > ring_.size()) ring_.resize(count);
        oldest_ = 0;
        count_ = count;
    }

    std::vector<Platform::Number> ring_;  // never empty
    std::size_t oldest_ = 0;
    std::size_t count_ = 0;
};

}  // namespace Fennick
