#pragma once

#include <optional>
#include <string>

namespace Platform {

// What the session tells a program about itself, replaceable in tests.
// Thread: any.
class Environment {
public:
    static Environment& shared();
    virtual ~Environment() = default;

    // A variable of the environment; absent when unset.
    virtual std::optional<std::string> variable(const std::string& name) const = 0;
    // Home folder without trailing slash: HOME, else the account's.
    virtual std::string homeDirectory() const = 0;
    // The account's login name.
    virtual std::string userName() const = 0;

    // XDG base folders with their defaults below the home folder; a value
    // that is not absolute counts as unset.
    std::string configHome() const;
    std::string dataHome() const;
    std::string cacheHome() const;
    // XDG_RUNTIME_DIR; where it is unset, a private folder of this user under the temporary folder.
    std::string runtimeDirectory() const;

private:
    std::string folder(const std::string& name, const std::string& fallbackBelowHome) const;
};

// The folders that the system's facts are read below, replaceable in tests.
// Each is absolute, without trailing slash ("" for the root itself).
class SystemRoots {
public:
    static SystemRoots& shared();
    virtual ~SystemRoots() = default;

    virtual std::string proc() const { return "/proc"; }
    virtual std::string sys() const { return "/sys"; }
    virtual std::string etc() const { return "/etc"; }
    virtual std::string applications() const { return "/Applications"; }
    virtual std::string system() const { return "/System"; }
    virtual std::string library() const { return "/Library"; }
};

// The platform version that branches by version use: a setting of this layer,
// 14.0 unless replaced; it says nothing about the Linux below.
class OperatingSystemVersion {
public:
    static OperatingSystemVersion& shared();
    virtual ~OperatingSystemVersion() = default;

    virtual int major() const { return 14; }
    virtual int minor() const { return 0; }
    bool isAtLeast(int wantedMajor, int wantedMinor = 0) const;
};

}  // namespace Platform
