#pragma once

#include "Fennick/LibraryResources.h"

namespace Fennick {

// Stands for the image that holds the library.
class BundleFinder {
public:
    BundleFinder() = delete;
    static constexpr const char* library = "Fennick";
    static const void* address();
};

// The library's resource bundle, Fennick_Fennick.bundle, and its texts. Thread: any.
using Resources = LibraryResources<BundleFinder>;

}  // namespace Fennick
