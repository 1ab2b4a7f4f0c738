#pragma once

#include <memory>
#include <string>

#include "Fennick/datastore/IDataProviderContainer.h"
#include "Lorrel/apps/queries/IAutoStartController.h"
#include "examples/pellora/Monitor.h"
#include "examples/pellora/Settings.h"

namespace Pellora {

// What shows the readings in the desktop's status bar until it is let go. Thread: main.
class StatusDisplay : public Fennick::DataProviderContainerDelegate {
public:
    virtual void take(const Settings& settings) = 0;
    // Draws the item and its open menu as they are now, in the light and the
    // dark look, into a PNG file. What cannot be written is logged.
    virtual void writePicture(const std::string& path) = 0;
};

// Readies the desktop's services for this program; before the first reading.
void prepareDesktop();

// Null in a build without a desktop. Monitor and controller outlive it.
std::shared_ptr<StatusDisplay> statusDisplayFor(const Monitor& monitor, Lorrel::IAutoStartController& autoStart,
                                                const Settings& settings);

}  // namespace Pellora
