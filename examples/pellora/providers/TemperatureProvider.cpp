#include "examples/pellora/providers/TemperatureProvider.h"

#include <algorithm>
#include <array>

#include "examples/pellora/Texts.h"
#include "examples/pellora/providers/FolderNames.h"
#include "platform/runtime/Environment.h"

namespace Pellora {

namespace {

// Where the kernel's drivers show temperatures, best first.
struct Source {
    const char* folder;
    const char* name;  // the file that says what is measured
    const char* value;
};
constexpr Source sources[] = {
    {"/class/hwmon/", "/name", "/temp1_input"},
    {"/class/thermal/", "/type", "/temp"},
};
constexpr std::array processorSensors{"coretemp",     "k10temp",     "zenpower",   "cpu_thermal",
                                      "x86_pkg_temp", "cpu-thermal", "soc_thermal"};

constexpr double hottest = 100;  // degrees, where processors slow down

using Readable = std::unique_ptr<SystemFile>;

Readable sensorBelow(const std::string& folder, const Source& source)
{
    auto file = std::make_unique<SystemFile>(folder + source.value);
    return file->readNumber() ? std::move(file) : nullptr;
}

bool isProcessorSensor(const std::string& name)
{
    return std::ranges::find(processorSensors, name) != processorSensors.end();
}

Readable processorSensor()
{
    for (const Source& source : sources) {
        const std::string all = Platform::SystemRoots::shared().sys() + source.folder;
        for (const auto& name : namesIn(all)) {
            if (!isProcessorSensor(firstLineOf(all + name + source.name))) continue;
            if (auto sensor = sensorBelow(all + name, source)) return sensor;
        }
    }
    return nullptr;
}

Readable firstZone()
{
    const Source& zones = sources[1];
    const std::string all = Platform::SystemRoots::shared().sys() + zones.folder;
    for (const auto& name : namesIn(all)) {
        if (!name.starts_with("thermal_zone")) continue;  // the rest are fans and the like
        if (auto sensor = sensorBelow(all + name, zones)) return sensor;
    }
    return nullptr;
}

}  // namespace

TemperatureProvider::TemperatureProvider() : sensor_(processorSensor())
{
    if (!sensor_) sensor_ = firstZone();
    if (sensor_) reading_ = addRaw("temperature", text("TEMPERATURE"), 1, GraphScale::to(hottest));
}

void TemperatureProvider::update(double /*elapsed*/)
{
    if (!reading_) return;
    const auto thousandths = sensor_->readNumber();
    take(reading_, thousandths ? std::optional(static_cast<double>(*thousandths) / 1000) : std::nullopt);
}

}  // namespace Pellora
