#include "examples/pellora/providers/LoadProvider.h"

#include "examples/pellora/Texts.h"
#include "examples/pellora/providers/Scan.h"
#include "platform/runtime/Environment.h"

namespace Pellora {

LoadProvider::LoadProvider() : file_(Platform::SystemRoots::shared().proc() + "/loadavg")
{
    if (file_.read().empty()) return;
    constexpr std::array minutes{"1", "5", "15"};
    for (std::size_t at = 0; at < loads_.size(); ++at) {
        loads_[at] = addRaw(std::string("load.") + minutes[at], text("LOAD", minutes[at]), 2);
    }
}

void LoadProvider::update(double /*elapsed*/)
{
    if (!loads_.front()) return;
    std::string_view content = file_.read();
    for (const auto& load : loads_) take(load, takeNumber<double>(content));
}

}  // namespace Pellora
