#pragma once

#include <functional>

#include "platform/runtime/Result.h"
#include "platform/runtime/Url.h"

namespace Platform {

// Has the session's file browser show an entry, selected, through the bus name
// org.freedesktop.FileManager1 (the freedesktop file-manager interface); the
// bus starts one where none runs. False when there is no bus to ask. The
// browser's refusal, or its silence for ten seconds, reaches the handler later.
// Thread: main.
bool showInFileBrowser(const Url& entry, std::function<void(const Error&)> onRefusal);

}  // namespace Platform
