#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <dirent.h>

#include "platform/runtime/FileDescriptor.h"

namespace Platform {

// Opens the folder itself: fails (errno) when the last component is a link and
// links are not followed, or when it is no folder.
FileDescriptor openFolder(int base, const char* path, bool followsLink);

// The layout in which the kernel hands out entries.
struct RawEntry {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length;
    std::uint8_t type;  // DT_DIR and so on; DT_UNKNOWN where the file system does not tell
    char name[1];

    bool isDotOrDotDot() const { return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0')); }
};

constexpr std::size_t entryBlockSize = 64 * 1024;

// Fills one block with the folder's next entries. Bytes filled; 0 at the end; -1 with errno.
long readEntryBlock(int folder, char* block);

// Replaces the content by all entries of the folder. False, with errno, when
// they cannot be read.
bool readAllEntries(int folder, char* block, std::vector<char>& entries);

// Calls back with each entry of a filled block, "." and ".." left out.
template <typename Callback>
void forEachEntry(const char* block, long filled, Callback&& callback)
{
    for (long at = 0; at < filled;) {
        const auto* entry = reinterpret_cast<const RawEntry*>(block + at);
        at += entry->length;
        if (!entry->isDotOrDotDot()) callback(*entry);
    }
}

}  // namespace Platform
