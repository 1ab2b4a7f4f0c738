#include "platform/files/Bookmarks.h"

#include <cerrno>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "platform/files/FileManager.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

using Dictionary = PropertyList::Dictionary;
using Data = PropertyList::Data;

// The file system's own name for an entry, which counts how often the inode was
// used; empty where it gives none.
Data fileHandleOf(const std::string& path)
{
    union {
        file_handle handle;
        char space[sizeof(file_handle) + MAX_HANDLE_SZ];
    } buffer{};
    buffer.handle.handle_bytes = MAX_HANDLE_SZ;
    int mount = 0;
    if (::name_to_handle_at(AT_FDCWD, path.c_str(), &buffer.handle, &mount, AT_SYMLINK_FOLLOW) != 0) return {};
    return Data(buffer.handle.f_handle, buffer.handle.f_handle + buffer.handle.handle_bytes);
}

std::optional<Dictionary> identityOf(const std::string& path)
{
    const Url target = Url::fromPath(path).resolvingSymlinksInPath();
    const auto attributes = FileManager::shared().attributes(target.path());
    if (!attributes) return std::nullopt;
    Dictionary identity;
    identity.set("Device", attributes->device);
    identity.set("Inode", attributes->inode);
    if (attributes->created) identity.set("Created", attributes->created->timeIntervalSince1970());
    if (Data handle = fileHandleOf(path); !handle.empty()) identity.set("Handle", std::move(handle));
    return identity;
}

bool isEqualAt(const Dictionary& a, const Dictionary& b, const char* key)
{
    const PropertyList* inA = a.find(key);
    const PropertyList* inB = b.find(key);
    return inA && inB ? *inA == *inB : inA == inB;
}

// Device numbers of many file systems change with each start of the machine:
// they count only where the entry has nothing better to be told by.
bool isSameEntry(const Dictionary& a, const Dictionary& b)
{
    const bool hasBetter = a.find("Handle") && a.find("Created");
    return isEqualAt(a, b, "Inode") && isEqualAt(a, b, "Created") && isEqualAt(a, b, "Handle") &&
           (hasBetter || isEqualAt(a, b, "Device"));
}

}  // namespace

Bookmarks& Bookmarks::shared()
{
    return Shared<Bookmarks>::get([] { return std::make_unique<Bookmarks>(); });
}

Result<Data> Bookmarks::create(const Url& url, std::uint64_t) const
{
    const std::string path = url.path();
    if (!url.isFileUrl()) return Error::fromErrno("bookmark", url.absoluteString(), EINVAL);
    auto bookmark = identityOf(path);
    if (!bookmark) return Error::fromErrno("bookmark", path, ENOENT);
    // As data: a path is bytes in any encoding.
    bookmark->set("Path", Data(path.begin(), path.end()));
    bookmark->set("Folder", url.hasDirectoryPath());
    const auto bytes = PropertyList(std::move(*bookmark)).binary();
    if (!bytes) return bytes.error();
    return Data(bytes->begin(), bytes->end());
}

Result<ResolvedBookmark> Bookmarks::resolve(const Data& bookmark, std::uint64_t) const
{
    const auto list =
        PropertyList::parse(std::string_view(reinterpret_cast<const char*>(bookmark.data()), bookmark.size()));
    if (!list) return list.error();
    const PropertyList* stored = list->find("Path");
    if (!stored || !stored->data()) return Error{"resolve", "bookmark", 0, "it names no path"};
    const std::string path(stored->data()->begin(), stored->data()->end());
    const PropertyList* folder = list->find("Folder");
    const bool isFolder = folder && folder->boolean().value_or(false);
    const auto now = identityOf(path);
    return ResolvedBookmark{Url::fromPath(path, isFolder), !now || !isSameEntry(*list->dictionary(), *now)};
}

bool Bookmarks::startAccessing(const Url& url)
{
    const std::string path = url.path();
    const bool isFolder = FileManager::shared().kind(path) == PathKind::directory;
    return ::faccessat(AT_FDCWD, path.c_str(), isFolder ? R_OK | X_OK : R_OK, AT_EACCESS) == 0;
}

void Bookmarks::stopAccessing(const Url&) {}

}  // namespace Platform
