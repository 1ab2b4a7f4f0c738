#pragma once

#include <optional>
#include <string>

#include "platform/runtime/Image.h"

namespace Lorrel {

// How a mobile device is shown. Records are built anew by every lookup and
// shared by whoever holds them. Thread: one at a time; icon() on the main thread.
class MobileDevice {
public:
    MobileDevice(std::string name, std::string shortName, std::optional<std::string> iconName);
    virtual ~MobileDevice() = default;

    // The full marketing name ("Apple Watch Ultra").
    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }

    // A name for tight spaces ("Watch Ultra").
    const std::string& shortName() const { return shortName_; }
    void setShortName(std::string shortName) { shortName_ = std::move(shortName); }

    // The file of the device's picture in the system's device bundles; absent for some generic records.
    const std::optional<std::string>& iconName() const { return iconName_; }
    void setIconName(std::optional<std::string> iconName) { iconName_ = std::move(iconName); }

    // The picture named by iconName(), looked up anew on every read in the
    // bundles below /System/Library/CoreServices/CoreTypes.bundle/Contents/Library,
    // else the icon theme's device icon; absent without a name or a picture.
    Platform::ImageRef icon() const;

private:
    std::string name_;
    std::string shortName_;
    std::optional<std::string> iconName_;
};

// The families, told apart by type.
class Phone final : public MobileDevice {
    using MobileDevice::MobileDevice;
};
class Audio final : public MobileDevice {
    using MobileDevice::MobileDevice;
};
class Tablet final : public MobileDevice {
    using MobileDevice::MobileDevice;
};
class Watch final : public MobileDevice {
    using MobileDevice::MobileDevice;
};

}  // namespace Lorrel
