#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Lorrel/system/AppleHardwareDetails.h"
#include "platform/runtime/Image.h"
#include "platform/system/IORegistry.h"
#include "platform/system/Kernel.h"

namespace Lorrel {

// The computer that the program runs on. What it does not know reads as the
// placeholder "-", an absent value, 0, or a localised "unknown" text.
// Thread: any; a value that is set by one thread while another reads it, one
// at a time.
class MacSystem {
public:
    MacSystem() = delete;

    // Computed on their first read, kept for the life of the process, and
    // replaceable by assignment.
    static std::string serialNumber();
    static void setSerialNumber(std::string value);
    static std::string marketingName();
    static void setMarketingName(std::string value);
    static std::string computerName();
    static void setComputerName(std::string value);
    // The model identifier ("MacBookPro18,3", a PC's product name).
    static std::string model();
    static void setModel(std::string value);
    static std::string cpuBrand();
    static void setCpuBrand(std::string value);
    static std::string hostName();
    static void setHostName(std::string value);
    // Counts are the low byte of the kernel's number.
    static std::uint8_t threadCount();
    static void setThreadCount(std::uint8_t value);
    static std::uint8_t physicalCoreCount();
    static void setPhysicalCoreCount(std::uint8_t value);
    static std::uint8_t logicalCoreCount();
    static void setLogicalCoreCount(std::uint8_t value);
    // The machine field of uname ("arm64", "x86_64").
    static std::string architecture();
    static void setArchitecture(std::string value);
    // "Apple Silicon" where the machine field begins with "arm", else "Intel".
    static std::string processorName();
    static void setProcessorName(std::string value);
    static std::optional<AppleHardwareDetails> hardwareDetails();
    static void setHardwareDetails(std::optional<AppleHardwareDetails> value);

    // Read from their files once; null when the file cannot be read. Main thread.
    static Platform::ImageRef bigSurWallpaper();
    static Platform::ImageRef montereyWallpaper();
    static Platform::ImageRef venturaWallpaper();

    // Asked of the system on every call.
    static Platform::IOPort mainPort();
    // The symbol for the kind of computer, from model().
    static std::string symbolName();
    // The system's name for a kernel's major release number.
    static std::string osName(int kernelVersion);
    static std::string osName();
    static std::optional<int> osMajorVersion();
    static std::string osVersionString();
    static std::string osVersionText();
    static std::string osMarketingVersionText();
    static std::string osDescription();
    static std::string osProductVersion();
    static int activeProcessorCount();
    // 0 nominal, 1 fair, 2 serious, 3 critical.
    static int thermalState();
    // Bytes, and the same as text in binary units.
    static std::uint64_t physicalMemory();
    static std::string physicalMemoryText();
    static bool isAppleSilicon();
    // Absent unless architecture() is "arm64".
    static std::optional<int> efficiencyCoreCount();
    static std::optional<int> performanceCoreCount();
    // Time since the start, without and with what was slept through where the
    // system counts so; layouts as DateUtilities::clockText.
    static std::string uptimeText();
    static std::string bootUptimeText();
    static Platform::HostBasicInfo hostBasicInfo();
};

}  // namespace Lorrel
