#include "examples/pellora/StatusDisplay.h"

namespace Pellora {

void prepareDesktop() {}

std::shared_ptr<StatusDisplay> statusDisplayFor(const Monitor&, Lorrel::IAutoStartController&, const Settings&)
{
    return nullptr;
}

}  // namespace Pellora
