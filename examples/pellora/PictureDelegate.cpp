#include "examples/pellora/PictureDelegate.h"

#include <utility>

#include "platform/runtime/Log.h"

namespace Pellora {

// Heard after the display, which has drawn the reading by then.
struct PictureDelegate::Counter final : Fennick::DataProviderContainerDelegate {
    Counter(std::shared_ptr<StatusDisplay> display, std::string path, std::int64_t readings)
        : shown(std::move(display)), file(std::move(path)), left(readings)
    {
    }
    void didRefresh(double /*elapsed*/) override
    {
        if (--left > 0) return;
        shown->writePicture(file);
        Platform::Application::shared().terminate();
    }
    const std::shared_ptr<StatusDisplay> shown;
    const std::string file;
    std::int64_t left;
};

PictureDelegate::PictureDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart, const Settings& settings,
                                 std::string path)
    : autoStart_(std::move(autoStart)), settings_(settings), path_(std::move(path))
{
    prepareDesktop();
}

void PictureDelegate::applicationDidFinishLaunching()
{
    monitor_ = std::make_unique<Monitor>(settings_);
    display_ = statusDisplayFor(*monitor_, *autoStart_, settings_);
    if (!display_) {
        Platform::log("Pellora: this build has no status item to draw");
        return Platform::Application::shared().terminate();
    }
    counter_ = std::make_shared<Counter>(display_, path_, monitor_->readings()->historySize());
    monitor_->addListener(display_);
    monitor_->addListener(counter_);
}

}  // namespace Pellora
