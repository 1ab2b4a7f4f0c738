#include "platform/files/IconService.h"

#include <memory>

#include "platform/runtime/Log.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

class NoIcons final : public IconService {
public:
    NoIcons() { log("Icons: this program draws nothing, so there are none"); }

    ImageRef iconForFile(const std::string&) override { return nullptr; }
    ImageRef iconForContentType(std::string_view) override { return nullptr; }
    ImageRef iconForFileType(std::string_view) override { return nullptr; }
    ImageRef imageFromFile(const Url&) override { return nullptr; }
};

}  // namespace

IconService& IconService::shared()
{
    return Shared<IconService>::get([] { return std::make_unique<NoIcons>(); });
}

}  // namespace Platform
