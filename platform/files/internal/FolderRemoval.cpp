#include "platform/files/internal/FolderRemoval.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include "platform/runtime/SystemPath.h"

namespace Platform {

namespace {

// True also where it is gone already; else errno says why not.
bool removes(int folder, const std::string& name, int flags)
{
    return ::unlinkat(folder, name.c_str(), flags) == 0 || errno == ENOENT;
}

bool isNotEmpty(int code)
{
    return code == ENOTEMPTY || code == EEXIST;
}

}  // namespace

FolderRemoval::FolderRemoval(std::string path)
    : path_(std::move(path)), block_(std::make_unique_for_overwrite<char[]>(entryBlockSize))
{
}

Result<void> FolderRemoval::run()
{
    if (::unlink(systemPath(path_)) == 0) return {};
    if (errno != EISDIR) return Error::fromErrno("remove", path_, errno);
    if (::rmdir(path_.c_str()) == 0) return {};
    if (!isNotEmpty(errno)) return Error::fromErrno("remove", path_, errno);

    FileDescriptor folder = openFolder(AT_FDCWD, path_.c_str(), false);
    if (!folder) return Error::fromErrno("open", path_, errno);
    bool goesOn = enter(std::move(folder), path_);
    while (goesOn && !levels_.empty()) goesOn = levels_.back().folders.empty() ? leave() : removeNextFolder();
    if (failure_) return *failure_;
    if (!removes(AT_FDCWD, path_, AT_REMOVEDIR)) return Error::fromErrno("remove", path_, errno);
    return {};
}

bool FolderRemoval::enter(FileDescriptor folder, std::string name)
{
    struct stat status {};
    if (::fstat(folder.get(), &status) != 0) return fail("fstat", name);
    open_ = std::move(folder);
    levels_.push_back({std::move(name), {}, status.st_dev, status.st_ino});
    return removeFiles();
}

bool FolderRemoval::removeFiles()
{
    if (!readAllEntries(open_.get(), block_.get(), entries_)) return fail("getdents64", "");
    bool goesOn = true;
    forEachEntry(entries_.data(), static_cast<long>(entries_.size()),
                 [&](const RawEntry& entry) { goesOn = goesOn && removeFile(entry); });
    return goesOn;
}

// A folder is kept for later.
bool FolderRemoval::removeFile(const RawEntry& entry)
{
    if (entry.type != DT_DIR) {
        if (removes(open_.get(), entry.name, 0)) return true;
        if (errno != EISDIR) return fail("remove", entry.name);
    }
    levels_.back().folders.emplace_back(entry.name);
    return true;
}

bool FolderRemoval::removeNextFolder()
{
    std::string name = std::move(levels_.back().folders.back());
    levels_.back().folders.pop_back();
    if (removes(open_.get(), name, AT_REMOVEDIR)) return true;
    if (!isNotEmpty(errno)) return fail("remove", name);
    FileDescriptor folder = openFolder(open_.get(), name.c_str(), false);
    return folder ? enter(std::move(folder), std::move(name)) : fail("open", name);
}

// Steps up from an emptied folder and removes it.
bool FolderRemoval::leave()
{
    const std::string name = std::move(levels_.back().name);
    levels_.pop_back();
    if (levels_.empty()) return true;  // the outermost goes by its path
    FileDescriptor parent = openFolder(open_.get(), "..", true);
    struct stat status {};
    if (!parent || ::fstat(parent.get(), &status) != 0) return fail("open", name + "/..");
    errno = ESTALE;
    if (status.st_dev != levels_.back().device || status.st_ino != levels_.back().inode) return fail("open", name);
    open_ = std::move(parent);
    return removes(open_.get(), name, AT_REMOVEDIR) || fail("remove", name);
}

// Always false; errno is the reason.
bool FolderRemoval::fail(const char* call, const std::string& name)
{
    const int reason = errno;
    std::string path;
    for (const Level& level : levels_) path += level.name + "/";
    failure_ = Error::fromErrno(call, path + name, reason);
    return false;
}

}  // namespace Platform
