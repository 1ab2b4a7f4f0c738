#pragma once

#include <mutex>
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
        std::size_t count = 0;
        for (const std::string& message : messages()) count += message.find(text) != std::string::npos;
        return count;
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
