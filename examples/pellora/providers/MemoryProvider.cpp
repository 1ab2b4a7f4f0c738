#include "examples/pellora/providers/MemoryProvider.h"

#include <utility>

#include "examples/pellora/Texts.h"
#include "examples/pellora/providers/Scan.h"
#include "platform/runtime/Environment.h"

namespace Pellora {

namespace {

// In bytes; absent where the kernel does not tell.
struct MemoryInfo {
    std::optional<std::uint64_t> total;
    std::optional<std::uint64_t> available;
    std::optional<std::uint64_t> swapTotal;
    std::optional<std::uint64_t> swapFree;
};

constexpr std::pair<std::string_view, std::optional<std::uint64_t> MemoryInfo::*> lines[] = {
    {"MemTotal:", &MemoryInfo::total},
    {"MemAvailable:", &MemoryInfo::available},
    {"SwapTotal:", &MemoryInfo::swapTotal},
    {"SwapFree:", &MemoryInfo::swapFree},
};

MemoryInfo memoryInfoFrom(std::string_view content)
{
    MemoryInfo info;
    while (!content.empty()) {
        std::string_view line = takeLine(content);
        const std::string_view label = takeWord(line);
        for (const auto& [wanted, member] : lines) {
            if (label != wanted) continue;
            if (const auto kilobytes = takeNumber<std::uint64_t>(line)) info.*member = *kilobytes * 1024;
        }
    }
    return info;
}

std::optional<std::uint64_t> used(std::optional<std::uint64_t> total, std::optional<std::uint64_t> left)
{
    if (!total || !left) return std::nullopt;
    return *total > *left ? *total - *left : 0;
}

std::optional<double> percentage(std::optional<std::uint64_t> part, std::optional<std::uint64_t> whole)
{
    if (!part || !whole || *whole == 0) return std::nullopt;
    return 100.0 * static_cast<double>(*part) / static_cast<double>(*whole);
}

GraphScale upTo(std::uint64_t bytes)
{
    return GraphScale::to(static_cast<double>(bytes));
}

}  // namespace

MemoryProvider::MemoryProvider() : file_(Platform::SystemRoots::shared().proc() + "/meminfo")
{
    const MemoryInfo info = memoryInfoFrom(file_.read());
    if (!info.total || !info.available) return;
    percent_ = addPercentage("memory.percent", text("MEMORY_PERCENT"));
    used_ = addSize("memory.used", text("MEMORY_USED"), upTo(*info.total));
    total_ = addSize("memory.total", text("MEMORY_TOTAL"), GraphScale::none());
    const auto swap = info.swapTotal.value_or(0);
    if (swap > 0) swap_ = addSize("swap.used", text("SWAP_USED"), upTo(swap));
}

void MemoryProvider::update(double /*elapsed*/)
{
    if (!percent_) return;
    const MemoryInfo info = memoryInfoFrom(file_.read());
    const auto inUse = used(info.total, info.available);
    take(percent_, percentage(inUse, info.total));
    take(used_, inUse);
    take(total_, info.total);
    if (swap_) take(swap_, used(info.swapTotal, info.swapFree));
}

}  // namespace Pellora
