#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include <sys/types.h>

#include "platform/bundle/PropertyList.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Result.h"

namespace Platform {

using DefaultsChanges = std::map<std::string, std::optional<PropertyList>, std::less<>>;

// The file of one suite as it was last read, and its atomic replacement.
// Thread: one at a time.
class DefaultsFile {
public:
    explicit DefaultsFile(std::string path);

    const std::string& path() const { return path_; }
    // The stored values, read again only when the file may have changed.
    const PropertyList::Dictionary& values();
    // Puts the changes on top of what the file holds by now.
    Result<void> save(const DefaultsChanges& changes);

private:
    // Tells one state of the file from another; the open descriptor keeps the
    // inode's number from being used again.
    struct Identity {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = -1;
        std::int64_t modified = 0;

        friend bool operator==(const Identity&, const Identity&) = default;
    };

    static Identity identityOf(int file);
    std::optional<Identity> identityNow() const;
    Result<void> load();
    Result<void> loadLocked();
    Result<void> take(FileDescriptor file);
    Result<void> keepAside();
    Result<FileDescriptor> writeTemporary(const std::string& content);
    Result<void> replace(const std::string& content);
    std::string sibling(std::string_view ending) const;

    const std::string path_;
    const std::string folder_;
    std::uint64_t generation_ = 0;
    FileDescriptor open_;  // the file as read
    std::optional<Identity> identity_;
    bool isDamaged_ = false;
    PropertyList::Dictionary values_;
};

}  // namespace Platform
