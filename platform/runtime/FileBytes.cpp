#include "platform/runtime/FileBytes.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/FileDescriptor.h"

namespace Platform {

Result<std::string> readFileBytes(const std::string& path, std::size_t limit)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) return Error::fromErrno("open", path, errno);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) return Error::fromErrno("fstat", path, errno);
    if (!S_ISREG(status.st_mode)) return Error{"read", path, 0, "not a regular file"};
    if (static_cast<std::size_t>(status.st_size) > limit) return Error{"read", path, 0, "too large"};

    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = ::read(file.get(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return Error::fromErrno("read", path, errno);
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
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
