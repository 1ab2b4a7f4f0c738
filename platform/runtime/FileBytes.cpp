#include "platform/runtime/FileBytes.h"

#include <cerrno>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/SystemPath.h"

namespace Platform {

namespace {

constexpr std::size_t firstBuffer = 4096;

Error tooLarge(const std::string& path)
{
    return Error{"read", path, 0, "too large"};
}

// A file may claim any size, and those that the kernel makes up claim none.
Result<std::string> readBytes(int file, const std::string& path, std::size_t claimed, std::size_t limit)
try {
    std::string bytes(claimed > 0 ? claimed : firstBuffer, '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = ::read(file, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return Error::fromErrno("read", path, errno);
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
        if (claimed == 0 && filled > limit) return tooLarge(path);
        if (claimed == 0 && filled == bytes.size()) bytes.resize(filled < limit / 4 ? 4 * filled : limit + 1);
    }
    bytes.resize(filled);
    return bytes;
} catch (const std::bad_alloc&) {
    return Error::fromErrno("read", path, ENOMEM);
}

}  // namespace

Result<std::string> readFileBytes(const std::string& path, std::size_t limit)
{
    const FileDescriptor file(::open(systemPath(path), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) return Error::fromErrno("open", path, errno);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) return Error::fromErrno("fstat", path, errno);
    if (!S_ISREG(status.st_mode)) return Error{"read", path, 0, "not a regular file"};
    if (static_cast<std::size_t>(status.st_size) > limit) return tooLarge(path);
    return readBytes(file.get(), path, static_cast<std::size_t>(status.st_size), limit);
}

bool writeFileBytes(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return ::fsync(file) == 0;
}

}  // namespace Platform
