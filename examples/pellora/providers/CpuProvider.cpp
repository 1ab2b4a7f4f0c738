#include "examples/pellora/providers/CpuProvider.h"

#include <array>

#include "examples/pellora/Texts.h"
#include "examples/pellora/providers/Scan.h"
#include "platform/runtime/Environment.h"

namespace Pellora {

namespace {

// The columns of a processor's line. The time of guests is in the first two already.
enum Column { user, nice, system, idle, iowait, irq, softirq, steal, columnCount };

constexpr std::size_t highestCore = 4095;  // more is damage, not a machine

std::uint64_t grown(std::uint64_t before, std::uint64_t now)
{
    return now > before ? now - before : 0;  // some counters of the kernel step back
}

}  // namespace

CpuProvider::CpuProvider() : file_(Platform::SystemRoots::shared().proc() + "/stat")
{
    if (!file_.read().starts_with("cpu")) return;
    total_.reading = addPercentage("cpu.total", text("CPU_TOTAL"));
    readAll();
}

std::optional<CpuProvider::Times> CpuProvider::timesFrom(std::string_view columns)
{
    std::array<std::uint64_t, columnCount> count{};
    for (int column = 0; column < columnCount; ++column) {
        const auto number = takeNumber<std::uint64_t>(columns);
        if (!number && column <= idle) return std::nullopt;  // older kernels have fewer, but these four
        count[static_cast<std::size_t>(column)] = number.value_or(0);
    }
    return Times{count[user] + count[nice] + count[system] + count[irq] + count[softirq] + count[steal],
                 count[idle] + count[iowait]};
}

CpuProvider::Processor& CpuProvider::core(std::size_t number)
{
    while (cores_.size() <= number) {
        const std::string digits = std::to_string(cores_.size());
        cores_.push_back({addPercentage("cpu.core." + digits, text("CPU_CORE", digits)), std::nullopt});
    }
    return cores_[number];
}

void CpuProvider::take(Processor& processor, Times now)
{
    processor.isSeen = true;
    if (processor.last) {
        const auto busy = static_cast<double>(grown(processor.last->busy, now.busy));
        const auto all = busy + static_cast<double>(grown(processor.last->idle, now.idle));
        if (all == 0) return;  // the counters have not moved on: the last number stands
        processor.reading->set(100 * busy / all);
    }
    processor.last = now;
}

void CpuProvider::readAll()
{
    std::string_view content = file_.read();
    while (content.starts_with("cpu")) {
        std::string_view line = takeLine(content);
        std::string_view name = takeWord(line).substr(3);
        const auto times = timesFrom(line);
        if (!times) continue;
        if (name.empty()) {
            take(total_, *times);
        } else if (const auto number = takeNumber<std::size_t>(name); number && *number <= highestCore) {
            take(core(*number), *times);
        }
    }
}

void CpuProvider::update(double /*elapsed*/)
{
    if (!total_.reading) return;
    for (auto& each : cores_) each.isSeen = false;
    readAll();
    for (auto& each : cores_) {
        if (each.isSeen) continue;
        Pellora::take(each.reading, std::optional<double>());
        each.last.reset();
    }
}

}  // namespace Pellora
