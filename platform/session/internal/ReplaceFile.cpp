#include "platform/session/internal/ReplaceFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/FileBytes.h"
#include "platform/runtime/FileDescriptor.h"

namespace Platform {

namespace {

std::string folderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/'));
}

Result<void> makeFolder(const std::string& path)
{
    if (path.empty() || ::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) return {};
    if (errno != ENOENT) return Error::fromErrno("mkdir", path, errno);
    if (auto parent = makeFolder(folderOf(path)); !parent) return parent;
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) return Error::fromErrno("mkdir", path, errno);
    return {};
}

void syncFolder(const std::string& path)
{
    const FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder) ::fsync(folder.get());
}

}  // namespace

Result<void> replaceFile(const std::string& path, std::string_view content)
{
    if (auto made = makeFolder(folderOf(path)); !made) return made;
    std::string temporary = path + ".XXXXXX";
    const FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) return Error::fromErrno("open", path, errno);

    const bool isWritten = ::fchmod(file.get(), 0644) == 0 && writeFileBytes(file.get(), content);
    if (!isWritten || ::rename(temporary.c_str(), path.c_str()) != 0) {
        const Error error = Error::fromErrno(isWritten ? "rename" : "write", path, errno);
        ::unlink(temporary.c_str());
        return error;
    }
    syncFolder(folderOf(path));
    return {};
}

}  // namespace Platform
