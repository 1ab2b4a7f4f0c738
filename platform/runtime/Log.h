#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace Platform {

// The system log of this process: one line a message, on standard error, which
// the desktop session hands to the journal ("PROGRAM[PID]: message").
// Thread: any.
class Log {
public:
    static Log& shared();
    virtual ~Log() = default;

    virtual void write(std::string_view message) = 0;
};

// Writes one line to Log::shared().
void log(std::string_view message);

}  // namespace Platform
