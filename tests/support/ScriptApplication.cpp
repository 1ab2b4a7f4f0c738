#include "tests/support/ScriptApplication.h"

#include <filesystem>
#include <fstream>

namespace Tests {

namespace fs = std::filesystem;

std::string writeScriptApplication(const std::string& path, std::string_view identifier, std::string_view program)
{
    const fs::path contents = fs::path(path) / "Contents";
    fs::create_directories(contents / "MacOS");
    std::ofstream(contents / "Info.plist")
        << "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" << identifier
        << "</string><key>CFBundleExecutable</key><string>Program</string></dict></plist>";
    const fs::path executable = contents / "MacOS" / "Program";
    if (!program.empty()) {
        std::ofstream(executable) << program;
        fs::permissions(executable, fs::perms::owner_all);
    }
    return executable;
}

}  // namespace Tests
