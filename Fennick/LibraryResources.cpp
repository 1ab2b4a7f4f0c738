#include "Fennick/LibraryResources.h"

#include "platform/bundle/ResourceBundle.h"
#include "platform/runtime/FatalError.h"

namespace Fennick {

std::shared_ptr<Platform::Bundle> requiredResourceBundle(const std::string& library, const void* inLibrary)
{
    const std::string name = library + '_' + library;
    auto bundle = Platform::findResourceBundle(name, inLibrary);
    if (!bundle) Platform::fatalError("unable to find bundle named " + name, library + "/resource_bundle_accessor");
    return bundle;
}

}  // namespace Fennick
