#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/Result.h"
#include "platform/session/internal/DesktopEntry.h"

namespace Platform {

// The user's folder of XDG autostart entries, one file IDENTIFIER.desktop for
// each program that the session starts. Read anew on every call.
class AutostartFolder {
public:
    // Below Environment::shared()'s configuration folder.
    static std::string path();

    // Sorted; absent when the folder is there but cannot be read.
    static std::optional<std::vector<std::string>> identifiers();
    // Absent when there is none that can be read.
    static std::optional<DesktopEntry> read(const std::string& identifier);

    // Whether the session starts it; the user's own switches are respected.
    static bool isEnabled(const DesktopEntry& entry);
    // Whether the program that it starts is there.
    static bool startsSomething(const DesktopEntry& entry);

    // Writes the entry, or mends the one that is there and keeps its other keys.
    static Result<void> enable(const std::string& identifier, const std::string& name, const std::string& program);
    // Also succeeds when there is none.
    static Result<void> remove(const std::string& identifier);
};

}  // namespace Platform
