#include "platform/runtime/Log.h"

#include <cerrno>
#include <string>

#include <unistd.h>

#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

class StandardErrorLog final : public Log {
public:
    void write(std::string_view message) override
    {
        std::string line(program_invocation_short_name);
        line += "[" + std::to_string(::getpid()) + "]: ";
        line.append(message).append("\n");
        // One write a line, so lines of several threads never mix; a closed log is nobody's error.
        [[maybe_unused]] auto written = ::write(STDERR_FILENO, line.data(), line.size());
    }
};

}  // namespace

Log& Log::shared()
{
    return Shared<Log>::get([] { return std::make_unique<StandardErrorLog>(); });
}

void log(std::string_view message)
{
    Log::shared().write(message);
}

}  // namespace Platform
