#include <string_view>

#include "platform/files/FileManager.h"
#include "platform/runtime/Environment.h"

namespace Platform {

namespace {

// The value of a line like XDG_DOCUMENTS_DIR="$HOME/Papers", its escapes resolved;
// empty when the line is none of it. The format of xdg-user-dirs: a path below
// $HOME or an absolute one.
std::string valueOf(std::string_view line, std::string_view name, const std::string& home)
{
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(name) || !line.substr(name.size()).starts_with("=\"")) return "";
    line.remove_prefix(name.size() + 2);
    std::string value;
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) ++i;
        value += line[i];
    }
    if (value == "$HOME" || value.starts_with("$HOME/")) return home + value.substr(5);
    return value.starts_with('/') ? value : "";
}

}  // namespace

Url documentsFolder()
{
    const Environment& environment = Environment::shared();
    const std::string home = environment.homeDirectory();
    const auto settings = FileManager::shared().contents(environment.configHome() + "/user-dirs.dirs");
    std::string path = home + "/Documents";
    std::string_view rest = settings ? std::string_view(*settings) : std::string_view();
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string value = valueOf(rest.substr(0, end), "XDG_DOCUMENTS_DIR", home);
        if (!value.empty()) path = value;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return Url::fromPath(path, true);
}

}  // namespace Platform
