#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>

#include "platform/runtime/FileDescriptor.h"

namespace Platform {

// The folder of processes ("/proc"), kept open. What a vanished or unreadable
// process is asked is absent. Thread: any.
class ProcessFolder {
public:
    using Buffer = std::array<char, 4096>;

    explicit ProcessFolder(const std::string& path);

    // Calls with each process until the block answers true; whether it did.
    bool anyProcess(const std::function<bool(pid_t)>& block) const;

    // The program's path, with the kernel's " (deleted)" cut off. The view is into the buffer.
    std::optional<std::string_view> executable(pid_t process, Buffer& buffer) const;
    // The name that the kernel keeps; of 15 bytes at most, except a kernel worker's.
    std::optional<std::string_view> commandName(pid_t process, Buffer& buffer) const;
    // In clock ticks since the machine's start.
    std::optional<std::uint64_t> startTime(pid_t process) const;
    // Whether the process belongs to this user.
    bool isOwn(pid_t process) const;

private:
    std::optional<std::string_view> read(pid_t process, std::string_view file, Buffer& buffer) const;

    FileDescriptor folder_;
    mutable std::mutex passMutex_;  // a pass moves the descriptor's position
};

}  // namespace Platform
