#pragma once

#include <memory>
#include <string>

#include "Lorrel/apps/queries/IAutoStartController.h"
#include "examples/pellora/Monitor.h"
#include "examples/pellora/StatusDisplay.h"
#include "platform/runtime/Application.h"

namespace Pellora {

// Pellora for a picture: shows its status item until the graph is full, then
// draws it with its menu into a PNG file and ends. Thread: main.
class PictureDelegate final : public Platform::ApplicationDelegate {
public:
    PictureDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart, const Settings& settings,
                    std::string path);

    void applicationDidFinishLaunching() override;

private:
    struct Counter;

    const std::unique_ptr<Lorrel::IAutoStartController> autoStart_;
    const Settings settings_;
    const std::string path_;
    std::unique_ptr<Monitor> monitor_;
    std::shared_ptr<StatusDisplay> display_;
    std::shared_ptr<Counter> counter_;
};

}  // namespace Pellora
