#include "Lorrel/system/MobileDevice.h"

#include <utility>

#include "Lorrel/system/internal/DeviceIcons.h"

namespace Lorrel {

MobileDevice::MobileDevice(std::string name, std::string shortName, std::optional<std::string> iconName)
    : name_(std::move(name)), shortName_(std::move(shortName)), iconName_(std::move(iconName))
{
}

Platform::ImageRef MobileDevice::icon() const
{
    return iconName_ ? deviceIcon(*iconName_) : nullptr;
}

}  // namespace Lorrel
