#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Fennick/datastore/StringIdentifier.h"
#include "examples/pellora/providers/Provider.h"
#include "examples/pellora/providers/SystemFile.h"

namespace Pellora {

// How full the computer's batteries are together ("battery.percent") and
// whether they charge ("battery.state"), from /sys/class/power_supply. The
// batteries of mice and headsets do not count.
class BatteryProvider final : public Provider {
public:
    BatteryProvider();
    void update(double elapsed) override;

private:
    struct Battery {
        SystemFile capacity;
        SystemFile status;
    };

    std::vector<std::unique_ptr<Battery>> batteries_;
    NumberReading percent_;
    std::shared_ptr<Fennick::StringIdentifier> state_;
};

}  // namespace Pellora
