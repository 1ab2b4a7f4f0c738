#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/runtime/Log.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// Keeps what is logged. Thread: any.
class CapturingLog final : public Platform::Log {
public:
    void write(std::string_view message) override
    {
        std::lock_guard lock(mutex_);
        messages_.emplace_back(message);
    }

    std::vector<std::string> messages() const
    {
        std::lock_guard lock(mutex_);
        return messages_;
    }
    // How many messages contain the text.
    std::size_t count(std::string_view text) const
    {
        std::lock_guard lock(mutex_);
        const auto holdsText = [&](const std::string& message) { return message.find(text) != std::string::npos; };
        return static_cast<std::size_t>(std::count_if(messages_.begin(), messages_.end(), holdsText));
    }
    void clear()
    {
        std::lock_guard lock(mutex_);
        messages_.clear();
    }

private:
    mutable std::mutex mutex_;
    std::vector<std::string> messages_;
};

using ReplacedLog = Replaced<Platform::Log, CapturingLog>;

}  // namespace Tests
