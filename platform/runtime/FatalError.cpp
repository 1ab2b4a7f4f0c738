#include "platform/runtime/FatalError.h"

#include <cstdlib>
#include <string>

#include <unistd.h>

namespace Platform {

void fatalError(std::string_view message, std::string_view source)
{
    std::string line(source);
    line.append(": Fatal error: ").append(message).append("\n");
    [[maybe_unused]] auto written = ::write(STDERR_FILENO, line.data(), line.size());
    std::abort();
}

}  // namespace Platform
