#include "examples/pellora/table/Sparkline.h"

#include <algorithm>
#include <array>

#include "examples/pellora/providers/Provider.h"

namespace Pellora {

namespace {

constexpr std::array bars{"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};

}  // namespace

std::string sparkline(std::span<const Platform::Number> history, std::size_t width, double full)
{
    const auto shown = history.last(std::min(width, history.size()));
    double lowest = 0;
    double highest = full;
    for (const auto& number : shown) {
        lowest = std::min(lowest, number.doubleValue());
        highest = std::max(highest, number.doubleValue());
    }
    const double step = (highest - lowest) / static_cast<double>(bars.size() - 1);
    std::string line;
    for (const auto& number : shown) {
        const double level = step > 0 ? (number.doubleValue() - lowest) / step + 0.5 : 0;
        line += bars[std::min(static_cast<std::size_t>(level), bars.size() - 1)];
    }
    return line;
}

std::string graphOf(const Fennick::IDataStore& readings, const std::string& key, std::size_t width)
{
    const auto history = width > 0 && readings.valueFor(key) ? readings.historyFor(key) : std::nullopt;
    if (!history) return {};
    const auto measure = readings.identifierAs<Measure>(key);
    const GraphScale graph = measure ? measure->graph() : GraphScale();
    return graph.kind == GraphScale::Kind::none ? std::string() : sparkline(*history, width, graph.full);
}

}  // namespace Pellora
