#pragma once

#include <array>

#include "examples/pellora/providers/Provider.h"
#include "examples/pellora/providers/SystemFile.h"

namespace Pellora {

// The load averages of 1, 5 and 15 minutes ("load.1", "load.5", "load.15"), from /proc/loadavg.
class LoadProvider final : public Provider {
public:
    LoadProvider();
    void update(double elapsed) override;

private:
    SystemFile file_;
    std::array<NumberReading, 3> loads_;
};

}  // namespace Pellora
