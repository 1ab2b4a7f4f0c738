#pragma once

namespace Platform {

// How many processors the machine has. Each is at least 1.
struct ProcessorCounts {
    int online = 1;   // logical processors in use
    int present = 1;  // logical processors that there are
    int cores = 1;    // of those online, distinct package and core numbers
};

// Read from /sys and, where that has no lists, from /proc/cpuinfo.
ProcessorCounts processorCounts();

}  // namespace Platform
