#pragma once

#include "platform/runtime/Url.h"

namespace Lorrel {

// The desktop's file browser.
class Finder {
public:
    Finder() = delete;

    // Shows the file, selected, in its folder. Returns at once; a desktop
    // without a file browser shows nothing, and the log says so. Thread: main.
    static void reveal(const Platform::Url& file);
};

}  // namespace Lorrel
