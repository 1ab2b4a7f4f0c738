#pragma once

#include "examples/pellora/providers/Provider.h"
#include "examples/pellora/providers/SystemFile.h"

namespace Pellora {

// Memory in use, that is not available to programs ("memory.percent",
// "memory.used"), all of it ("memory.total") and, where there is any, swap space
// in use ("swap.used"), from /proc/meminfo.
class MemoryProvider final : public Provider {
public:
    MemoryProvider();
    void update(double elapsed) override;

private:
    SystemFile file_;
    NumberReading percent_;
    NumberReading used_;
    NumberReading total_;
    NumberReading swap_;
};

}  // namespace Pellora
