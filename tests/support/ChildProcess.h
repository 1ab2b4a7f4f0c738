#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "platform/runtime/FileDescriptor.h"

namespace Tests {

// Which of a child's streams its parent reads.
enum class ChildStreams { inherited, silent, output, outputAndErrors };

struct ChildOptions {
    // On top of this process's environment; an absent value unsets.
    std::map<std::string, std::optional<std::string>> environment = {};
    ChildStreams streams = ChildStreams::inherited;
};

// A program started by a test and killed at the latest when the scope ends. It
// also dies with the thread that started it, so a test that crashes leaves
// nobody behind. Thread: the one that created it.
class ChildProcess {
public:
    // The program is looked up in PATH. One that cannot be run ends with status 127.
    explicit ChildProcess(const std::vector<std::string>& arguments, const ChildOptions& options = {});
    ChildProcess(ChildProcess&&) noexcept = default;
    ~ChildProcess();

    bool hasEnded() { return wait(std::chrono::seconds(0)).has_value(); }

    // The exit code, or 128 and the signal's number; absent while it still runs
    // when the time is over.
    std::optional<int> wait(std::chrono::milliseconds timeout = std::chrono::seconds(10));

    // The next line without its newline; absent at the end or when the time is over.
    std::optional<std::string> readLine(std::chrono::milliseconds timeout = std::chrono::seconds(10));
    // All that is left until the child closes its streams, or until the time is over.
    std::string readAll(std::chrono::milliseconds timeout = std::chrono::seconds(10));

    void signal(int number);

private:
    using Deadline = std::chrono::steady_clock::time_point;
    bool fillBuffer(Deadline deadline);

    pid_t pid_ = -1;
    Platform::FileDescriptor pidDescriptor_;
    Platform::FileDescriptor output_;
    std::string buffer_;
    std::optional<int> status_;
};

}  // namespace Tests
