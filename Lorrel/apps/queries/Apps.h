#pragma once

#include <string_view>

namespace Lorrel {

// Questions and requests about applications.
// Thread: any; meant for the main thread.
class Apps {
public:
    Apps() = delete;

    // Of the session alone; target lorrel_queries answers them.

    // Whether some running application has exactly this bundle identifier.
    static bool isRunning(std::string_view bundleIdentifier);
    // Asks the first running application with exactly this bundle identifier to
    // quit, which it may refuse. False when none runs or the request fails.
    static bool terminate(std::string_view bundleIdentifier);
    // Whether some process has exactly this name. Names have at most 16 characters.
    static bool isProcessRunning(std::string_view name);
    // Opens the application whose bundle folder is at the path, unless it runs
    // already. Nothing is reported; a refusal is logged.
    static void open(std::string_view path);
};

}  // namespace Lorrel
