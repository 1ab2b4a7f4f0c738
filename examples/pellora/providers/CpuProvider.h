#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "examples/pellora/providers/Provider.h"
#include "examples/pellora/providers/SystemFile.h"

namespace Pellora {

// How busy the processor was since the last update, as a whole ("cpu.total")
// and by core ("cpu.core.0" ...), from /proc/stat. A core that is switched off
// has no number; one that appears later is added.
class CpuProvider final : public Provider {
public:
    CpuProvider();
    void update(double elapsed) override;

private:
    // Jiffies since the start, as the kernel counts them.
    struct Times {
        std::uint64_t busy = 0;
        std::uint64_t idle = 0;
    };
    struct Processor {
        NumberReading reading;
        std::optional<Times> last;
        bool isSeen = false;
    };

    static std::optional<Times> timesFrom(std::string_view columns);
    void readAll();
    Processor& core(std::size_t number);
    static void take(Processor& processor, Times now);

    SystemFile file_;
    Processor total_;
    std::vector<Processor> cores_;
};

}  // namespace Pellora
