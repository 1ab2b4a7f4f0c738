#pragma once

#include "Fennick/LibraryResources.h"

namespace Lorrel {

// Stands for the image that holds the library.
class BundleFinder {
public:
    BundleFinder() = delete;
    static constexpr const char* library = "Lorrel";
    static const void* address();
};

// The library's resource bundle, Lorrel_Lorrel.bundle, and its texts. Thread: any.
using Resources = Fennick::LibraryResources<BundleFinder>;

}  // namespace Lorrel
