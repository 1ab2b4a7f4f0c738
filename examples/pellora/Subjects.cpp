#include "examples/pellora/Subjects.h"

#include <array>

#include "examples/pellora/providers/BatteryProvider.h"
#include "examples/pellora/providers/CpuProvider.h"
#include "examples/pellora/providers/DiskProvider.h"
#include "examples/pellora/providers/LoadProvider.h"
#include "examples/pellora/providers/MemoryProvider.h"
#include "examples/pellora/providers/NetworkProvider.h"
#include "examples/pellora/providers/TemperatureProvider.h"
#include "examples/pellora/watch/FollowedLog.h"
#include "examples/pellora/watch/Ping.h"
#include "examples/pellora/watch/WatchedApplications.h"

namespace Pellora {

namespace {

using ProviderRef = std::shared_ptr<Provider>;

// Of the machine, whatever the settings.
template <typename T>
constexpr Subject ofMachine{[](const Settings&) -> ProviderRef { return std::make_shared<T>(); },
                            [](const Settings&, const Settings&) { return true; }};

// Named by one setting.
template <auto field>
bool isSame(const Settings& one, const Settings& other)
{
    return one.*field == other.*field;
}

ProviderRef diskOf(const Settings& settings)
{
    return std::make_shared<DiskProvider>(settings.disk);
}

ProviderRef applicationsOf(const Settings& settings)
{
    return settings.applications.empty() ? nullptr : WatchedApplications::create(settings.applications);
}

ProviderRef logOf(const Settings& settings)
{
    return settings.log.empty() ? nullptr : FollowedLog::create(settings.log);
}

ProviderRef pingOf(const Settings& settings)
{
    return settings.ping.empty() ? nullptr : std::make_shared<Ping>(settings.ping);
}

constexpr std::array subjects{
    ofMachine<CpuProvider>,
    ofMachine<MemoryProvider>,
    ofMachine<LoadProvider>,
    Subject{diskOf, isSame<&Settings::disk>},
    ofMachine<NetworkProvider>,
    ofMachine<TemperatureProvider>,
    ofMachine<BatteryProvider>,
    Subject{applicationsOf, isSame<&Settings::applications>},
    Subject{logOf, isSame<&Settings::log>},
    Subject{pingOf, isSame<&Settings::ping>},
};

}  // namespace

std::span<const Subject> allSubjects()
{
    return subjects;
}

}  // namespace Pellora
