#pragma once

#include <string_view>

namespace Fennick {

// A developer's stopwatch: a measurement is started under a name in one place
// and stopped in another, which prints "NAME: 12.34567 ms" to the standard
// output. It goes by the wall clock and follows its changes. Any thread.
class Profiler {
public:
    Profiler() = delete;

    // Starts the measurement, or starts it again.
    static void start(std::string_view name = "Profiler");
    // Prints and forgets the measurement; nothing where none was started.
    static void stop(std::string_view name);
    // Stops the first active measurement; without one the process ends.
    static void stop();
};

}  // namespace Fennick
