#pragma once

#include <cstdint>
#include <optional>

#include "platform/runtime/Date.h"

namespace Platform {

// The attributes of an entry that can be asked for by name.
enum class FileAttribute {
    type,
    size,
    creationDate,
    modificationDate,
    referenceCount,
    ownerAccountId,
    groupOwnerAccountId,
    posixPermissions,
    systemNumber,
    systemFileNumber,
};

enum class EntryType { regular, directory, symbolicLink, socket, characterSpecial, blockSpecial, pipe, unknown };

// What the file system knows about one entry itself; a link is not followed. A value.
struct FileAttributes {
    EntryType type = EntryType::unknown;
    std::uint64_t size = 0;       // bytes
    std::optional<Date> created;  // absent where the file system keeps no such date
    Date modified;
    std::uint64_t links = 0;
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    std::uint32_t permissions = 0;  // the lower twelve bits of the mode
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    bool isDirectory() const { return type == EntryType::directory; }
    // Absent for an attribute that is no date.
    std::optional<Date> date(FileAttribute attribute) const;
};

}  // namespace Platform
