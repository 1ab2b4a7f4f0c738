#include "platform/session/internal/AutostartFolder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include <unistd.h>

#include "platform/runtime/Environment.h"
#include "platform/runtime/FileBytes.h"
#include "platform/session/internal/ReplaceFile.h"

namespace Platform {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view ending = ".desktop";
constexpr std::size_t largestEntry = 1 << 20;

std::string fileOf(const std::string& identifier)
{
    return AutostartFolder::path() + "/" + identifier + ".desktop";
}

bool isFileName(const std::string& identifier)
{
    return !identifier.empty() && !identifier.starts_with('.') && identifier.find('/') == std::string::npos &&
           identifier.find('\0') == std::string::npos;
}

// Starters disagree on how these are quoted, and on "%%".
bool isAwkward(const std::string& program)
{
    return std::ranges::any_of(program, [](char c) {
        return static_cast<unsigned char>(c) < 0x20 ||
               std::string_view("\"`$\\%\x7f").find(c) != std::string_view::npos;
    });
}

std::string linkOf(const std::string& identifier)
{
    return Environment::shared().dataHome() + "/com.orvane.login-items/" + identifier;
}

// The link to a program whose path starters may misread, replaced as a whole.
Result<void> makeLink(const std::string& link, const std::string& program)
{
    const std::string folder = fs::path(link).parent_path();
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) return Error::fromErrno("mkdir", folder, failure.value());
    const std::string temporary = link + ".new";
    ::unlink(temporary.c_str());
    if (::symlink(program.c_str(), temporary.c_str()) != 0) return Error::fromErrno("symlink", link, errno);
    if (::rename(temporary.c_str(), link.c_str()) != 0) return Error::fromErrno("rename", link, errno);
    return {};
}

}  // namespace

std::string AutostartFolder::path()
{
    return Environment::shared().configHome() + "/autostart";
}

std::optional<std::vector<std::string>> AutostartFolder::identifiers()
{
    std::error_code failure;
    fs::directory_iterator entries(path(), failure);
    std::vector<std::string> found;
    if (failure == std::errc::no_such_file_or_directory) return found;
    if (failure) return std::nullopt;
    for (; !failure && entries != fs::directory_iterator(); entries.increment(failure)) {
        const std::string name = entries->path().filename();
        if (name.size() > ending.size() && name.ends_with(ending)) {
            found.push_back(name.substr(0, name.size() - ending.size()));
        }
    }
    std::ranges::sort(found);
    return found;
}

std::optional<DesktopEntry> AutostartFolder::read(const std::string& identifier)
{
    if (!isFileName(identifier)) return std::nullopt;
    const auto text = readFileBytes(fileOf(identifier), largestEntry);
    return text ? std::optional(DesktopEntry::parse(*text)) : std::nullopt;
}

bool AutostartFolder::isEnabled(const DesktopEntry& entry)
{
    return !entry.isTrue("Hidden") && entry.value("X-GNOME-Autostart-enabled") != "false";
}

bool AutostartFolder::startsSomething(const DesktopEntry& entry)
{
    const std::string program = execProgram(entry.value("Exec").value_or(""));
    return program.starts_with('/') && ::access(program.c_str(), X_OK) == 0;
}

Result<void> AutostartFolder::enable(const std::string& identifier, const std::string& name, const std::string& program)
{
    if (!isFileName(identifier)) return Error::fromErrno("open", identifier, EINVAL);
    const std::string link = linkOf(identifier);
    const bool needsLink = isAwkward(program);
    if (needsLink) {
        if (auto made = makeLink(link, program); !made) return made;
    }
    const std::string& started = needsLink ? link : program;

    DesktopEntry entry = read(identifier).value_or(DesktopEntry());
    entry.set("Type", "Application");
    if (!entry.value("Name")) entry.set("Name", name);
    entry.set("Exec", execArgument(started));
    entry.set("TryExec", started);
    entry.remove("Hidden");
    entry.remove("X-GNOME-Autostart-enabled");
    auto written = replaceFile(fileOf(identifier), entry.text());
    if (written && !needsLink) ::unlink(link.c_str());
    return written;
}

Result<void> AutostartFolder::remove(const std::string& identifier)
{
    if (!isFileName(identifier)) return Error::fromErrno("unlink", identifier, EINVAL);
    const std::string file = fileOf(identifier);
    if (::unlink(file.c_str()) != 0 && errno != ENOENT) return Error::fromErrno("unlink", file, errno);
    ::unlink(linkOf(identifier).c_str());
    return {};
}

}  // namespace Platform
