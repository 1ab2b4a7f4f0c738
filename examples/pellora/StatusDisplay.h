#pragma once

#include <memory>

#include "Fennick/datastore/IDataProviderContainer.h"
#include "Lorrel/apps/queries/IAutoStartController.h"
#include "examples/pellora/Monitor.h"
#include "examples/pellora/Settings.h"

namespace Pellora {

// Readies the desktop's services for this program; before the first reading.
void prepareDesktop();

// Shows the readings in the desktop's status bar until it is let go. Null in a
// build without a desktop. Monitor and controller outlive it. Thread: main.
std::shared_ptr<Fennick::DataProviderContainerDelegate> statusDisplayFor(const Monitor& monitor,
                                                                         Lorrel::IAutoStartController& autoStart,
                                                                         const Settings& settings);

}  // namespace Pellora
