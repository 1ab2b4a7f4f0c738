#include "platform/files/internal/DirectoryReader.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Platform {

FileDescriptor openFolder(int base, const char* path, bool followsLink)
{
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | (followsLink ? 0 : O_NOFOLLOW);
    return FileDescriptor(::openat(base, path, flags));
}

long readEntryBlock(int folder, char* block)
{
    long filled;
    do {
        filled = ::syscall(SYS_getdents64, folder, block, entryBlockSize);
    } while (filled < 0 && errno == EINTR);
    return filled;
}

bool readAllEntries(int folder, char* block, std::vector<char>& entries)
{
    entries.clear();
    long filled;
    while ((filled = readEntryBlock(folder, block)) > 0) entries.insert(entries.end(), block, block + filled);
    return filled == 0;
}

}  // namespace Platform
