#include "examples/pellora/providers/AllProviders.h"

#include "examples/pellora/providers/BatteryProvider.h"
#include "examples/pellora/providers/CpuProvider.h"
#include "examples/pellora/providers/DiskProvider.h"
#include "examples/pellora/providers/LoadProvider.h"
#include "examples/pellora/providers/MemoryProvider.h"
#include "examples/pellora/providers/NetworkProvider.h"
#include "examples/pellora/providers/TemperatureProvider.h"

namespace Pellora {

std::vector<std::shared_ptr<Provider>> machineProviders(const std::string& diskFolder)
{
    std::vector<std::shared_ptr<Provider>> all{
        std::make_shared<CpuProvider>(),     std::make_shared<MemoryProvider>(),
        std::make_shared<LoadProvider>(),    std::make_shared<DiskProvider>(diskFolder),
        std::make_shared<NetworkProvider>(), std::make_shared<TemperatureProvider>(),
        std::make_shared<BatteryProvider>(),
    };
    std::erase_if(all, [](const auto& provider) { return provider->keys().empty(); });
    return all;
}

}  // namespace Pellora
