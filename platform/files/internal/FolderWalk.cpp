#include "platform/files/internal/FolderWalk.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/bundle/Bundle.h"
#include "platform/files/internal/DirectoryReader.h"
#include "platform/runtime/SystemPath.h"

namespace Platform {

namespace {

// A path from one open folder to the next stays far below the kernel's limit of 4,096 bytes.
constexpr std::size_t longestRelativePath = 2048;

std::string withoutTrailingSlashes(std::string path)
{
    while (path.ends_with('/')) path.pop_back();
    return path;
}

}  // namespace

FolderWalk::FolderWalk(std::string folder, const EnumerationOptions& options, const EntryVisitor& visit)
    : options_(options),
      block_(std::make_unique_for_overwrite<char[]>(entryBlockSize)),
      visit_(visit),
      path_(std::move(folder))
{
}

Result<void> FolderWalk::run()
{
    FileDescriptor folder = openFolder(AT_FDCWD, systemPath(path_), true);
    if (!folder) return Error::fromErrno("open", path_, errno);
    path_ = withoutTrailingSlashes(std::move(path_));
    if (!enter(std::move(folder))) return Error::fromErrno("getdents64", path_, errno);
    while (depth_ > 0) {
        if (visitNext() == Visit::stop) break;
    }
    return {};
}

// Reads all entries of the folder at path_ and makes it the deepest level.
bool FolderWalk::enter(FileDescriptor folder)
{
    if (levels_.size() == depth_) levels_.emplace_back();
    Level& level = levels_[depth_];
    if (!readAllEntries(folder.get(), block_.get(), level.entries)) return false;
    level.next = 0;
    level.pathLength = path_.size();
    const Level* parent = depth_ > 0 ? &levels_[depth_ - 1] : nullptr;
    if (!parent || path_.size() - parent->baseLength > longestRelativePath) {
        level.anchor = std::move(folder);
        level.base = level.anchor.get();
        level.baseLength = path_.size() + 1;
    } else {
        level.base = parent->base;
        level.baseLength = parent->baseLength;
    }
    ++depth_;
    return true;
}

Visit FolderWalk::visitNext()
{
    Level& level = levels_[depth_ - 1];
    path_.resize(level.pathLength);
    if (level.next >= level.entries.size()) {
        level.anchor.reset();
        --depth_;
        return Visit::goOn;
    }
    const auto* raw = reinterpret_cast<const RawEntry*>(level.entries.data() + level.next);
    level.next += raw->length;
    if (raw->isDotOrDotDot() || (options_.skipsHidden && raw->name[0] == '.')) return Visit::goOn;

    path_.append("/").append(raw->name);
    Error error;
    const DirectoryEntry entry = describe(raw->name, raw->type, error);
    if (visit_(entry) == Visit::stop) return Visit::stop;
    if (!isWorthEntering(entry)) return Visit::goOn;
    FileDescriptor folder = openFolder(level.base, path_.c_str() + level.baseLength, false);
    if (folder) enter(std::move(folder));
    return Visit::goOn;
}

DirectoryEntry FolderWalk::describe(const char* name, unsigned char type, Error& error)
{
    DirectoryEntry entry{path_, name};
    entry.isDirectory = type == DT_DIR;
    if (type != DT_UNKNOWN) return entry;

    const Level& level = levels_[depth_ - 1];
    struct stat status {};
    if (::fstatat(level.base, path_.c_str() + level.baseLength, &status, AT_SYMLINK_NOFOLLOW) == 0) {
        entry.isDirectory = S_ISDIR(status.st_mode);
    } else {
        error = Error::fromErrno("stat", path_, errno);
        entry.error = &error;
    }
    return entry;
}

bool FolderWalk::isWorthEntering(const DirectoryEntry& entry) const
{
    if (!entry.isDirectory || options_.skipsSubfolders) return false;
    return !(options_.skipsPackageDescendants && isPackage(entry.name));
}

}  // namespace Platform
