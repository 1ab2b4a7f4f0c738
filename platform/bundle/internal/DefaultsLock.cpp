#include "platform/bundle/internal/DefaultsLock.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace Platform {

namespace {

// Somebody may have removed the file while we waited: then others lock a new one.
bool isStillThere(int file)
{
    struct stat status {};
    return ::fstat(file, &status) == 0 && status.st_nlink > 0;
}

}  // namespace

Result<DefaultsLock> DefaultsLock::take(const std::string& path)
{
    using namespace std::chrono;
    const auto deadline = steady_clock::now() + seconds(2);
    for (auto pause = microseconds(50);; pause = std::min<microseconds>(2 * pause, milliseconds(5))) {
        // Opened for reading: closing it is then no change that watchers hear of.
        FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
        if (!file) return Error::fromErrno("open", path, errno);
        const bool isLocked = ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
        if (isLocked && isStillThere(file.get())) return DefaultsLock(std::move(file));
        if (!isLocked && errno != EWOULDBLOCK && errno != EINTR) return Error::fromErrno("flock", path, errno);
        if (steady_clock::now() >= deadline) return Error::fromErrno("flock", path, EWOULDBLOCK);
        std::this_thread::sleep_for(pause);
    }
}

}  // namespace Platform
