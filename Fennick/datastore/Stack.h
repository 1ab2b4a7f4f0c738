#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace Fennick {

// A last-in-first-out list. A value; not confined to a thread.
template <typename T>
class Stack {
public:
    void push(T element) { array_.push_back(std::move(element)); }

    // The last element, removed; absent when there is none.
    std::optional<T> pop()
    {
        if (array_.empty()) return std::nullopt;
        std::optional<T> top(std::move(array_.back()));
        array_.pop_back();
        return top;
    }
    // The last element, left where it is; absent when there is none.
    std::optional<T> peek() const
    {
        if (array_.empty()) return std::nullopt;
        return array_.back();
    }

    bool isEmpty() const { return array_.empty(); }
    std::size_t count() const { return array_.size(); }
    void clear() { array_.clear(); }

private:
    std::vector<T> array_;
};

}  // namespace Fennick
