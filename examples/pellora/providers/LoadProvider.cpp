#include "examples/pellora/providers/LoadProvider.h"

#include <algorithm>

#include "examples/pellora/Texts.h"
#include "examples/pellora/providers/Scan.h"
#include "platform/runtime/Environment.h"

namespace Pellora {

namespace {

// How many processors there are: the load that keeps all of them busy.
double processors()
{
    SystemFile file(Platform::SystemRoots::shared().proc() + "/stat");
    std::string_view content = file.read();
    double count = -1;  // the first line is that of all together
    while (takeLine(content).starts_with("cpu")) ++count;
    return std::max(count, 1.0);
}

}  // namespace

LoadProvider::LoadProvider() : file_(Platform::SystemRoots::shared().proc() + "/loadavg")
{
    if (file_.read().empty()) return;
    constexpr std::array minutes{"1", "5", "15"};
    const auto allBusy = GraphScale::to(processors());
    for (std::size_t at = 0; at < loads_.size(); ++at) {
        loads_[at] = addRaw(std::string("load.") + minutes[at], text("LOAD", minutes[at]), 2, allBusy);
    }
}

void LoadProvider::update(double /*elapsed*/)
{
    if (!loads_.front()) return;
    std::string_view content = file_.read();
    for (const auto& load : loads_) take(load, takeNumber<double>(content));
}

}  // namespace Pellora
