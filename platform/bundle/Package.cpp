#include <algorithm>

#include "platform/bundle/Bundle.h"

namespace Platform {

namespace {

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lowered(x) == lowered(y); });
}

}  // namespace

const std::vector<std::string_view>& packageEndings()
{
    static const std::vector<std::string_view> endings{
        ".app",           ".appex",       ".xpc",        ".bundle", ".plugin",    ".prefPane",
        ".kext",          ".qlgenerator", ".mdimporter", ".saver",  ".component", ".rtfd",
        ".photoslibrary", ".xcodeproj",   ".workflow",   ".pkg",    ".mpkg"};
    return endings;
}

bool isPackage(std::string_view name)
{
    while (name.size() > 1 && name.back() == '/') name.remove_suffix(1);
    name = name.substr(name.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) return false;
    const auto& endings = packageEndings();
    return std::any_of(endings.begin(), endings.end(),
                       [&](std::string_view ending) { return equalIgnoringCase(name.substr(dot), ending); });
}

std::optional<std::string> innermostPackage(std::string_view path)
{
    // A package has a dot in its name; most programs' paths have none at all.
    if (path.find('.') == std::string_view::npos) return std::nullopt;
    std::size_t slash = path.rfind('/');
    while (slash != std::string_view::npos && slash > 0) {
        path = path.substr(0, slash);
        slash = path.rfind('/');
        if (isPackage(path)) return std::string(path);
    }
    return std::nullopt;
}

}  // namespace Platform
