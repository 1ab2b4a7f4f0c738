#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/bundle/Bundle.h"

namespace Platform {

// The bundle NAME.bundle of a library's resources, sought in this order:
// 1. the resource folder of the main bundle;
// 2. the resource folder of the library: that of the bundle around its image,
//    else share/pellora of the folder that the image (or its bundle) was built
//    or installed below, at most three levels up, else where the build installs to;
// 3. the main bundle's own folder.
// `inLibrary` is any address of the library's code: it tells its image. Null
// when no place has the bundle. Thread: any.
std::shared_ptr<Bundle> findResourceBundle(std::string_view name, const void* inLibrary);

}  // namespace Platform
