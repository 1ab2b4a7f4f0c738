#include "examples/pellora/table/ReadingsTable.h"

#include <algorithm>

#include "examples/pellora/table/Sparkline.h"
#include "platform/text/Characters.h"

namespace Pellora {

namespace {

struct Row {
    std::string name;
    std::string value;
    std::string graph;
};

std::string spaces(std::size_t wanted, std::size_t taken)
{
    return std::string(wanted > taken ? wanted - taken : 0, ' ');
}

}  // namespace

std::size_t columnsOf(std::string_view text)
{
    return Platform::characterCount(text);
}

std::vector<std::string> tableLines(const Fennick::IDataStore& readings, const std::vector<std::string>& keys,
                                    std::size_t graphWidth)
{
    std::vector<Row> rows;
    std::size_t nameWidth = 0;
    std::size_t valueWidth = 0;
    for (const auto& key : keys) {
        const auto identifier = readings.identifierFor(key);
        if (!identifier) continue;
        rows.push_back({identifier->name(), readings.stringFor(key), graphOf(readings, key, graphWidth)});
        nameWidth = std::max(nameWidth, columnsOf(rows.back().name));
        valueWidth = std::max(valueWidth, columnsOf(rows.back().value));
    }
    std::vector<std::string> lines;
    for (const auto& [name, value, graph] : rows) {
        lines.push_back(name + spaces(nameWidth + 2, columnsOf(name)) + spaces(valueWidth, columnsOf(value)) + value);
        if (!graph.empty()) lines.back() += "  " + graph;
    }
    return lines;
}

}  // namespace Pellora
