#pragma once

#include <algorithm>
#include <bit>
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
    void push(double number)
    {
        dropOldest();
        const std::size_t at = wrapped(oldest_ + count_);
        ring_[at] = std::bit_cast<std::uint64_t>(number);
        if (!kinds_.empty()) kinds_[at] = Kind::float64;
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
        std::fill_n(ring_.begin(), count_, std::bit_cast<std::uint64_t>(0.0));
    }

    void assign(const std::vector<Platform::Number>& numbers)
    {
        reset(numbers.size());
        std::transform(numbers.begin(), numbers.end(), ring_.begin(), [](const auto& each) { return each.bits(); });
        const auto isReal = [](const Platform::Number& each) { return each.kind() == Kind::float64; };
        if (std::all_of(numbers.begin(), numbers.end(), isReal)) return;
        kinds_.resize(ring_.size(), Kind::float64);
        std::transform(numbers.begin(), numbers.end(), kinds_.begin(), [](const auto& each) { return each.kind(); });
    }

    std::vector<Platform::Number> numbers() const
    {
        std::vector<Platform::Number> copy;
        copy.reserve(count_);
        for (std::size_t at = oldest_; copy.size() < count_; at = wrapped(at + 1)) {
            const Kind kind = kinds_.empty() ? Kind::float64 : kinds_[at];
            copy.push_back(Platform::Number::fromBits(kind, ring_[at]));
        }
        return copy;
    }

private:
    using Kind = Platform::Number::Kind;

    std::size_t wrapped(std::size_t at) const { return at >= ring_.size() ? at - ring_.size() : at; }

    void reset(std::size_t count)
    {
        if (count > ring_.size()) ring_.resize(count);
        kinds_.clear();
        oldest_ = 0;
        count_ = count;
    }

    // Readings are doubles; only a list that was assigned may hold others, and then each has its kind.
    std::vector<std::uint64_t> ring_;  // never empty
    std::vector<Kind> kinds_;
    std::size_t oldest_ = 0;
    std::size_t count_ = 0;
};

}  // namespace Fennick
