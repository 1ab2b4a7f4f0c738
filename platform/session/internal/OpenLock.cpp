#include "platform/session/internal/OpenLock.h"

#include <cerrno>
#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

#include "platform/runtime/Environment.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Url.h"

namespace Platform {

namespace {

constexpr auto longestWait = std::chrono::seconds(2);

// The same in every program, however it was built. What is too long for a file
// name is cut, and told apart by a number.
std::string lockFile(std::string_view application)
{
    constexpr std::size_t longestName = 100;
    std::string name = percentEncoded(application, "-._");
    if (name.size() > longestName) {
        name.resize(longestName);
        name += "~" + std::to_string(std::hash<std::string_view>()(application));
    }
    return Environment::shared().runtimeDirectory() + "/pellora-open-" + name + ".lock";
}

}  // namespace

Result<FileDescriptor> takeOpenLock(std::string_view application)
{
    const std::string path = lockFile(application);
    FileDescriptor lock(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!lock) {
        log("Opening without a lock: " + Error::fromErrno("open", path, errno).message());
        return lock;
    }
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return Error::fromErrno("flock", path, errno);
        if (std::chrono::steady_clock::now() > deadline) return Error::fromErrno("flock", path, ETIMEDOUT);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return lock;
}

}  // namespace Platform
