#include "platform/system/internal/Processors.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "platform/runtime/Environment.h"
#include "platform/runtime/Trim.h"
#include "platform/system/internal/SmallFile.h"

namespace Platform {

namespace {

constexpr long long mostProcessors = 1 << 16;

// The numbers of a kernel list such as "0-3,8,10-11"; empty when it is broken.
std::vector<int> numbersOf(std::string_view list)
{
    std::vector<int> numbers;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        const std::string_view range = trimmed(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
        const std::size_t dash = range.find('-');
        const auto first = parseNumber(range.substr(0, dash));
        const auto last = dash == std::string_view::npos ? first : parseNumber(range.substr(dash + 1));
        if (!first || !last || *first < 0 || *last < *first || *last >= mostProcessors) return {};
        for (auto number = *first; number <= *last; ++number) numbers.push_back(static_cast<int>(number));
    }
    return numbers;
}

std::vector<int> processorList(const std::string& name)
{
    const auto list = readLine(SystemRoots::shared().sys() + "/devices/system/cpu/" + name);
    return list ? numbersOf(*list) : std::vector<int>{};
}

int processorsInCpuinfo()
{
    const auto content = readSmallFile(SystemRoots::shared().proc() + "/cpuinfo", 16 << 20).value_or("");
    int count = 0;
    for (std::size_t at = 0; (at = content.find("processor", at)) != std::string::npos; ++at) {
        if (at == 0 || content[at - 1] == '\n') ++count;
    }
    return std::max(count, 1);
}

// Logical processors that share a core name one another as siblings.
int coresOf(const std::vector<int>& processors)
{
    std::set<int> counted;
    int cores = 0;
    for (const int processor : processors) {
        if (counted.contains(processor)) continue;
        const auto siblings = processorList("cpu" + std::to_string(processor) + "/topology/thread_siblings_list");
        if (siblings.empty()) return static_cast<int>(processors.size());  // no topology: each counts as a core
        counted.insert(siblings.begin(), siblings.end());
        ++cores;
    }
    return cores;
}

}  // namespace

int onlineProcessors()
{
    const auto online = processorList("online");
    return online.empty() ? processorsInCpuinfo() : static_cast<int>(online.size());
}

int presentProcessors()
{
    return std::max(onlineProcessors(), static_cast<int>(processorList("present").size()));
}

int physicalCores()
{
    const auto online = processorList("online");
    return online.empty() ? processorsInCpuinfo() : coresOf(online);
}

}  // namespace Platform
