#include "platform/files/FileManager.h"

#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "platform/files/internal/FolderRemoval.h"
#include "platform/files/internal/FolderWalk.h"
#include "platform/runtime/FileBytes.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/SystemPath.h"

namespace Platform {

namespace {

constexpr std::size_t largestContent = std::size_t{1} << 30;

Date dateOf(const statx_timestamp& time)
{
    return Date(static_cast<double>(time.tv_sec) + time.tv_nsec / 1e9);
}

EntryType typeOf(std::uint16_t mode)
{
    switch (mode & S_IFMT) {
        case S_IFREG:
            return EntryType::regular;
        case S_IFDIR:
            return EntryType::directory;
        case S_IFLNK:
            return EntryType::symbolicLink;
        case S_IFSOCK:
            return EntryType::socket;
        case S_IFCHR:
            return EntryType::characterSpecial;
        case S_IFBLK:
            return EntryType::blockSpecial;
        case S_IFIFO:
            return EntryType::pipe;
        default:
            return EntryType::unknown;
    }
}

FileAttributes attributesOf(const struct statx& status)
{
    FileAttributes attributes;
    attributes.type = typeOf(status.stx_mode);
    attributes.size = status.stx_size;
    if (status.stx_mask & STATX_BTIME) attributes.created = dateOf(status.stx_btime);
    attributes.modified = dateOf(status.stx_mtime);
    attributes.links = status.stx_nlink;
    attributes.owner = status.stx_uid;
    attributes.group = status.stx_gid;
    attributes.permissions = status.stx_mode & 07777;
    attributes.device = makedev(status.stx_dev_major, status.stx_dev_minor);
    attributes.inode = status.stx_ino;
    return attributes;
}

}  // namespace

std::optional<Date> FileAttributes::date(FileAttribute attribute) const
{
    if (attribute == FileAttribute::creationDate) return created;
    if (attribute == FileAttribute::modificationDate) return modified;
    return std::nullopt;
}

FileManager& FileManager::shared()
{
    return Shared<FileManager>::get([] { return std::make_unique<FileManager>(); });
}

PathKind FileManager::kind(const std::string& path) const
{
    struct stat status {};
    if (::stat(systemPath(path), &status) != 0) return PathKind::none;
    return S_ISDIR(status.st_mode) ? PathKind::directory : PathKind::file;
}

bool FileManager::isReadable(const std::string& path) const
{
    return ::faccessat(AT_FDCWD, systemPath(path), R_OK, AT_EACCESS) == 0;
}

Result<FileAttributes> FileManager::attributes(const std::string& path) const
{
    struct statx status {};
    constexpr unsigned wanted = STATX_BASIC_STATS | STATX_BTIME;
    if (::statx(AT_FDCWD, systemPath(path), AT_SYMLINK_NOFOLLOW, wanted, &status) != 0) {
        return Error::fromErrno("statx", path, errno);
    }
    return attributesOf(status);
}

Result<std::string> FileManager::contents(const std::string& path) const
{
    return readFileBytes(path, largestContent);
}

Result<std::vector<std::string>> FileManager::contentsOfDirectory(const std::string& path) const
{
    std::vector<std::string> names;
    const EnumerationOptions onlyDirectly{.skipsSubfolders = true};
    const auto keepName = [&](const DirectoryEntry& entry) {
        names.emplace_back(entry.name);
        return Visit::goOn;
    };
    if (auto listed = enumerate(path, onlyDirectly, keepName); !listed) return listed.error();
    return names;
}

Result<void> FileManager::enumerate(const std::string& folder, const EnumerationOptions& options,
                                    const EntryVisitor& visit) const
{
    return FolderWalk(folder, options, visit).run();
}

Result<void> FileManager::removeItem(const std::string& path) const
{
    return FolderRemoval(path).run();
}

}  // namespace Platform
