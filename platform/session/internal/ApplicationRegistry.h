#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include <sys/types.h>

namespace Platform {

// What a bundle says about its application.
struct ApplicationFacts {
    std::optional<std::string> bundleIdentifier;
    std::string executable;
};

// Reads bundles' information dictionaries and keeps what they said for as long
// as the file stays the same (device, inode, size, time of change).
// Thread: one at a time.
class ApplicationRegistry {
public:
    // Null where the folder holds no application. Valid until the next call.
    const ApplicationFacts* factsOf(const std::string& bundlePath);

private:
    struct Stamp {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        std::time_t seconds = 0;
        long nanoseconds = 0;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    struct Entry {
        Stamp stamp;
        std::optional<ApplicationFacts> facts;
    };

    static std::optional<Stamp> stampOf(const std::string& bundlePath);
    static std::optional<ApplicationFacts> read(const std::string& bundlePath);

    std::unordered_map<std::string, Entry> entries_;
};

}  // namespace Platform
