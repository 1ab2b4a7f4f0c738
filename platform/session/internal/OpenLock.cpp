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

// Readable, and short enough for a file name; the number tells apart what was cut.
std::string lockFile(std::string_view application)
{
    const std::string name = percentEncoded(application, "-._").substr(0, 100);
    return Environment::shared().runtimeDirectory() + "/pellora-open-" + name + "-" +
           std::to_string(std::hash<std::string_view>()(application)) + ".lock";
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
