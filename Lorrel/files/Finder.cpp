#include "Lorrel/files/Finder.h"

#include "platform/runtime/Log.h"
#include "platform/session/Workspace.h"

namespace Lorrel {

void Finder::reveal(const Platform::Url& file)
{
    const std::string root = file.isFileUrl() ? file.deletingLastPathComponent().path() : "";
    const auto shown = Platform::Workspace::shared().selectFile(file.path(), root);
    if (!shown) Platform::log("Reveal: " + shown.error().message());
}

}  // namespace Lorrel
