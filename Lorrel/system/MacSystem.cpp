#include "Lorrel/system/MacSystem.h"

#include <utility>

#include "Fennick/DateUtilities.h"
#include "Fennick/disk/DiskUtilities.h"
#include "Lorrel/system/internal/KernelReads.h"
#include "Lorrel/system/internal/SystemFacts.h"
#include "platform/runtime/Clock.h"
#include "platform/runtime/Environment.h"
#include "platform/system/ProcessInfo.h"

namespace Lorrel {

namespace {

// Seconds since 1970 of the system's start; 0 when unknown. The variable is a
// time value: 64-bit seconds, then microseconds.
std::int64_t bootSeconds()
{
    const auto bytes = Platform::Kernel::shared().variable(Platform::bootTimeVariable);
    if (!bytes || bytes->size() != 16) return 0;
    std::uint64_t seconds = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        seconds |= static_cast<std::uint64_t>(static_cast<unsigned char>((*bytes)[i])) << (8 * i);
    }
    return static_cast<std::int64_t>(seconds);
}

std::optional<int> coreCount(std::string_view kind)
{
    if (!MacSystem::isAppleSilicon()) return std::nullopt;
    return processorsCompatibleWith(kind);
}

}  // namespace

std::string MacSystem::serialNumber()
{
    return SystemFacts::shared().serialNumber.get();
}
void MacSystem::setSerialNumber(std::string value)
{
    SystemFacts::shared().serialNumber.set(std::move(value));
}
std::string MacSystem::marketingName()
{
    return SystemFacts::shared().marketingName.get();
}
void MacSystem::setMarketingName(std::string value)
{
    SystemFacts::shared().marketingName.set(std::move(value));
}
std::string MacSystem::computerName()
{
    return SystemFacts::shared().computerName.get();
}
void MacSystem::setComputerName(std::string value)
{
    SystemFacts::shared().computerName.set(std::move(value));
}
std::string MacSystem::model()
{
    return SystemFacts::shared().model.get();
}
void MacSystem::setModel(std::string value)
{
    SystemFacts::shared().model.set(std::move(value));
}
std::string MacSystem::cpuBrand()
{
    return SystemFacts::shared().cpuBrand.get();
}
void MacSystem::setCpuBrand(std::string value)
{
    SystemFacts::shared().cpuBrand.set(std::move(value));
}
std::string MacSystem::hostName()
{
    return SystemFacts::shared().hostName.get();
}
void MacSystem::setHostName(std::string value)
{
    SystemFacts::shared().hostName.set(std::move(value));
}
std::uint8_t MacSystem::threadCount()
{
    return SystemFacts::shared().threadCount.get();
}
void MacSystem::setThreadCount(std::uint8_t value)
{
    SystemFacts::shared().threadCount.set(value);
}
std::uint8_t MacSystem::physicalCoreCount()
{
    return SystemFacts::shared().physicalCoreCount.get();
}
void MacSystem::setPhysicalCoreCount(std::uint8_t value)
{
    SystemFacts::shared().physicalCoreCount.set(value);
}
std::uint8_t MacSystem::logicalCoreCount()
{
    return SystemFacts::shared().logicalCoreCount.get();
}
void MacSystem::setLogicalCoreCount(std::uint8_t value)
{
    SystemFacts::shared().logicalCoreCount.set(value);
}
std::string MacSystem::architecture()
{
    return SystemFacts::shared().architecture.get();
}
void MacSystem::setArchitecture(std::string value)
{
    SystemFacts::shared().architecture.set(std::move(value));
}
std::string MacSystem::processorName()
{
    return SystemFacts::shared().processorName.get();
}
void MacSystem::setProcessorName(std::string value)
{
    SystemFacts::shared().processorName.set(std::move(value));
}

std::optional<AppleHardwareDetails> MacSystem::hardwareDetails()
{
    return SystemFacts::shared().hardwareDetails.get();
}

void MacSystem::setHardwareDetails(std::optional<AppleHardwareDetails> value)
{
    SystemFacts::shared().hardwareDetails.set(std::move(value));
}

Platform::ImageRef MacSystem::bigSurWallpaper()
{
    return SystemFacts::shared().bigSurWallpaper.get();
}
Platform::ImageRef MacSystem::montereyWallpaper()
{
    return SystemFacts::shared().montereyWallpaper.get();
}
Platform::ImageRef MacSystem::venturaWallpaper()
{
    return SystemFacts::shared().venturaWallpaper.get();
}

Platform::IOPort MacSystem::mainPort()
{
    return Platform::OperatingSystemVersion::shared().isAtLeast(12) ? Platform::kIOMainPortDefault
                                                                    : Platform::kIOMasterPortDefault;
}

int MacSystem::activeProcessorCount()
{
    return Platform::ProcessInfo::shared().activeProcessorCount();
}
int MacSystem::thermalState()
{
    return static_cast<int>(Platform::ProcessInfo::shared().thermalState());
}
std::uint64_t MacSystem::physicalMemory()
{
    return Platform::ProcessInfo::shared().physicalMemory();
}
std::string MacSystem::physicalMemoryText()
{
    return Fennick::DiskUtilities::byteCountText(physicalMemory());
}
bool MacSystem::isAppleSilicon()
{
    return architecture() == "arm64";
}
std::optional<int> MacSystem::efficiencyCoreCount()
{
    return coreCount("icestorm");
}
std::optional<int> MacSystem::performanceCoreCount()
{
    return coreCount("firestorm");
}
std::string MacSystem::osProductVersion()
{
    return kernelText("kern.osproductversion");
}
Platform::HostBasicInfo MacSystem::hostBasicInfo()
{
    return Platform::Kernel::shared().hostBasicInfo();
}

std::string MacSystem::uptimeText()
{
    const auto seconds = Platform::Kernel::shared().rawUptimeSeconds().value_or(0);
    return seconds == 0 ? "-" : Fennick::DateUtilities::clockText(seconds);
}

std::string MacSystem::bootUptimeText()
{
    const std::int64_t boot = bootSeconds();
    const auto now = static_cast<std::int64_t>(Platform::Clock::shared().wallSeconds());
    return Fennick::DateUtilities::clockText(boot == 0 ? -1 : now - boot);
}

}  // namespace Lorrel
