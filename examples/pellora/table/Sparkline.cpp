#include "examples/pellora/table/Sparkline.h"

#include <algorithm>
#include <array>

namespace Pellora {

namespace {

constexpr std::array bars{"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};

}  // namespace

std::string sparkline(std::span<const Platform::Number> history, std::size_t width)
{
    const auto shown = history.last(std::min(width, history.size()));
    double lowest = 0;
    double highest = 0;
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

}  // namespace Pellora
