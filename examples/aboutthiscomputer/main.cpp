// Shows what the desktop library knows of this computer: a neat panel, or with
// --json one JSON record, where numbers are numbers and what is unknown is null.
#include <cstdint>
#include <cstdio>
#include <optional>
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

using Fennick::AnyValue;
using Lorrel::MacSystem;

struct Fact {
    const char* key;
    const char* title;
    AnyValue value;
    std::string words;  // as the panel shows it
};

Fact text(const char* key, const char* title, const std::string& value)
{
    return {key, title, value, value.empty() ? "-" : value};
}

Fact number(const char* key, const char* title, std::optional<std::int64_t> value)
{
    if (!value) return {key, title, Fennick::Null{}, "-"};
    return {key, title, *value, std::to_string(*value)};
}

Fact truth(const char* key, const char* title, bool value)
{
    return {key, title, value, value ? "yes" : "no"};
}

Fact memory()
{
    return {"memory", "Memory", MacSystem::physicalMemory(), MacSystem::physicalMemoryText()};
}

Fact thermalState()
{
    constexpr const char* words[] = {"nominal", "fair", "serious", "critical"};
    return {"thermalState", "Thermal state", MacSystem::thermalState(), words[MacSystem::thermalState()]};
}

std::string modelName()
{
    const auto device = Lorrel::MacDevices::device(MacSystem::model());
    return device ? device->description : MacSystem::marketingName();
}

std::vector<Fact> facts()
{
    const Platform::HostBasicInfo host = MacSystem::hostBasicInfo();
    return {
        text("computerName", "Name", MacSystem::computerName()),
        text("hostName", "Host", MacSystem::hostName()),
        text("model", "Model", MacSystem::model()),
        text("modelName", "Model name", modelName()),
        text("marketingName", "Marketing name", MacSystem::marketingName()),
        text("symbolName", "Symbol", MacSystem::symbolName()),
        text("serialNumber", "Serial number", MacSystem::serialNumber()),
        text("processor", "Processor", MacSystem::cpuBrand()),
        text("processorName", "Processor name", MacSystem::processorName()),
        text("architecture", "Architecture", MacSystem::architecture()),
        truth("isAppleSilicon", "Apple Silicon", MacSystem::isAppleSilicon()),
        number("physicalCores", "Cores", MacSystem::physicalCoreCount()),
        number("logicalCores", "Logical cores", MacSystem::logicalCoreCount()),
        number("threads", "Threads", MacSystem::threadCount()),
        number("activeProcessors", "Active processors", MacSystem::activeProcessorCount()),
        number("maximumProcessors", "Maximum processors", host.max_cpus),
        number("efficiencyCores", "Efficiency cores", MacSystem::efficiencyCoreCount()),
        number("performanceCores", "Performance cores", MacSystem::performanceCoreCount()),
        memory(),
        thermalState(),
        text("system", "System", MacSystem::osDescription()),
        text("systemVersion", "System version", MacSystem::osMarketingVersionText()),
        number("majorVersion", "Major version", MacSystem::osMajorVersion()),
        text("productVersion", "Product version", MacSystem::osProductVersion()),
        text("uptime", "Awake for", MacSystem::uptimeText()),
        text("bootUptime", "Since start", MacSystem::bootUptimeText()),
    };
}

// What the system's table of models says of this one, where it has such a table.
std::vector<Fact> details()
{
    const auto known = MacSystem::hardwareDetails();
    if (!known) return {};
    return {
        text("processor", "Table: processor", known->processor),
        text("description", "Table: description", known->description),
        text("marketingModel", "Table: name", known->marketingModel),
        text("model", "Table: model", known->model),
    };
}

void printPanel()
{
    for (const auto& lines : {facts(), details()}) {
        for (const Fact& fact : lines) std::printf("%20s  %s\n", fact.title, fact.words.c_str());
    }
}

Fennick::AnyDictionary record(std::vector<Fact> lines)
{
    Fennick::AnyDictionary values;
    for (Fact& fact : lines) values[fact.key] = std::move(fact.value);
    return values;
}

void printJson()
{
    Fennick::AnyDictionary computer = record(facts());
    auto table = details();
    computer["hardwareDetails"] = table.empty() ? AnyValue(Fennick::Null{}) : AnyValue(record(std::move(table)));
    Platform::JSONEncoder encoder;
    encoder.format = Platform::JSONEncoder::Format::pretty;
    std::printf("%s\n", encoder.encode(Fennick::AnyCodable(std::move(computer))).c_str());
}

}  // namespace

int main(int argc, char** argv)
{
    const bool wantsJson = argc == 2 && std::string_view(argv[1]) == "--json";
    if (argc > 1 && !wantsJson) {
        std::fprintf(stderr, "usage: %s [--json]\n", argv[0]);
        return 2;
    }
    wantsJson ? printJson() : printPanel();
    return 0;
}
