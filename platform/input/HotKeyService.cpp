#include "platform/input/HotKeyService.h"

#include "platform/input/InProcessHotKeyService.h"
#include "platform/input/internal/X11HotKeyService.h"
#include "platform/runtime/Shared.h"

namespace Platform {

HotKeyService& HotKeyService::shared()
{
    return Shared<HotKeyService>::get([]() -> std::unique_ptr<HotKeyService> {
        if (auto service = X11HotKeyService::open()) return service;
        return std::make_unique<InProcessHotKeyService>();
    });
}

}  // namespace Platform
