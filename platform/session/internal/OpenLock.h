#pragma once

#include <string_view>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Result.h"

namespace Platform {

// The session-wide right to start the application of this name, held while the
// descriptor or a copy of it in a child is open. Waits at most 2 s for another
// holder. Where the runtime folder takes no file the descriptor is closed: the
// application is opened unguarded rather than not at all, and the log says so.
Result<FileDescriptor> takeOpenLock(std::string_view application);

}  // namespace Platform
