// Shows what the desktop library knows of this computer: a neat panel, or with
// --json one JSON record.
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Fennick/coding/AnyCodable.h"
#include "Fennick/coding/AnyDictionary.h"
#include "Lorrel/system/MacDevices.h"
#include "Lorrel/system/MacSystem.h"
#include "platform/coding/JSONEncoder.h"

namespace {

using Lorrel::MacSystem;

struct Fact {
    const char* key;
    const char* title;
    std::string value;
};

std::string orDash(std::string text)
{
    return text.empty() ? "-" : text;
}
std::string count(std::optional<int> number)
{
    return number ? std::to_string(*number) : "-";
}

std::string thermalWord()
{
    constexpr const char* words[] = {"nominal", "fair", "serious", "critical"};
    return words[MacSystem::thermalState()];
}

std::string modelName()
{
    const auto device = Lorrel::MacDevices::device(MacSystem::model());
    return device ? device->description : MacSystem::marketingName();
}

std::vector<Fact> facts()
{
    return {
        {"computerName", "Name", MacSystem::computerName()},
        {"hostName", "Host", orDash(MacSystem::hostName())},
        {"model", "Model", orDash(MacSystem::model())},
        {"modelName", "Model name", modelName()},
        {"serialNumber", "Serial number", MacSystem::serialNumber()},
        {"processor", "Processor", orDash(MacSystem::cpuBrand())},
        {"architecture", "Architecture", MacSystem::architecture()},
        {"physicalCores", "Cores", std::to_string(MacSystem::physicalCoreCount())},
        {"logicalCores", "Threads", std::to_string(MacSystem::logicalCoreCount())},
        {"activeProcessors", "Active", std::to_string(MacSystem::activeProcessorCount())},
        {"efficiencyCores", "Efficiency cores", count(MacSystem::efficiencyCoreCount())},
        {"performanceCores", "Performance cores", count(MacSystem::performanceCoreCount())},
        {"memory", "Memory", MacSystem::physicalMemoryText()},
        {"thermalState", "Thermal state", thermalWord()},
        {"system", "System", MacSystem::osDescription()},
        {"productVersion", "Version", orDash(MacSystem::osProductVersion())},
        {"uptime", "Awake for", MacSystem::uptimeText()},
        {"bootUptime", "Since start", MacSystem::bootUptimeText()},
    };
}

void printPanel(const std::vector<Fact>& lines)
{
    for (const Fact& fact : lines) std::printf("%20s  %s\n", fact.title, fact.value.c_str());
}

void printJson(const std::vector<Fact>& lines)
{
    Fennick::AnyDictionary record;
    for (const Fact& fact : lines) record[fact.key] = fact.value;
    Platform::JSONEncoder encoder;
    encoder.format = Platform::JSONEncoder::Format::pretty;
    std::printf("%s\n", encoder.encode(Fennick::AnyCodable(std::move(record))).c_str());
}

}  // namespace

int main(int argc, char** argv)
{
    const bool wantsJson = argc > 1 && std::string_view(argv[1]) == "--json";
    if (argc > 1 && !wantsJson) {
        std::fprintf(stderr, "usage: %s [--json]\n", argv[0]);
        return 2;
    }
    wantsJson ? printJson(facts()) : printPanel(facts());
    return 0;
}
