#include "Fennick/Profiler.h"

#include <charconv>
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

// With a point, whatever the C locale of the program.
std::string fiveDecimals(double number)
{
    char digits[400];  // the largest double has 309 of them before its point
    char* const end = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, 5).ptr;
    return std::string(digits, end);
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
    const std::string line = std::string(name) + ": " + fiveDecimals(milliseconds) + " ms\n";
    std::fwrite(line.data(), 1, line.size(), stdout);
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
