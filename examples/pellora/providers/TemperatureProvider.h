#pragma once

#include <memory>

#include "examples/pellora/providers/Provider.h"
#include "examples/pellora/providers/SystemFile.h"

namespace Pellora {

// The processor's temperature in degrees Celsius ("temperature"), from the
// machine's sensors below /sys/class; where none is known to be the
// processor's, that of the first thermal zone.
class TemperatureProvider final : public Provider {
public:
    TemperatureProvider();
    void update(double elapsed) override;

private:
    std::unique_ptr<SystemFile> sensor_;
    NumberReading reading_;
};

}  // namespace Pellora
