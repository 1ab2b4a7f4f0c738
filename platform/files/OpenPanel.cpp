#include "platform/files/OpenPanel.h"

#include <utility>

#include "platform/runtime/Log.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

class NoOpenPanel final : public OpenPanel {
public:
    void beginSheet(const WindowRef&, const OpenPanelRequest&, Completion completion) override
    {
        log("Open panel: this program draws nothing, so nothing can be chosen");
        RunLoop::main().post([completion = std::move(completion)] { completion({}); });
    }
};

}  // namespace

OpenPanel& OpenPanel::shared()
{
    return Shared<OpenPanel>::get([] { return std::make_unique<NoOpenPanel>(); });
}

}  // namespace Platform
