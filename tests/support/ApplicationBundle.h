#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "tests/support/TemporaryDirectory.h"

namespace Tests {

// Makes the bundle NAME in the folder, its program a copy of the given one
// under the name "program"; the bundle's path.
inline std::string makeApplication(const TemporaryDirectory& folder, const std::string& name,
                                   const std::optional<std::string>& identifier, const std::string& program)
{
    std::string info = "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>program</string>";
    if (identifier) info += "<key>CFBundleIdentifier</key><string>" + *identifier + "</string>";
    folder.write(name + "/Contents/Info.plist", info + "</dict></plist>");
    const std::string binaries = folder.makeFolder(name + "/Contents/MacOS");
    std::filesystem::copy_file(program, binaries + "/program");
    return folder / name;
}

}  // namespace Tests
