#include "platform/files/FileHandle.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/SystemPath.h"

namespace Platform {

namespace {

// Appends arrive in small pieces, for which no memory is cleared first.
constexpr std::size_t smallPiece = 4096;

ssize_t readAt(int file, char* buffer, std::size_t size, std::uint64_t offset)
{
    ssize_t count;
    do {
        count = ::pread(file, buffer, size, static_cast<off_t>(offset));
    } while (count < 0 && errno == EINTR);
    return count;
}

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
    char piece[smallPiece];
    ssize_t count = readAt(file_.get(), piece, std::min(sizeof piece, most), offset_);
    if (count <= 0) return "";
    std::string data(piece, static_cast<std::size_t>(count));
    std::size_t filled = data.size();
    // A short read is the end: what comes later brings an event of its own.
    for (std::size_t room = sizeof piece; count > 0 && filled == room && filled < most; room = data.size()) {
        data.resize(std::min(4 * filled, most));
        count = readAt(file_.get(), data.data() + filled, data.size() - filled, offset_ + filled);
        filled += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
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
