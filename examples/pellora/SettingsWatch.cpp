#include "examples/pellora/SettingsWatch.h"

#include <filesystem>
#include <utility>

#include "platform/files/FileHandle.h"
#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/Log.h"

namespace Pellora {

namespace {

// Made where nothing has been saved yet: a folder that is not there cannot be watched.
std::string folderOf(const Platform::UserDefaults& kept)
{
    const auto folder = std::filesystem::path(kept.path()).parent_path();
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    return folder;
}

}  // namespace

SettingsWatch::SettingsWatch(const Platform::UserDefaults& kept, std::function<void()> handler)
    : folder_(Platform::openForEvents(Platform::Url::fromPath(folderOf(kept), true)))
{
    auto watch = Platform::FileSystemEvents::shared().watch(
        folder_.get(), [handler = std::move(handler)](Platform::FileEvents) { handler(); });
    if (watch) {
        watch_ = std::move(watch).value();
    } else {
        Platform::log("Settings in " + kept.path() + " are not watched: " + watch.error().message());
    }
}

}  // namespace Pellora
