#pragma once

#include <cstdint>
#include <functional>

#include "platform/runtime/Result.h"
#include "platform/runtime/Subscription.h"

namespace Platform {

// What happened to one entry of the file system; several in one delivery.
enum class FileEvents : std::uint32_t {
    none = 0,
    removed = 1,     // the last name and the last opener are gone
    written = 2,     // content of a file, or the list of a folder's entries
    attributes = 4,  // permissions, dates, number of names
    renamed = 8,
    lost = 16,  // too much happened at once for the kernel to note: look for yourself
};

constexpr FileEvents operator|(FileEvents a, FileEvents b)
{
    return static_cast<FileEvents>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr bool contains(FileEvents events, FileEvents one)
{
    return (static_cast<std::uint32_t>(events) & static_cast<std::uint32_t>(one)) != 0;
}

// Watches open files and folders. A watch follows the entry that is open, not
// its name. What happens to a folder's entries is no event of the folder,
// except that they come, go or change their names. Events that come together
// are delivered as one.
class FileSystemEvents {
public:
    using Handler = std::function<void(FileEvents)>;

    // Delivers through the main run loop. Thread: main.
    static FileSystemEvents& shared();
    // Delivers on a thread of its own, needing no loop. Thread: any.
    static FileSystemEvents& background();
    virtual ~FileSystemEvents() = default;

    // Watches from now until the subscription ends; no call starts after that
    // (in the background one may still be running). The subscription may outlive
    // the service. Fails with the system's reason, for one when the user's
    // quota of watches is used up.
    virtual Result<Subscription> watch(int descriptor, Handler handler) = 0;
};

}  // namespace Platform
