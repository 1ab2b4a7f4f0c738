#pragma once

namespace Platform {

// How many processors the machine has: of /sys and, where that has no lists, of
// /proc/cpuinfo. Each is at least 1.
int onlineProcessors();   // logical processors in use
int presentProcessors();  // logical processors that there are
int physicalCores();      // cores that those online belong to

}  // namespace Platform
