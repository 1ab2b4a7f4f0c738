#include "Fennick/Profiler.h"

#include <cstdio>
#include <memory>
#include <string>

#include "Fennick/datastore/RKDictionary.h"
#include "platform/runtime/Clock.h"
#include "platform/runtime/FatalError.h"
#include "platform/runtime/Shared.h"

namespace Fennick {

namespace {

using Starts = RKDictionary<std::string, double>;

Starts& activeMeasurements()
{
    return Platform::Shared<Starts>::get([] { return std::make_unique<Starts>(); });
}

}  // namespace

void Profiler::start(std::string_view name)
{
    activeMeasurements().set(std::string(name), Platform::Clock::shared().wallSeconds());
}

void Profiler::stop(std::string_view name)
{
    const auto start = activeMeasurements()[name];
    if (!start) return;
    const double milliseconds = (Platform::Clock::shared().wallSeconds() - *start) * 1'000;
    std::printf("%.*s: %.05f ms\n", static_cast<int>(name.size()), name.data(), milliseconds);
    activeMeasurements().set(std::string(name), std::nullopt);
}

void Profiler::stop()
{
    Starts& starts = activeMeasurements();
    const auto first = starts.begin();
    if (first == starts.end()) {
        Platform::fatalError("This function can not be used with more than one active Profiler.", "Fennick/Profiler");
    }
    const std::string name = first->key;
    stop(name);
}

}  // namespace Fennick
