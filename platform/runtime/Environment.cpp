#include "platform/runtime/Environment.h"

#include <cstdlib>
#include <memory>
#include <vector>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

struct Account {
    std::string name;
    std::string home;
};

Account account()
{
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
    if (!found) return {std::to_string(::getuid()), "/"};
    return {found->pw_name, found->pw_dir};
}

// Made where it is missing; another account may have put something in its place.
bool isPrivateFolder(const std::string& path)
{
    ::mkdir(path.c_str(), 0700);
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return false;
    return S_ISDIR(status.st_mode) && status.st_uid == ::getuid() && (status.st_mode & 0077) == 0;
}

class ProcessEnvironment final : public Environment {
public:
    std::optional<std::string> variable(const std::string& name) const override
    {
        const char* value = std::getenv(name.c_str());
        if (!value) return std::nullopt;
        return value;
    }

    std::string homeDirectory() const override
    {
        std::string home = variable("HOME").value_or("");
        if (home.empty() || home.front() != '/') home = account().home;
        while (home.size() > 1 && home.back() == '/') home.pop_back();
        return home;
    }

    std::string userName() const override { return account().name; }
};

}  // namespace

Environment& Environment::shared()
{
    return Shared<Environment>::get([] { return std::make_unique<ProcessEnvironment>(); });
}

std::string Environment::folder(const std::string& name, const std::string& fallbackBelowHome) const
{
    const std::string value = variable(name).value_or("");
    if (!value.empty() && value.front() == '/') return value;
    return homeDirectory() + fallbackBelowHome;
}

std::string Environment::configHome() const
{
    return folder("XDG_CONFIG_HOME", "/.config");
}

std::string Environment::dataHome() const
{
    return folder("XDG_DATA_HOME", "/.local/share");
}

std::string Environment::cacheHome() const
{
    return folder("XDG_CACHE_HOME", "/.cache");
}

std::string Environment::runtimeDirectory() const
{
    const std::string value = variable("XDG_RUNTIME_DIR").value_or("");
    if (!value.empty() && value.front() == '/') return value;
    const std::string fallback = "/tmp/pellora-runtime-" + std::to_string(::getuid());
    return isPrivateFolder(fallback) ? fallback : cacheHome();
}

SystemRoots& SystemRoots::shared()
{
    return Shared<SystemRoots>::get([] { return std::make_unique<SystemRoots>(); });
}

OperatingSystemVersion& OperatingSystemVersion::shared()
{
    return Shared<OperatingSystemVersion>::get([] { return std::make_unique<OperatingSystemVersion>(); });
}

bool OperatingSystemVersion::isAtLeast(int wantedMajor, int wantedMinor) const
{
    return major() != wantedMajor ? major() > wantedMajor : minor() >= wantedMinor;
}

}  // namespace Platform
