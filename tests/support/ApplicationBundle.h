#pragma once

#include <filesystem>

#include "tests/support/TemporaryDirectory.h"

namespace Tests {

// Writes the application bundle NAME below the folder; the path of its
// executable "Program", which has the given content (a script or a copied program).
inline std::string makeApplication(const TemporaryDirectory& folder, const std::string& name,
                                   const std::optional<std::string>& identifier, std::string_view program)
{
    std::string info = "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>Program</string>";
    if (identifier) info += "<key>CFBundleIdentifier</key><string>" + *identifier + "</string>";
    folder.write(name + "/Contents/Info.plist", info + "</dict></plist>");
    const std::string executable = folder.write(name + "/Contents/MacOS/Program", program);
    std::filesystem::permissions(executable, std::filesystem::perms::owner_all);
    return executable;
}

}  // namespace Tests
