#include "platform/files/FileHandle.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/SystemPath.h"

namespace Platform {

namespace {

// Appends arrive in small pieces; the buffer grows only for large ones.
constexpr std::size_t firstBuffer = 4096;

}  // namespace

Result<FileHandle> FileHandle::forReadingFrom(const Url& url)
{
    if (!url.isFileUrl()) return Error::fromErrno("open", url.absoluteString(), EINVAL);
    const std::string path = url.path();
    FileDescriptor file(::open(systemPath(path), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) return Error::fromErrno("open", path, errno);
    struct stat status {};
    if (::fstat(file.get(), &status) == 0 && S_ISDIR(status.st_mode)) return Error::fromErrno("open", path, EISDIR);
    return FileHandle(std::move(file));
}

std::uint64_t FileHandle::seekToEndOfFile()
{
    const off_t end = ::lseek(file_.get(), 0, SEEK_END);
    if (end >= 0) offset_ = static_cast<std::uint64_t>(end);
    return offset_;
}

std::string FileHandle::readDataToEndOfFile(std::size_t most)
{
    std::string data(std::min(firstBuffer, most), '\0');
    std::size_t filled = 0;
    for (;;) {
        const auto place = static_cast<off_t>(offset_ + filled);
        const ssize_t count = ::pread(file_.get(), data.data() + filled, data.size() - filled, place);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        filled += static_cast<std::size_t>(count);
        // A short read is the end: what comes later brings an event of its own.
        if (filled < data.size() || filled == most) break;
        data.resize(std::min(4 * filled, most));
    }
    offset_ += filled;
    data.resize(filled);
    return data;
}

FileDescriptor openForEvents(const Url& url)
{
    return FileDescriptor(::open(systemPath(url.path()), O_PATH | O_CLOEXEC));
}

}  // namespace Platform
